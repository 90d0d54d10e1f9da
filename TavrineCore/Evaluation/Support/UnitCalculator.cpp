#include "TavrineCore/Evaluation/Support/UnitCalculator.h"

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/Support/RateMultiplier.h"
#include "TavrineCore/Evaluation/Support/UnitPowers.h"
#include "TavrineCore/Evaluation/Support/UnitProducts.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

namespace tavrine {

namespace {

using Answer = std::optional<EvaluationResult>;
using Case = UnitCalculation::Case;

EvaluationResult failure(EvaluationError error) { return EvaluationResult::error(error); }

Answer asExpression(const std::optional<UnitExpression>& expression) {
  return expression ? Answer(EvaluationResult::unitExpression(*expression)) : std::nullopt;
}

Answer asRate(const std::optional<UnitRate>& rate) {
  return rate ? Answer(EvaluationResult::unitRate(*rate)) : std::nullopt;
}

// --- Quantities -----------------------------------------------------------------------------------------------------

Answer conversion(const UnitExpression& from, const TCUnit& toUnit) {
  if (auto converted = asExpression(to(from, toUnit))) return converted;
  const auto rate = rateOf(from);
  return rate ? asRate(to(*rate, toUnit)) : std::nullopt;
}

Answer unitToRateConversion(const UnitExpression& from, const UnitRate& toRate) {
  const auto rate = rateOf(from);
  return rate ? asRate(to(*rate, toRate)) : std::nullopt;
}

/// Turns have no dimension: a product that is measured in them is a plain number.
EvaluationResult product(const UnitExpression& first, const UnitExpression& second) {
  const EvaluationResult result = multiplied(first, second);
  const auto expression = result.unitExpressionValue();
  const bool isCycles = expression && expression->unit.identifier() == UnitIdentifier::cycles;
  return isCycles ? EvaluationResult::decimal(expression->value) : result;
}

/// Nothing for quantities that can't be compared.
Answer lesserOrGreater(const UnitExpression& first, const UnitExpression& second, bool wantsLesser) {
  const std::partial_ordering order = compareQuantities(second, first);
  if (order == std::partial_ordering::unordered) return std::nullopt;
  const bool isSecondChosen = wantsLesser ? order < 0 : order > 0;
  return EvaluationResult::unitExpression(isSecondChosen ? second : first);
}

Answer comparison(Case kind, const UnitExpression& first, const UnitExpression& second) {
  if (!haveEqualBaseUnits(first.unit, second.unit)) return std::nullopt;
  const std::partial_ordering order = compareQuantities(first, second);
  switch (kind) {
    case Case::unitsGreaterThan:
      return EvaluationResult::boolean(order > 0);
    case Case::unitsGreaterThanOrEqualTo:
      return EvaluationResult::boolean(order >= 0);
    case Case::unitsLessThan:
      return EvaluationResult::boolean(order < 0);
    case Case::unitsLessThanOrEqualTo:
      return EvaluationResult::boolean(order <= 0);
    case Case::unitsEqual:
      return EvaluationResult::boolean(order == 0);
    default:
      return EvaluationResult::boolean(order != 0);
  }
}

Answer modulus(const UnitExpression& first, const UnitExpression& second) {
  if (first.unit != second.unit) return std::nullopt;
  if (second.value.isZero()) return failure(EvaluationError::DivideByZero);
  return EvaluationResult::unitExpression({DDDecimalMod(first.value, second.value), first.unit, true});
}

/// The quantity as a duration on the calendar; nothing for one that is better told in its unit.
std::optional<Timespan> formedTimespan(const UnitExpression& expression) {
  const bool formsTimespan = UnitCalculator::timespanFormingUnits.contains(expression.unit.identifier());
  return formsTimespan ? timespanOf(expression) : std::nullopt;
}

/// "3 hours + 20 minutes" is a timespan; "3 hours + 2 hours" stays 5 hours.
std::optional<Timespan> timespanOfSum(const UnitExpression& result, const UnitExpression& left,
                                      const UnitExpression& right) {
  if (left.unit.identifier() == right.unit.identifier()) return std::nullopt;
  return formedTimespan(result);
}

Answer unitSum(const UnitExpression& first, const UnitExpression& second, UnitSum operation) {
  const auto sum = operation == UnitSum::addition ? first + second : first - second;
  if (!sum) return std::nullopt;
  if (const auto timespan = timespanOfSum(*sum, first, second)) {
    return EvaluationResult::timespan(*timespan);
  }
  return asExpression(sum);
}

EvaluationResult unitDivision(const UnitExpression& unit, const Decimal& divisor) {
  if (divisor.isZero()) return failure(EvaluationError::DivideByZero);
  const UnitExpression quotient{unit.value / divisor, unit.unit, true};
  if (const auto timespan = formedTimespan(quotient)) return EvaluationResult::timespan(*timespan);
  return EvaluationResult::unitExpression(quotient);
}

EvaluationResult decimalByUnitDivision(const Decimal& decimal, const UnitExpression& unit) {
  if (unit.value.isZero()) return failure(EvaluationError::DivideByZero);
  return EvaluationResult::unitRate({decimal / unit.value, std::nullopt, unit.unit});
}

// --- Rates ----------------------------------------------------------------------------------------------------------

EvaluationResult withValue(const UnitRate& rate, const Decimal& value) {
  return EvaluationResult::unitRate({value, rate.ofUnit, rate.perUnit});
}

enum class Order { unitFirst, rateFirst };

/// The rate counts as a quantity where its units divide to one ("10 km / 2 h" is 5 km/h), or else the quantity as a
/// rate.
EvaluationResult sum(const UnitExpression& unit, const UnitRate& rate, UnitSum operation, Order order) {
  const auto sumOf = [&](const auto& a, const auto& b) { return operation == UnitSum::addition ? a + b : a - b; };
  const auto ordered = [&](const auto& a, const auto& b) {
    return order == Order::unitFirst ? sumOf(a, b) : sumOf(b, a);
  };

  const auto quotient = rate.ofUnit ? UnitRelations::divisionUnitFor(*rate.ofUnit, rate.perUnit) : std::nullopt;
  if (quotient && haveEqualBaseUnits(*quotient, unit.unit)) {
    if (auto result = asExpression(ordered(unit, UnitExpression{rate.value, *quotient}))) return *result;
  } else if (const auto unitAsRate = rateOf(unit)) {
    if (auto result = asRate(ordered(*unitAsRate, rate))) return *result;
  }
  return failure(EvaluationError::UnitMismatch);
}

EvaluationResult rateByUnit(const UnitRate& rate, const UnitExpression& expression) {
  if (const auto second = rateOf(expression)) {
    if (auto result = RateMultiplier::multiplied(rate, *second)) return *result;
  }
  const auto result = RateMultiplier::multiplied(rate, expression);
  return result ? *result : failure(EvaluationError::UnsupportedUnitMultiplication);
}

/// "$40 / ($2 / hour)" is 20 hours. Nothing where the rate counts another kind of unit: no unit is left for "5 km /
/// ($10 / hour)".
Answer unitByRate(const UnitExpression& expression, const UnitRate& rate) {
  if (rate.value.isZero()) return failure(EvaluationError::DivideByZero);
  if (rate.ofUnit) {
    const EvaluationResult times = divided(expression, {rate.value, *rate.ofUnit});
    if (const auto* count = times.as<EvaluationResultCase::decimal>()) {
      return EvaluationResult::unitExpression({*count, rate.perUnit, true});
    }
  }
  // "60 km/h / (2 km / min)": a quantity that is a rate by itself, and of the same kind, leaves a plain number.
  if (const auto asRate = rateOf(expression)) {
    const EvaluationResult ratio = divided(*asRate, rate);
    if (ratio.is(EvaluationResultCase::decimal)) return ratio;
  }
  if (rate.ofUnit) return std::nullopt;
  const Decimal value = expression.value / rate.value;
  if (const auto ratio = ratioOf(expression.unit, rate.perUnit)) return EvaluationResult::decimal(value * *ratio);
  return EvaluationResult::unitRate({value, expression.unit, rate.perUnit});
}

EvaluationResult rateByRate(const UnitRate& rate1, const UnitRate& rate2) {
  if (auto result = RateMultiplier::multiplied(rate1, rate2)) return *result;
  if (const auto expression = equivalentUnitExpressionOf(rate2)) {
    if (auto result = RateMultiplier::multiplied(rate1, *expression)) return *result;
  }
  // The units below the first stroke convert to those above the second; "8 hours/day * $20/min" has it the other way.
  if (auto result = RateMultiplier::multiplied(rate2, rate1)) return *result;
  return failure(EvaluationError::UnsupportedUnitMultiplication);
}

// --- The cases ------------------------------------------------------------------------------------------------------

bool hasNoSize(const UnitCalculation::Operand& operand) {
  const auto* expression = std::get_if<UnitExpression>(&operand);
  return expression != nullptr && expression->unit.coefficient().isZero();
}

/// A value that is no number came of a unit without a size, such as money whose rate is unknown, or left the range.
Answer checked(Answer result, const UnitCalculation& calculation) {
  if (!result) return result;
  const std::optional<Decimal> value = result->decimalValue();
  if (!value || !value->isNaN()) return result;
  const bool dividedBySize = hasNoSize(calculation.first) || hasNoSize(calculation.second);
  return failure(dividedBySize ? EvaluationError::DivideByZero : EvaluationError::Infinity);
}

Answer perform(const UnitCalculation& calculation) {
  const auto expression = [](const UnitCalculation::Operand& operand) -> const UnitExpression& {
    return std::get<UnitExpression>(operand);
  };
  const auto rate = [](const UnitCalculation::Operand& operand) -> const UnitRate& {
    return std::get<UnitRate>(operand);
  };
  const auto decimal = [](const UnitCalculation::Operand& operand) -> const Decimal& {
    return std::get<Decimal>(operand);
  };
  const UnitCalculation::Operand& a = calculation.first;
  const UnitCalculation::Operand& b = calculation.second;
  switch (calculation.kind) {
    case Case::conversion:
      return conversion(expression(a), std::get<TCUnit>(b));
    case Case::unitToRateConversion:
      return unitToRateConversion(expression(a), rate(b));
    case Case::unitsAddition:
      return unitSum(expression(a), expression(b), UnitSum::addition);
    case Case::unitsSubtraction:
      return unitSum(expression(a), expression(b), UnitSum::subtraction);
    case Case::unitsMultiplication:
      return product(expression(a), expression(b));
    case Case::unitsDivision:
      return divided(expression(a), expression(b));
    case Case::unitToPower:
      return toPower(expression(a), decimal(b));
    case Case::unitsMin:
      return lesserOrGreater(expression(a), expression(b), true);
    case Case::unitsMax:
      return lesserOrGreater(expression(a), expression(b), false);
    case Case::unitsGreaterThan:
    case Case::unitsGreaterThanOrEqualTo:
    case Case::unitsLessThan:
    case Case::unitsLessThanOrEqualTo:
    case Case::unitsEqual:
    case Case::unitsDontEqual:
      return comparison(calculation.kind, expression(a), expression(b));
    case Case::unitsMod:
      return modulus(expression(a), expression(b));
    case Case::unitMultiplication:
      return EvaluationResult::unitExpression({expression(a).value * decimal(b), expression(a).unit, true});
    case Case::unitDivision:
      return unitDivision(expression(a), decimal(b));
    case Case::decimalByUnitDivision:
      return decimalByUnitDivision(decimal(a), expression(b));
    case Case::rateAddition:
      return withValue(rate(a), rate(a).value + decimal(b));
    case Case::rateSubtraction:
      return withValue(rate(a), rate(a).value - decimal(b));
    case Case::rateMultiplication:
      return withValue(rate(a), rate(a).value * decimal(b));
    case Case::rateDivision:
      if (decimal(b).isZero()) return failure(EvaluationError::DivideByZero);
      return withValue(rate(a), rate(a).value / decimal(b));
    case Case::rateToPower:
      return toPower(rate(a), decimal(b));
    case Case::unitAndRateAddition:
      return sum(expression(a), rate(b), UnitSum::addition, Order::unitFirst);
    case Case::unitAndRateSubtraction:
      return sum(expression(a), rate(b), UnitSum::subtraction, Order::unitFirst);
    case Case::rateAndUnitSubtraction:
      return sum(expression(b), rate(a), UnitSum::subtraction, Order::rateFirst);
    case Case::rateByUnitMultiplication:
      return rateByUnit(rate(a), expression(b));
    case Case::unitByRateDivision:
      return unitByRate(expression(a), rate(b));
    case Case::rateByRateAddition:
      return asRate(rate(a) + rate(b));
    case Case::rateByRateSubtraction:
      return asRate(rate(a) - rate(b));
    case Case::rateByRateMultiplication:
      return rateByRate(rate(a), rate(b));
    case Case::rateByRateDivision:
      return divided(rate(a), rate(b));
  }
  return std::nullopt;
}

}  // namespace

std::optional<EvaluationResult> UnitCalculator::performUnitCalculation(const UnitCalculation& calculation) {
  return checked(perform(calculation), calculation);
}

}  // namespace tavrine
