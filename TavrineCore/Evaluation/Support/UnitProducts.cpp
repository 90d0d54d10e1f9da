#include "TavrineCore/Evaluation/Support/UnitProducts.h"

#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/Support/RateMultiplier.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

EvaluationResult quantity(const Decimal& value, const TCUnit& unit) {
  return EvaluationResult::unitExpression({value, unit, true});
}

EvaluationResult divisionByZero() { return EvaluationResult::error(EvaluationError::DivideByZero); }

/// By the product unit of the two units, or of one of them and the other's base unit.
std::optional<EvaluationResult> productOfUnits(const UnitExpression& left, const UnitExpression& right) {
  const TCUnit& leftBase = baseUnitOf(left.unit);
  const TCUnit& rightBase = baseUnitOf(right.unit);
  if (const auto unit = UnitRelations::productUnitFor(left.unit, right.unit)) {
    return quantity(left.value * right.value, *unit);
  }
  if (const auto unit = UnitRelations::productUnitFor(leftBase, right.unit)) {
    return quantity(valueInBaseUnit(left) * right.value, *unit);
  }
  if (const auto unit = UnitRelations::productUnitFor(left.unit, rightBase)) {
    return quantity(left.value * valueInBaseUnit(right), *unit);
  }
  return std::nullopt;
}

/// "2 ft * 3 in" is in square feet, the square of the first unit; "2 yd * 3 in" in the product of the base units.
std::optional<EvaluationResult> productOfBaseUnits(const UnitExpression& left, const UnitExpression& right) {
  const auto baseProduct = UnitRelations::productUnitFor(baseUnitOf(left.unit), baseUnitOf(right.unit));
  if (!baseProduct) return std::nullopt;
  if (const auto square = UnitRelations::productUnitFor(left.unit, left.unit)) {
    if (const auto converted = to(right, left.unit)) return quantity(left.value * converted->value, *square);
  }
  return quantity(valueInBaseUnit(left) * valueInBaseUnit(right), *baseProduct);
}

/// One of the two as a rate: with the other as a rate too, or as the quantity that it is.
std::optional<EvaluationResult> productOfRate(const UnitExpression& left, const UnitExpression& right) {
  const auto leftRate = rateOf(left);
  if (!leftRate) return std::nullopt;
  if (const auto rightRate = rateOf(right)) {
    if (auto result = RateMultiplier::multiplied(*leftRate, *rightRate)) return result;
  }
  return RateMultiplier::multiplied(*leftRate, right);
}

bool isTime(const UnitExpression& expression) { return expression.unit.unitType() == UnitType::duration; }

/// The quotient of values, from their base units where the unit belongs to those. Nothing by zero.
std::optional<Decimal> quotientOf(const UnitExpression& top, const UnitExpression& bottom, bool convertToBase) {
  const Decimal divisor = convertToBase ? valueInBaseUnit(bottom) : bottom.value;
  if (divisor.isZero()) return std::nullopt;
  return (convertToBase ? valueInBaseUnit(top) : top.value) / divisor;
}

EvaluationResult rateFrom(const UnitExpression& top, const UnitExpression& bottom) {
  const UnitRate rate{top.value / bottom.value, top.unit, bottom.unit};
  const std::optional<EvaluationResult> simpler = resolved(rate);
  const auto expression = simpler ? simpler->unitExpressionValue() : std::nullopt;
  return expression ? EvaluationResult::unitExpression(*expression) : EvaluationResult::unitRate(rate);
}

/// "10 m / 2 m²" is 5 for each meter.
std::optional<EvaluationResult> rateOfCancelledUnits(const UnitExpression& top, const UnitExpression& bottom) {
  if (!UnitRelations::unitsCancel(top.unit, bottom.unit)) return std::nullopt;
  const auto unit = UnitRelations::formRateInDivision(top.unit, bottom.unit);
  if (!unit) return std::nullopt;
  const auto value = quotientOf(top, bottom, unit->convertToBase);
  if (!value) return divisionByZero();
  const UnitRate rate{*value, std::nullopt, unit->unit};
  if (unit->preferredFinalUnit) {
    if (const auto preferred = to(rate, *unit->preferredFinalUnit)) return EvaluationResult::unitRate(*preferred);
  }
  return EvaluationResult::unitRate(rate);
}

/// "100 km / 25 mpg" is in gallons: what the bottom counts is of the kind of the top, and its other unit is left.
std::optional<EvaluationResult> quotientByRate(const UnitExpression& top, const UnitExpression& bottom) {
  if (!isXPerYUnit(bottom.unit)) return std::nullopt;
  auto rate = rateOf(bottom);
  if (!rate || !rate->ofUnit) return std::nullopt;
  // Fuel is counted for each 100 km; distances are not counted in hundreds.
  if (rate->perUnit.identifier() == UnitIdentifier::hectokilometers)
    rate = to(*rate, unitOf(UnitIdentifier::kilometers));
  const auto counted = convertedTo(top, *rate->ofUnit);
  if (!counted) return std::nullopt;
  return rate->value.isZero() ? divisionByZero() : quantity(counted->value / rate->value, rate->perUnit);
}

}  // namespace

EvaluationResult multiplied(const UnitExpression& left, const UnitExpression& right) {
  if (auto result = productOfUnits(left, right)) return *result;
  if (isXPerYUnit(left.unit)) {
    if (auto result = productOfRate(left, right)) return *result;
  }
  if (isXPerYUnit(right.unit)) {
    if (auto result = productOfRate(right, left)) return *result;
  }
  if (auto result = productOfBaseUnits(left, right)) return *result;
  if (isTime(left) || isTime(right)) {
    const auto result = isTime(left) ? productOfRate(right, left) : productOfRate(left, right);
    if (result && result->is(EvaluationResultCase::unitExpression)) return *result;
  }
  return EvaluationResult::error(EvaluationError::UnsupportedUnitMultiplication);
}

EvaluationResult divided(const UnitExpression& top, const UnitExpression& bottom) {
  if (const auto unit = UnitRelations::formUnitExpressionInDivision(top.unit, bottom.unit)) {
    const auto value = quotientOf(top, bottom, unit->convertToBase);
    return value ? quantity(*value, unit->unit) : divisionByZero();
  }
  if (auto result = rateOfCancelledUnits(top, bottom)) return *result;
  if (haveEqualBaseUnits(top.unit, bottom.unit)) {
    // The ratio of values of one unit needs no size of it, which may be unknown. Scales that don't begin at nothing
    // have ratios in their base unit alone.
    const bool needsBase = top.unit != bottom.unit || !top.unit.constant().isZero();
    const auto value = quotientOf(top, bottom, needsBase);
    return value ? EvaluationResult::decimal(*value) : divisionByZero();
  }
  if (auto result = quotientByRate(top, bottom)) return *result;
  return bottom.value.isZero() ? divisionByZero() : rateFrom(top, bottom);
}

EvaluationResult divided(const UnitRate& top, const UnitRate& bottom) {
  if (bottom.value.isZero()) return divisionByZero();
  if (top.ofUnit.has_value() == bottom.ofUnit.has_value()) {
    if (const auto converted = to(top, bottom); converted && !UnitRelations::ratesAreReciprocal(top, bottom)) {
      return EvaluationResult::decimal(converted->value / bottom.value);
    }
  }
  const auto turned = reciprocalOf(bottom);
  const auto product = turned
                           ? RateMultiplier::multiplied(top, *turned)
                           : RateMultiplier::multiplied(top, UnitExpression{Decimal(1) / bottom.value, bottom.perUnit});
  return product ? *product : EvaluationResult::error(EvaluationError::UnsupportedRate);
}

std::optional<EvaluationResult> resolved(const UnitRate& rate) {
  if (!rate.ofUnit) {
    if (rate.perUnit.unitType() != UnitType::frequency) return std::nullopt;
    const auto expression = equivalentUnitExpressionOf(rate);
    return expression ? std::optional(EvaluationResult::unitExpression(*expression)) : std::nullopt;
  }
  if (*rate.ofUnit == rate.perUnit) {
    if (const auto expression = synonymousUnitExpressionOf(rate)) return EvaluationResult::unitExpression(*expression);
  }
  if (UnitRelations::unitsCancel(*rate.ofUnit, rate.perUnit)) {
    if (const auto unit = UnitRelations::formRateInDivision(*rate.ofUnit, rate.perUnit)) {
      if (!unit->convertToBase) return EvaluationResult::unitRate({rate.value, std::nullopt, unit->unit});
      const UnitRate base{toBase(rate).value, std::nullopt, unit->unit};
      const auto preferred = unit->preferredFinalUnit ? to(base, *unit->preferredFinalUnit) : std::nullopt;
      return EvaluationResult::unitRate(preferred.value_or(base));
    }
  }
  if (rate.perUnit.unitType() == UnitType::duration || rate.ofUnit->identifier() == UnitIdentifier::pixel) {
    return std::nullopt;
  }
  const auto ratio = convertedTo({rate.value, *rate.ofUnit}, rate.perUnit);
  return ratio ? std::optional(EvaluationResult::decimal(ratio->value)) : std::nullopt;
}

}  // namespace tavrine
