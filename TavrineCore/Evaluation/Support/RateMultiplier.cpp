#include "TavrineCore/Evaluation/Support/RateMultiplier.h"

#include "TavrineCore/Evaluation/Support/UnitProducts.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

bool isPerTime(const UnitRate& rate) { return !rate.ofUnit && rate.perUnit.unitType() == UnitType::duration; }

/// What stands below the stroke of `left` is what `right` counts.
std::optional<EvaluationResult> cancelled(const UnitRate& left, const UnitRate& right) {
  if (!right.ofUnit || left.perUnit != *right.ofUnit) return std::nullopt;
  const Decimal value = left.value * right.value;
  if (left.ofUnit == right.perUnit) return EvaluationResult::decimal(value);
  return EvaluationResult::unitRate({value, left.ofUnit, right.perUnit});
}

/// "5 kg / m² * 2 m" is 10 kg / m: the quantity takes a factor of the unit below the stroke.
std::optional<EvaluationResult> withFactorCancelled(const UnitRate& rate, const UnitExpression& expression) {
  if (!UnitRelations::unitsCancel(expression.unit, rate.perUnit)) return std::nullopt;
  const auto quotient = UnitRelations::formRateInDivision(expression.unit, rate.perUnit);
  if (!quotient) return std::nullopt;

  UnitRate product{rate.value * expression.value, rate.ofUnit, quotient->unit};
  if (quotient->convertToBase) {
    product.value = rate.value * valueInBaseUnit(expression) / baseUnitValueOf(rate.perUnit);
  }
  if (quotient->preferredFinalUnit) {
    if (const auto preferred = to(product, *quotient->preferredFinalUnit)) product = *preferred;
  }
  return EvaluationResult::unitRate(product);
}

/// "50 km / h * 2 km" is 100 km² / h.
std::optional<EvaluationResult> withProductAbove(const UnitRate& rate, const UnitExpression& expression) {
  if (!UnitRelations::productUnitFor(baseUnitOf(*rate.ofUnit), baseUnitOf(expression.unit))) return std::nullopt;
  const auto product = multiplied({rate.value, *rate.ofUnit}, expression).unitExpressionValue();
  if (!product || product->unit == rate.perUnit) return std::nullopt;
  return EvaluationResult::unitRate({product->value, product->unit, rate.perUnit});
}

}  // namespace

std::optional<EvaluationResult> RateMultiplier::multiplied(const UnitRate& rate1, const UnitRate& rate2) {
  if (auto result = cancelled(rate1, rate2)) return result;
  if (auto result = cancelled(rate2, rate1)) return result;
  if (rate2.ofUnit && areConvertible(rate1.perUnit, *rate2.ofUnit)) {
    const auto converted = to(rate1, UnitRate{1, rate1.ofUnit, *rate2.ofUnit});
    if (!converted) return std::nullopt;
    return EvaluationResult::unitRate({converted->value * rate2.value, rate1.ofUnit, rate2.perUnit});
  }
  if (isPerTime(rate1) && isPerTime(rate2)) return EvaluationResult::decimal(rate1.value * rate2.value);
  return std::nullopt;
}

std::optional<EvaluationResult> RateMultiplier::multiplied(const UnitRate& rate, const UnitExpression& expression) {
  if (areConvertible(rate.perUnit, expression.unit)) {
    const auto converted = convertedTo(expression, rate.perUnit);
    if (!converted) return std::nullopt;
    const Decimal value = rate.value * converted->value;
    if (!rate.ofUnit) return EvaluationResult::decimal(value);
    return EvaluationResult::unitExpression({value, *rate.ofUnit, true});
  }
  if (!rate.ofUnit && !rateValueOf(expression.unit)) {
    const UnitRate product{rate.value * expression.value, expression.unit, rate.perUnit};
    if (auto simpler = resolved(product)) return simpler;
    return EvaluationResult::unitRate(product);
  }
  if (auto result = withFactorCancelled(rate, expression)) return result;
  if (expression.unit.unitType() == UnitType::currency) {
    return EvaluationResult::unitExpression({expression.value * rate.value, expression.unit, true});
  }
  if (!rate.ofUnit) return std::nullopt;
  return withProductAbove(rate, expression);
}

}  // namespace tavrine
