#include "TavrineCore/Multiline/Utilities/ResultsPairResolver.h"

#include <array>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
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

using Addition = Sum (*)(const EvaluationResult& left, const EvaluationResult& right);

struct SameCaseRow {
  Case kind;
  /// Null while values of the kind can't be added: the later one stays.
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
    {Case::date, nullptr},
    {Case::timespan, nullptr},
    {Case::laptime, nullptr},
    {Case::frametime, nullptr},
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

Sum unitExpressionAndDatestamp(const EvaluationResult& left, const EvaluationResult& right) {
  return left.is(Case::unitExpression) ? left : right;
}

struct MixedRow {
  TokenType first;
  TokenType second;
  /// Null while the two can't be added.
  Addition add;
};

constexpr auto kMixedSets = std::to_array<MixedRow>({
    {TokenType::number, TokenType::unitExpression, numberAndUnitExpression},
    {TokenType::timespan, TokenType::laptime, nullptr},
    {TokenType::fraction, TokenType::number, fractionAndNumber},
    {TokenType::timespan, TokenType::unitExpression, nullptr},
    {TokenType::laptime, TokenType::unitExpression, nullptr},
    {TokenType::timespan, TokenType::datestamp, nullptr},
    {TokenType::timespan, TokenType::frametime, nullptr},
    {TokenType::unitExpression, TokenType::datestamp, unitExpressionAndDatestamp},
});

Sum sumOfSameCase(const EvaluationResult& left, const EvaluationResult& right) {
  for (const SameCaseRow& row : kSameCase) {
    if (row.kind == left.kind()) return row.add != nullptr ? row.add(left, right) : std::nullopt;
  }
  return std::nullopt;
}

Sum sumOfMixed(const EvaluationResult& left, const EvaluationResult& right) {
  const TokenType first = left.equivalentTokenType();
  const TokenType second = right.equivalentTokenType();
  for (const MixedRow& row : kMixedSets) {
    const bool fits = (row.first == first && row.second == second) || (row.first == second && row.second == first);
    if (!fits || row.add == nullptr) continue;
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
