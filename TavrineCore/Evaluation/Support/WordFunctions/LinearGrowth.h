#pragma once

#include <optional>
#include <span>
#include <variant>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// Quantities that change by the same amount in the same time.
namespace tavrine {

/// What grows: a bare number or an amount of a unit.
using Quantity = std::variant<Decimal, UnitExpression>;

/// What the growth is per: a rate tells the growth too ("5 per day", "5 km per week"), a duration only its interval
/// ("every 2 weeks").
using EveryWhat = std::variant<DecimalRate, UnitRate, UnitExpression>;

/// "from 10 km to 100 km at 5 km per week".
struct LinearGrowthParameterPack {
  Quantity startQuantity;
  Quantity endQuantity;
  /// The growth at each interval, where the phrase tells it apart from the interval: "5 km every 2 weeks".
  std::optional<Quantity> explicitGrowthQuantity;
  EveryWhat everyWhat;
  /// What the answer was asked for in: "how many days".
  std::optional<Calendar::Component> explicitReturnType;

  /// Reads start, end and growth in this order; the unit that is asked for may stand anywhere.
  [[nodiscard]] static std::optional<LinearGrowthParameterPack> parameters(std::span<const Token> arguments);

  /// The unit of time that the phrase tells the growth in.
  [[nodiscard]] const TCUnit& returnType() const;

  friend bool operator==(const LinearGrowthParameterPack&, const LinearGrowthParameterPack&) = default;
};

struct LinearGrowthCalculator {
  LinearGrowthParameterPack parameters;

  /// End less start in base units of their kind; absent where their kinds differ. A bare number beside an amount has
  /// its unit: "from 10 to 100 km".
  [[nodiscard]] std::optional<Decimal> totalGrowthRequired() const;
  /// In base units for each second; absent where the growth isn't of the kind of the quantities.
  [[nodiscard]] std::optional<Decimal> growthPerSecond() const;
  /// In the unit that was asked for. A growth that isn't signed is taken to lead from the start to the end, be it up
  /// or down. Nothing where no time leads there.
  [[nodiscard]] std::optional<UnitExpression> timeRequired() const;
};

}  // namespace tavrine
