#include "TavrineCore/Evaluation/Support/UnitPowers.h"

#include <optional>

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/Support/UnitProducts.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

constexpr int kHighestPower = 3;

EvaluationResult error(EvaluationError error) { return EvaluationResult::error(error); }

EvaluationResult quantity(const Decimal& value, const TCUnit& unit) {
  return EvaluationResult::unitExpression({value, unit, true});
}

EvaluationResult cubed(const UnitExpression& expression) {
  const EvaluationResult square = multiplied(expression, expression);
  const auto area = square.unitExpressionValue();
  return area ? multiplied(*area, expression) : square;
}

EvaluationResult turnedOver(const UnitExpression& expression) {
  if (expression.value.isZero()) return error(EvaluationError::DivideByZero);
  if (const auto rate = rateOf(expression)) {
    if (const auto reciprocal = reciprocalOf(*rate)) return EvaluationResult::unitRate(*reciprocal);
    // So many for each hertz are hertz, turned over.
    if (!rate->ofUnit) return quantity(Decimal(1) / rate->value, rate->perUnit);
  }
  return EvaluationResult::unitRate({Decimal(1) / expression.value, std::nullopt, expression.unit});
}

/// `power` is whole.
EvaluationResult toWholePower(const UnitExpression& expression, const Decimal& power) {
  if (power > kHighestPower) return error(EvaluationError::UnsupportedUnitMultiplication);
  if (power == 3) return cubed(expression);
  if (power == 2) return multiplied(expression, expression);
  if (power == 1) return EvaluationResult::unitExpression(expression);
  if (power.isZero()) return EvaluationResult::decimal(1);
  if (power == -1) return turnedOver(expression);

  const EvaluationResult positive = toPower(expression, power.negated());
  const auto denominator = positive.unitExpressionValue();
  if (!denominator) return positive;
  if (denominator->value.isZero()) return error(EvaluationError::DivideByZero);
  return EvaluationResult::unitRate({Decimal(1) / denominator->value, std::nullopt, denominator->unit});
}

/// The unit that a root of an area or of a volume is measured in.
std::optional<TCUnit> rootUnitOf(const TCUnit& unit, UnitType kind) {
  if (unit.unitType() != kind) return std::nullopt;
  return kind == UnitType::area ? UnitRelations::squareRootUnitFor(unit) : UnitRelations::cubeRootUnitFor(unit);
}

/// `power` is not whole. Roots are drawn as roots: they end where a power by a rounded fraction doesn't.
EvaluationResult toFractionalPower(const UnitExpression& expression, const Decimal& power) {
  static const Decimal third = Decimal(1) / Decimal(3);
  static const Decimal twoThirds = Decimal(2) / Decimal(3);
  static const Decimal half = Decimal(1) / Decimal(2);
  if (power < 0 || power >= 1) return quantity(TCDecimalPower(expression.value, power), expression.unit);

  if (power == third || power == twoThirds) {
    const auto unit = rootUnitOf(expression.unit, UnitType::volume);
    if (!unit) return error(EvaluationError::UnsupportedExponentOperation);
    const UnitExpression root{DDDecimalNthRoot(expression.value, 3), *unit, true};
    return power == third ? EvaluationResult::unitExpression(root) : multiplied(root, root);
  }
  const auto unit = power == half ? rootUnitOf(expression.unit, UnitType::area) : std::nullopt;
  if (!unit) return error(EvaluationError::UnsupportedExponentOperation);
  if (expression.value < 0) return error(EvaluationError::ImaginaryNumber);
  return quantity(DDDecimalSqrt(expression.value), *unit);
}

}  // namespace

EvaluationResult toPower(const UnitExpression& expression, const Decimal& power) {
  return power.isWhole() ? toWholePower(expression, power) : toFractionalPower(expression, power);
}

EvaluationResult toPower(const UnitRate& rate, const Decimal& power) {
  const Decimal n = power.rounded(0, RoundingMode::plain);
  if (n == 1) return EvaluationResult::unitRate(rate);
  if (n.isZero()) return EvaluationResult::decimal(1);
  if (n > 1) return error(EvaluationError::UnsupportedRate);
  if (rate.ofUnit && n < -1) return error(EvaluationError::UnsupportedUnitMultiplication);
  if (rate.value.isZero()) return error(EvaluationError::DivideByZero);
  if (rate.ofUnit) return EvaluationResult::unitRate({Decimal(1) / rate.value, rate.perUnit, *rate.ofUnit});
  if (n == -1) return quantity(Decimal(1) / rate.value, rate.perUnit);

  const auto positive = toPower(UnitExpression{rate.value, rate.perUnit}, n.negated()).unitExpressionValue();
  if (!positive) return error(EvaluationError::UnsupportedUnitMultiplication);
  return quantity(Decimal(1) / positive->value, positive->unit);
}

}  // namespace tavrine
