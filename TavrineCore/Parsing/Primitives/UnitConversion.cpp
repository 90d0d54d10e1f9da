#include "TavrineCore/Parsing/Primitives/UnitConversion.h"

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

// A cup and a pint come from rounded coefficients; their ratio shall not show it.
constexpr UnitIdentifierSet kRoundyVolumeUnits = {
    UnitIdentifier::pints,       UnitIdentifier::cups,    UnitIdentifier::quarts,     UnitIdentifier::gallons,
    UnitIdentifier::fluidOunces, UnitIdentifier::bushels, UnitIdentifier::cubicYards,
};
constexpr int kRoundyVolumePlaces = 6;
// The constant of degrees Fahrenheit ends after 35 places.
constexpr int kTemperaturePlaces = 34;

}  // namespace

bool areConvertible(const TCUnit& unit1, const TCUnit& unit2) {
  return haveEqualBaseUnits(unit1, unit2) || UnitRelations::mayGenerouslyConisiderUnitsToBeEquivalent(unit1, unit2);
}

Decimal baseUnitValueOf(const TCUnit& unit) { return unit.coefficient() + unit.constant(); }

Decimal valueInBaseUnit(const UnitExpression& expression) {
  return expression.value * expression.unit.coefficient() + expression.unit.constant();
}

Decimal valueFrom(const Decimal& baseUnitValue, const TCUnit& unit) {
  const Decimal value = (baseUnitValue - unit.constant()) / unit.coefficient();
  if (kRoundyVolumeUnits.contains(unit.identifier())) return value.rounded(kRoundyVolumePlaces, RoundingMode::plain);
  if (unit.unitType() == UnitType::temperature) return value.rounded(kTemperaturePlaces, RoundingMode::plain);
  return value;
}

Decimal factorOf(const TCUnit& unit, const TCUnit& dimension) { return ratioOf(unit, dimension).value_or(0); }

std::optional<Decimal> ratioOf(const TCUnit& unit, const TCUnit& dimension) {
  if (!haveEqualBaseUnits(unit, dimension)) return std::nullopt;
  return baseUnitValueOf(unit) / baseUnitValueOf(dimension);
}

std::optional<UnitExpression> convertedTo(const UnitExpression& expression, const TCUnit& unit) {
  if (!areConvertible(expression.unit, unit)) return std::nullopt;
  return UnitExpression{valueFrom(valueInBaseUnit(expression), unit), unit};
}

std::optional<UnitExpression> convertedTo(const UnitExpression& expression, UnitIdentifier unit) {
  return convertedTo(expression, unitOf(unit));
}

std::optional<UnitExpression> to(const UnitExpression& expression, const TCUnit& unit) {
  if (areConvertible(expression.unit, unit)) return convertedTo(expression, unit);

  const std::optional<TCUnit> reciprocal = UnitRelations::reciprocalOf(baseUnitOf(expression.unit));
  if (reciprocal && *reciprocal == baseUnitOf(unit)) {
    return convertedTo({Decimal(1) / valueInBaseUnit(expression), *reciprocal}, unit);
  }

  const std::optional<UnitRate> cycles = UnitRelations::cycleValueFor(expression);
  if (!cycles) return std::nullopt;
  const std::optional<UnitRate> cyclesOfOne = UnitRelations::cycleValueFor({1, unit});
  if (!cyclesOfOne) return std::nullopt;
  return UnitExpression{cycles->value / cyclesOfOne->value, unit};
}

std::partial_ordering compareQuantities(const UnitExpression& left, const UnitExpression& right) {
  if (!areConvertible(left.unit, right.unit)) return std::partial_ordering::unordered;
  return valueInBaseUnit(left) <=> valueInBaseUnit(right);
}

std::optional<UnitRate> rateValueOf(const TCUnit& unit) {
  const std::optional<TCUnit> numerator = UnitRelations::numeratorOf(unit);
  const std::optional<TCUnit> denominator = UnitRelations::denomenatorOf(unit);
  if (numerator && denominator) return UnitRate{1, *numerator, *denominator};

  const std::optional<TCUnit> reciprocal = UnitRelations::reciprocalOf(baseUnitOf(unit));
  if (!reciprocal) return std::nullopt;
  return UnitRate{baseUnitValueOf(unit), std::nullopt, *reciprocal};
}

}  // namespace tavrine
