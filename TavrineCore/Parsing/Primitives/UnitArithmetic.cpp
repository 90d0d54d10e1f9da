#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"

namespace tavrine {

namespace {

Decimal sumOf(const Decimal& left, const Decimal& right, UnitSum operation) {
  return operation == UnitSum::addition ? left + right : left - right;
}

std::optional<UnitExpression> sumOf(const UnitExpression& left, const UnitExpression& right, UnitSum operation) {
  if (left.unit == right.unit) return UnitExpression{sumOf(left.value, right.value, operation), left.unit, true};

  if (haveEqualBaseUnits(left.unit, right.unit)) {
    const TCUnit& unit = winningUnitInMixedUnitArithmatic(left.unit, right.unit, operation);
    const Decimal value = sumOf(valueInBaseUnit(left), valueInBaseUnit(right), operation);
    return UnitExpression{valueFrom(value, unit), unit, true};
  }

  const std::optional<UnitRate> leftRate = rateOf(left);
  const std::optional<UnitRate> rightRate = rateOf(right);
  if (!leftRate || !rightRate) return std::nullopt;
  const std::optional<UnitRate> rate = operation == UnitSum::addition ? *leftRate + *rightRate : *leftRate - *rightRate;
  if (!rate) return std::nullopt;
  const std::optional<UnitExpression> sum = equivalentUnitExpressionOf(*rate);
  if (!sum) return std::nullopt;
  std::optional<UnitExpression> converted = to(*sum, right.unit);
  if (converted) converted->prefersCompoundUnitFormatting = true;
  return converted;
}

}  // namespace

UnitExpression with(UnitIdentifier unit, const Decimal& value) { return {value, unitOf(unit), true}; }

const TCUnit& winningUnitInMixedUnitArithmatic(const TCUnit& firstUnit, const TCUnit& secondUnit, UnitSum operation) {
  if (operation == UnitSum::subtraction) return firstUnit;
  const bool isFirstLarger = haveEqualBaseUnits(firstUnit, secondUnit) && firstUnit.unitType() != UnitType::currency &&
                             baseUnitValueOf(secondUnit) < baseUnitValueOf(firstUnit);
  return isFirstLarger ? firstUnit : secondUnit;
}

std::optional<UnitExpression> operator+(const UnitExpression& left, const UnitExpression& right) {
  return sumOf(left, right, UnitSum::addition);
}

std::optional<UnitExpression> operator-(const UnitExpression& left, const UnitExpression& right) {
  return sumOf(left, right, UnitSum::subtraction);
}

}  // namespace tavrine
