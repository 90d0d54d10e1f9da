#include "TavrineCore/Multiline/Utilities/ResultsPairResolver.h"

#include <array>
#include <optional>
#include <variant>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

namespace {

using Case = EvaluationResultCase;
/// Nothing where the results can't be added.
using Sum = std::optional<EvaluationResult>;

constexpr TokenTypeSet kAllowedTypes{TokenType::number,         TokenType::fraction,  TokenType::percentage,
                                     TokenType::unitExpression, TokenType::rate,      TokenType::timespan,
                                     TokenType::laptime,        TokenType::frametime, TokenType::datestamp};

EvaluationResult added(const Token& left, const Token& right) {
  return evaluatedPair(left, right, operatorToken(TokenSubType::additionOperator, "+")).evaluationResult();
}

Sum decimals(const EvaluationResult& left, const EvaluationResult& right) {
  return EvaluationResult::decimal(*left.as<Case::decimal>() + *right.as<Case::decimal>());
}

Sum percentages(const EvaluationResult& left, const EvaluationResult& right) {
  return EvaluationResult::percentage(
      Percentage{left.as<Case::percentage>()->decimalValue + right.as<Case::percentage>()->decimalValue});
}

Sum fractions(const EvaluationResult& left, const EvaluationResult& right) {
  const Fraction& first = *left.as<Case::fraction>();
  const Fraction& second = *right.as<Case::fraction>();
  Fraction sum{first.decimalValue + second.decimalValue, std::nullopt};
  if (first.unitValue == second.unitValue) sum.unitValue = first.unitValue;
  return EvaluationResult::fraction(sum);
}

/// 10 kg and 5 km: the later one. 3 hours and 20 minutes make a timespan.
Sum unitExpressions(const EvaluationResult& left, const EvaluationResult& right) {
  Sum sum = UnitCalculator::performUnitCalculation(
      UnitCalculation::unitsAddition(*left.as<Case::unitExpression>(), *right.as<Case::unitExpression>()));
  return sum && !sum->is(Case::error) ? sum : right;
}

Sum rates(const EvaluationResult& left, const EvaluationResult& right) {
  EvaluationResult sum = added(left.tokenized(), right.tokenized());
  return sum.equivalentTokenType() == TokenType::rate ? sum : EvaluationResult::none();
}

Sum percentageRates(const EvaluationResult& left, const EvaluationResult& right) {
  const auto sum = *left.as<Case::percentageRate>() + *right.as<Case::percentageRate>();
  return sum ? Sum(EvaluationResult::percentageRate(*sum)) : std::nullopt;
}

/// Times of day add up; of other dates what lies between them is told.
Sum dates(const EvaluationResult& left, const EvaluationResult& right) {
  const Datestamp& first = *left.datestampValue();
  const Datestamp& second = *right.datestampValue();
  if (first.type == DatestampType::clockTime && second.type == DatestampType::clockTime) {
    return EvaluationResult::timespan(first + second);
  }
  const DatestampDifference difference = first - second;
  const auto* timespan = std::get_if<Timespan>(&difference);
  return timespan != nullptr ? EvaluationResult::timespan(*timespan) : EvaluationResult::none();
}

Sum timespans(const EvaluationResult& left, const EvaluationResult& right) {
  return EvaluationResult::timespan(summed(*left.timespanValue(), *right.timespanValue(), UnitSum::addition));
}

/// Stopwatch readings and time codes, among themselves and with durations.
Sum readings(const EvaluationResult& left, const EvaluationResult& right) {
  EvaluationResult sum = added(left.tokenized(), right.tokenized());
  if (!sum.is(Case::laptime) && !sum.is(Case::frametime)) return std::nullopt;
  return sum;
}

using Addition = Sum (*)(const EvaluationResult& left, const EvaluationResult& right);

struct SameCaseRow {
  Case kind;
  Addition add;
};

constexpr auto kSameCase = std::to_array<SameCaseRow>({
    {Case::decimal, decimals},
    {Case::percentage, percentages},
    {Case::fraction, fractions},
    {Case::unitExpression, unitExpressions},
    {Case::decimalRate, rates},
    {Case::unitRate, rates},
    {Case::percentageRate, percentageRates},
    {Case::date, dates},
    {Case::timespan, timespans},
    {Case::laptime, readings},
    {Case::frametime, readings},
});

/// 5 and $10: the number counts as dollars.
Sum numberAndUnitExpression(const EvaluationResult& left, const EvaluationResult& right) {
  const bool numberIsLeft = left.equivalentTokenType() == TokenType::number;
  const std::optional<Decimal> number = (numberIsLeft ? left : right).decimalValue();
  const std::optional<UnitExpression> expression = (numberIsLeft ? right : left).unitExpressionValue();
  if (!number || !expression) return std::nullopt;
  EvaluationResult sum = added(
      TokenFactory::numberWith(*number),
      TokenFactory::unitExpressionWith(expression->value, expression->unit, expression->prefersCompoundUnitFormatting));
  if (!sum.is(Case::unitExpression)) return std::nullopt;
  return sum;
}

Sum fractionAndNumber(const EvaluationResult& left, const EvaluationResult& right) {
  const std::optional<Decimal> first = left.decimalValue();
  const std::optional<Decimal> second = right.decimalValue();
  if (!first || !second) return std::nullopt;
  return EvaluationResult::fraction(Fraction{*first + *second, std::nullopt});
}

/// The parts of a duration that are there.
DateComponents withoutZeros(const DateComponents& components) {
  DateComponents result;
  for (const Calendar::Component component : orderedTavrineSupportedComponents) {
    const auto value = valueOf(components, component);
    if (value.value_or(0) != 0) setValueOf(result, component, value);
  }
  return result;
}

Sum timespanAndUnitExpression(const EvaluationResult& left, const EvaluationResult& right) {
  const bool timespanIsLeft = left.is(Case::timespan);
  const std::optional<UnitExpression> expression = (timespanIsLeft ? right : left).unitExpressionValue();
  if (!expression || !measuresTime(expression->unit)) return std::nullopt;
  const Timespan& timespan = *(timespanIsLeft ? left : right).timespanValue();
  const Timespan other{withoutZeros(dateComponentsIn(*expression, true, timespanCalendarComponets)), std::nullopt};
  return EvaluationResult::timespan(timespanIsLeft ? summed(timespan, other, UnitSum::addition)
                                                   : summed(other, timespan, UnitSum::addition));
}

Sum timespanAndDatestamp(const EvaluationResult& left, const EvaluationResult& right) {
  const bool timespanIsLeft = left.is(Case::timespan);
  const auto timeOfDay = timespanOf(*(timespanIsLeft ? right : left).datestampValue());
  if (!timeOfDay) return EvaluationResult::none();
  const Timespan& timespan = *(timespanIsLeft ? left : right).timespanValue();
  return EvaluationResult::timespan(summed(timespan, *timeOfDay, UnitSum::addition));
}

Sum unitExpressionAndDatestamp(const EvaluationResult& left, const EvaluationResult& right) {
  return left.is(Case::unitExpression) ? left : right;
}

struct MixedRow {
  TokenType first;
  TokenType second;
  Addition add;
};

constexpr auto kMixedSets = std::to_array<MixedRow>({
    {TokenType::number, TokenType::unitExpression, numberAndUnitExpression},
    {TokenType::timespan, TokenType::laptime, readings},
    {TokenType::fraction, TokenType::number, fractionAndNumber},
    {TokenType::timespan, TokenType::unitExpression, timespanAndUnitExpression},
    {TokenType::laptime, TokenType::unitExpression, readings},
    {TokenType::timespan, TokenType::datestamp, timespanAndDatestamp},
    {TokenType::timespan, TokenType::frametime, readings},
    {TokenType::unitExpression, TokenType::datestamp, unitExpressionAndDatestamp},
});

Sum sumOfSameCase(const EvaluationResult& left, const EvaluationResult& right) {
  for (const SameCaseRow& row : kSameCase) {
    if (row.kind == left.kind()) return row.add(left, right);
  }
  return std::nullopt;
}

Sum sumOfMixed(const EvaluationResult& left, const EvaluationResult& right) {
  const TokenType first = left.equivalentTokenType();
  const TokenType second = right.equivalentTokenType();
  for (const MixedRow& row : kMixedSets) {
    const bool fits = (row.first == first && row.second == second) || (row.first == second && row.second == first);
    if (!fits) continue;
    if (Sum sum = row.add(left, right)) return sum;
  }
  return std::nullopt;
}

/// Whether the result counts in a total. Of dates only times of day do.
bool isAllowed(const EvaluationResult& result) {
  if (!kAllowedTypes.contains(result.equivalentTokenType())) return false;
  const Datestamp* datestamp = result.datestampValue();
  return datestamp == nullptr || datestamp->type == DatestampType::clockTime;
}

EvaluationResult valueOf(const EvaluationResult& result) {
  const Variable* variable = result.variableValue();
  if (variable == nullptr) return result;
  return variable->definition ? *variable->definition : EvaluationResult::none();
}

}  // namespace

EvaluationResult ResultsPairResolver::resultFor(const EvaluationResult& leftSide, const EvaluationResult& rightSide) {
  const EvaluationResult left = valueOf(leftSide);
  const EvaluationResult right = valueOf(rightSide);
  if (left.kind() == right.kind()) {
    if (Sum sum = sumOfSameCase(left, right)) return *std::move(sum);
  }
  if (Sum sum = sumOfMixed(left, right)) return *std::move(sum);
  if (isAllowed(right)) return right;
  return isAllowed(left) ? left : EvaluationResult::none();
}

}  // namespace tavrine
