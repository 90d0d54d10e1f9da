#include "TavrineCore/Evaluation/Support/WordFunctions/LinearGrowth.h"

#include <vector>

#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"

namespace tavrine {

namespace {

std::optional<Quantity> quantityOf(const Token& token) {
  if (std::optional<UnitExpression> expression = token.unitExpressionValue()) return *std::move(expression);
  if (token.is(TokenType::rate) || isPercentageLike(token)) return std::nullopt;
  return decimalOf(token);
}

std::optional<TCUnit> unitOfQuantity(const Quantity& quantity) {
  const auto* expression = std::get_if<UnitExpression>(&quantity);
  return expression != nullptr ? std::optional(expression->unit) : std::nullopt;
}

/// The unit of the quantities; absent for bare numbers.
std::optional<TCUnit> unitOfQuantities(const LinearGrowthParameterPack& pack) {
  const std::optional<TCUnit> unit = unitOfQuantity(pack.startQuantity);
  return unit ? unit : unitOfQuantity(pack.endQuantity);
}

/// The quantity in base units of the kind; a bare number is so many of `unit`.
std::optional<Decimal> inBaseUnits(const Quantity& quantity, const std::optional<TCUnit>& unit) {
  if (const auto* expression = std::get_if<UnitExpression>(&quantity)) {
    if (!unit || !areConvertible(expression->unit, *unit)) return std::nullopt;
    return valueInBaseUnit(*expression);
  }
  const Decimal& value = std::get<Decimal>(quantity);
  return unit ? valueInBaseUnit({value, *unit}) : value;
}

struct GrowthAndInterval {
  Quantity growth;
  UnitExpression interval;
};

std::optional<GrowthAndInterval> growthAndInterval(const LinearGrowthParameterPack& pack) {
  if (const auto* rate = std::get_if<DecimalRate>(&pack.everyWhat)) {
    return GrowthAndInterval{rate->value, {Decimal(1), rate->perUnit}};
  }
  if (const auto* rate = std::get_if<UnitRate>(&pack.everyWhat)) {
    if (!rate->ofUnit) return GrowthAndInterval{rate->value, {Decimal(1), rate->perUnit}};
    return GrowthAndInterval{UnitExpression{rate->value, *rate->ofUnit}, {Decimal(1), rate->perUnit}};
  }
  if (!pack.explicitGrowthQuantity) return std::nullopt;
  return GrowthAndInterval{*pack.explicitGrowthQuantity, std::get<UnitExpression>(pack.everyWhat)};
}

std::optional<EveryWhat> rateOf(const Token& token) {
  if (std::optional<DecimalRate> rate = token.decimalRateValue()) return *std::move(rate);
  if (std::optional<UnitRate> rate = token.unitRateValue()) return *std::move(rate);
  // "60 km/h" is a unit of its own.
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  const std::optional<UnitRate> rate = expression ? rateValueOf(expression->unit) : std::nullopt;
  if (!rate || rate->perUnit.unitType() != UnitType::duration) return std::nullopt;
  return UnitRate{expression->value * rate->value, rate->ofUnit, rate->perUnit};
}

}  // namespace

std::optional<LinearGrowthParameterPack> LinearGrowthParameterPack::parameters(std::span<const Token> arguments) {
  std::vector<Quantity> quantities;
  std::optional<EveryWhat> everyWhat;
  std::optional<Calendar::Component> asked;
  for (const Token& argument : arguments) {
    const bool isUnit = argument.is(TokenType::unit);
    const bool isBehindGrowth = quantities.size() > 2;
    if (isUnit && quantities.empty()) {
      asked = argument.calendarComponentValue();
    } else if (quantities.size() == 2 && rateOf(argument)) {
      everyWhat = rateOf(argument);
    } else if (isBehindGrowth || isUnit) {
      if (const std::optional<UnitExpression> duration = durationOf(argument)) everyWhat = *duration;
    } else if (std::optional<Quantity> quantity = quantityOf(argument)) {
      quantities.push_back(*std::move(quantity));
    }
  }
  if (quantities.size() < 2 || !everyWhat) return std::nullopt;
  LinearGrowthParameterPack pack{quantities[0], quantities[1], std::nullopt, *everyWhat, asked};
  if (quantities.size() > 2) pack.explicitGrowthQuantity = quantities[2];
  return pack;
}

const TCUnit& LinearGrowthParameterPack::returnType() const {
  if (const auto* rate = std::get_if<DecimalRate>(&everyWhat)) return rate->perUnit;
  if (const auto* rate = std::get_if<UnitRate>(&everyWhat)) return rate->perUnit;
  return std::get<UnitExpression>(everyWhat).unit;
}

std::optional<Decimal> LinearGrowthCalculator::totalGrowthRequired() const {
  const std::optional<TCUnit> unit = unitOfQuantities(parameters);
  const std::optional<Decimal> start = inBaseUnits(parameters.startQuantity, unit);
  const std::optional<Decimal> end = inBaseUnits(parameters.endQuantity, unit);
  if (!start || !end) return std::nullopt;
  return *end - *start;
}

std::optional<Decimal> LinearGrowthCalculator::growthPerSecond() const {
  const std::optional<GrowthAndInterval> told = growthAndInterval(parameters);
  if (!told) return std::nullopt;
  const std::optional<TCUnit> unit = unitOfQuantities(parameters);
  const std::optional<Decimal> growth = inBaseUnits(told->growth, unit);
  const std::optional<Decimal> seconds = secondsOf(told->interval);
  if (!growth || !seconds || seconds->isZero()) return std::nullopt;
  return *growth / *seconds;
}

std::optional<UnitExpression> LinearGrowthCalculator::timeRequired() const {
  const Decimal zero;
  const std::optional<Decimal> required = totalGrowthRequired();
  std::optional<Decimal> growth = growthPerSecond();
  if (!required || !growth || growth->isZero()) return std::nullopt;
  if (*required<zero&& * growth> zero) growth = -*growth;
  const Decimal seconds = *required / *growth;
  if (seconds < zero || seconds.isNaN()) return std::nullopt;
  TCUnit unit = parameters.returnType();
  if (parameters.explicitReturnType) {
    const std::optional<UnitIdentifier> asked = unitIdentifierFor(*parameters.explicitReturnType);
    if (asked) unit = unitOf(*asked);
  }
  return convertedTo(UnitExpression{seconds, unitOf(UnitIdentifier::seconds)}, unit);
}

}  // namespace tavrine
