#pragma once

#include <optional>

#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// What phrases about change over time, of money or of anything else, read from their arguments.
namespace tavrine {

/// "5%", "1/20", "5% per year": what can be the rate of a growth.
[[nodiscard]] bool isPercentageLike(const Token& token);

/// The token as a quantity of time: "18 months", "1 year 6 months", a bare unit as one of it ("every month"), and a
/// word as what it repeats in ("daily"). Absent for everything else.
[[nodiscard]] std::optional<UnitExpression> durationOf(const Token& token);

/// Whether the token tells how often something happens and not how long it lasts: "month", "daily".
[[nodiscard]] bool isIntervalInWords(const Token& token);

/// The length in seconds.
[[nodiscard]] std::optional<Decimal> secondsOf(const UnitExpression& duration);

/// The value of the token in the unit of the model, where both have one: "1 km" beside "100 m" is 1000. Absent where
/// their kinds differ.
[[nodiscard]] std::optional<Decimal> valueInUnitOf(const Token& model, const Token& token);

}  // namespace tavrine
