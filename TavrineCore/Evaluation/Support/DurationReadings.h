#pragma once

#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// The forms of a duration, each read as another: a quantity, a duration on the calendar, a stopwatch reading, a time
/// code.
namespace tavrine {

/// So many seconds as a quantity.
[[nodiscard]] UnitExpression inSeconds(const Decimal& seconds);

/// The token of a quantity that was calculated.
[[nodiscard]] Token tokenOf(const UnitExpression& expression);

/// Whether the unit measures time, workdays included.
[[nodiscard]] bool measuresTime(const TCUnit& unit);

/// The duration as one quantity, in the token's form of it.
[[nodiscard]] Token asUnitExpressionToken(const Timespan& timespan);

/// The sum as a duration; empty where it is too long for the calendar.
[[nodiscard]] Timespan summed(const Timespan& left, const Timespan& right, UnitSum operation);

/// A quantity of time, a duration, a reading or a time code as a reading; absent for anything else, and for what is
/// too long for the calendar.
[[nodiscard]] std::optional<Laptime> laptimeReadingOf(const Token& token);
[[nodiscard]] std::optional<Laptime> laptimeReadingOf(const Timespan& timespan);
[[nodiscard]] Laptime laptimeReadingOf(const Frametime& frametime);

/// The token of a reading with that many seconds, of a time code with that many frames. An error where it is too long
/// to be told in hours.
[[nodiscard]] Token laptimeTokenOf(const Decimal& seconds);
[[nodiscard]] Token frametimeTokenOf(const Decimal& totalFrames, const Decimal& fps);

}  // namespace tavrine
