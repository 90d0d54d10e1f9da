#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

/// Whether the rates count the same kind of thing for each of the same kind.
bool areOfTheSameKinds(const UnitRate& left, const UnitRate& right) {
  if (!areConvertible(left.perUnit, right.perUnit) || left.ofUnit.has_value() != right.ofUnit.has_value()) return false;
  return !left.ofUnit || areConvertible(*left.ofUnit, *right.ofUnit);
}

UnitRate scaledTo(const UnitRate& rate, const std::optional<TCUnit>& ofUnit, const TCUnit& perUnit) {
  // A single division, and the last: thirds and sevenths have no end.
  Decimal numerator = rate.value * perUnit.coefficient();
  Decimal denominator = rate.perUnit.coefficient();
  if (ofUnit) {
    numerator *= rate.ofUnit->coefficient();
    denominator *= ofUnit->coefficient();
  }
  return {numerator / denominator, ofUnit, perUnit};
}

std::optional<UnitRate> sumOf(const UnitRate& left, const UnitRate& right, UnitSum operation) {
  if (!areOfTheSameKinds(left, right)) {
    if (!UnitRelations::ratesAreReciprocal(left, right)) return std::nullopt;
    const std::optional<UnitRate> turned = reciprocalOf(right);
    return turned ? sumOf(left, *turned, operation) : std::nullopt;
  }
  std::optional<TCUnit> ofUnit = left.ofUnit;
  if (ofUnit && ofUnit->unitType() == UnitType::currency) {
    ofUnit = winningUnitInMixedUnitArithmatic(*left.ofUnit, *right.ofUnit, operation);
  }
  const auto valueOf = [&](const UnitRate& rate) {
    const bool isSame = rate.ofUnit == ofUnit && rate.perUnit == left.perUnit;
    return isSame ? rate.value : scaledTo(rate, ofUnit, left.perUnit).value;
  };
  const Decimal a = valueOf(left);
  const Decimal b = valueOf(right);
  return UnitRate{operation == UnitSum::addition ? a + b : a - b, ofUnit, left.perUnit};
}

std::optional<PercentageRate> sumOf(const PercentageRate& left, const PercentageRate& right, UnitSum operation) {
  const auto sum = [operation](const Percentage& a, const Percentage& b) {
    return operation == UnitSum::addition ? a + b : a - b;
  };
  if (left.perUnit == right.perUnit) return PercentageRate{sum(left.percentage, right.percentage), left.perUnit};

  // In the larger of the two units the values are the ones with fewer digits: 1% a month is 12% a year.
  const std::optional<TCUnit> larger = UnitRelations::largerOf(left.perUnit, right.perUnit);
  if (!larger) return std::nullopt;
  const std::optional<PercentageRate> a = to(left, *larger);
  const std::optional<PercentageRate> b = to(right, *larger);
  if (!a || !b) return std::nullopt;
  return to(PercentageRate{sum(a->percentage, b->percentage), *larger}, left.perUnit);
}

}  // namespace

std::optional<UnitRate> rateOf(const UnitExpression& expression) {
  std::optional<UnitRate> rate = rateValueOf(expression.unit);
  if (rate) rate->value *= expression.value;
  return rate;
}

UnitRate asUnitRate(const DecimalRate& rate) { return {rate.value, std::nullopt, rate.perUnit}; }

UnitRate rateValueOf(const Substance& substance) {
  return {substance.value, unitOf(UnitIdentifier::grams), unitOf(UnitIdentifier::cubicCentimeters)};
}

std::optional<UnitRate> to(const UnitRate& rate, const UnitRate& target) {
  if (rate.ofUnit && !target.ofUnit) {
    if (!areConvertible(rate.perUnit, target.perUnit)) return std::nullopt;
    return scaledTo(rate, rate.ofUnit, target.perUnit);
  }
  if (areOfTheSameKinds(rate, target)) return scaledTo(rate, target.ofUnit, target.perUnit);
  if (!UnitRelations::ratesAreReciprocal(rate, target)) return std::nullopt;
  const std::optional<UnitRate> turned = reciprocalOf(rate);
  return turned ? to(*turned, target) : std::nullopt;
}

std::optional<UnitRate> to(const UnitRate& rate, const TCUnit& unit) {
  if (areConvertible(rate.perUnit, unit)) return scaledTo(rate, rate.ofUnit, unit);
  if (rate.ofUnit && areConvertible(*rate.ofUnit, unit)) return scaledTo(rate, unit, rate.perUnit);
  return std::nullopt;
}

std::optional<PercentageRate> to(const PercentageRate& rate, const TCUnit& perUnit) {
  if (!areConvertible(rate.perUnit, perUnit)) return std::nullopt;
  const Decimal& fraction = rate.percentage.decimalValue;
  return PercentageRate{{fraction * perUnit.coefficient() / rate.perUnit.coefficient()}, perUnit};
}

std::optional<UnitRate> reciprocalOf(const UnitRate& rate) {
  if (!rate.ofUnit || rate.value.isZero()) return std::nullopt;
  return UnitRate{Decimal(1) / rate.value, rate.perUnit, *rate.ofUnit};
}

UnitRate toBase(const UnitRate& rate) {
  std::optional<TCUnit> ofUnit;
  if (rate.ofUnit) ofUnit = baseUnitOf(*rate.ofUnit);
  return scaledTo(rate, ofUnit, baseUnitOf(rate.perUnit));
}

std::optional<UnitExpression> equivalentUnitExpressionOf(const UnitRate& rate) {
  if (!rate.ofUnit) {
    const std::optional<TCUnit> reciprocal = UnitRelations::reciprocalOf(baseUnitOf(rate.perUnit));
    if (!reciprocal) return std::nullopt;
    return UnitExpression{toBase(rate).value, *reciprocal, true};
  }
  if (const auto unit = UnitRelations::divisionUnitFor(*rate.ofUnit, rate.perUnit)) {
    return UnitExpression{rate.value, *unit, true};
  }
  const UnitRate base = toBase(rate);
  if (const auto unit = UnitRelations::divisionUnitFor(*base.ofUnit, base.perUnit)) {
    return UnitExpression{base.value, *unit, true};
  }
  return std::nullopt;
}

std::optional<UnitExpression> synonymousUnitExpressionOf(const UnitRate& rate) {
  if (!rate.ofUnit) return std::nullopt;
  const auto quotient = UnitRelations::formUnitExpressionInDivision(*rate.ofUnit, rate.perUnit);
  if (!quotient) return std::nullopt;
  return UnitExpression{quotient->convertToBase ? toBase(rate).value : rate.value, quotient->unit, true};
}

std::partial_ordering compareRates(const UnitRate& left, const UnitRate& right) {
  if (!areOfTheSameKinds(left, right)) return std::partial_ordering::unordered;
  return toBase(left).value <=> toBase(right).value;
}

std::optional<UnitRate> operator+(const UnitRate& left, const UnitRate& right) {
  return sumOf(left, right, UnitSum::addition);
}

std::optional<UnitRate> operator-(const UnitRate& left, const UnitRate& right) {
  return sumOf(left, right, UnitSum::subtraction);
}

std::optional<PercentageRate> operator+(const PercentageRate& left, const PercentageRate& right) {
  return sumOf(left, right, UnitSum::addition);
}

std::optional<PercentageRate> operator-(const PercentageRate& left, const PercentageRate& right) {
  return sumOf(left, right, UnitSum::subtraction);
}

}  // namespace tavrine
