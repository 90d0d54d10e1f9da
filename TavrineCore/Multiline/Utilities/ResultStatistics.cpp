#include "TavrineCore/Evaluation/ResultStatistics.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CommonMultiplesCalculator.h"
#include "TavrineCore/Multiline/Utilities/ResultsPairResolver.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using Results = std::span<const EvaluationResult>;

struct EvaluationResultMagnitude {
  EvaluationResult result;
  Decimal magnitude;

  friend bool operator<(const EvaluationResultMagnitude& left, const EvaluationResultMagnitude& right) {
    return left.magnitude < right.magnitude;
  }
};

bool isNone(const EvaluationResult& result) { return result.is(EvaluationResultCase::none); }

Decimal countOf(Results results) {
  return Decimal(static_cast<std::int64_t>(
      results.size() - static_cast<std::size_t>(std::count_if(results.begin(), results.end(), isNone))));
}

EvaluationResult totalOf(Results results) {
  EvaluationResult sum;
  for (const EvaluationResult& result : results) {
    if (!isNone(result)) sum = ResultsPairResolver::resultFor(sum, result);
  }
  return sum;
}

/// By the rules of a typed "sum / count".
EvaluationResult averageOf(Results results) {
  TokenList division;
  division.append(totalOf(results).tokenized());
  division.append(operatorToken(TokenSubType::divisionOperator, "/"));
  division.append(TokenFactory::numberWith(countOf(results)));
  return evaluate(division).evaluationResult();
}

/// The result that wins against all others; what can't be compared leaves the field to the one that leads.
EvaluationResult extremeOf(Results results, TokenSubType operation, std::string_view text) {
  const Token comparison = operatorToken(operation, text);
  EvaluationResult leader;
  for (const EvaluationResult& result : results) {
    EvaluationResult winner = evaluatedPair(leader.tokenized(), result.tokenized(), comparison).evaluationResult();
    if (!isNone(winner)) leader = std::move(winner);
  }
  return leader;
}

EvaluationResult medianOf(Results results) {
  std::vector<EvaluationResultMagnitude> sorted;
  for (const EvaluationResult& result : results) {
    if (const std::optional<Decimal> magnitude = result.decimalValue()) sorted.push_back({result, *magnitude});
  }
  if (sorted.empty()) return EvaluationResult::none();
  std::stable_sort(sorted.begin(), sorted.end());
  const std::size_t middle = sorted.size() / 2;
  if (sorted.size() % 2 == 1) return sorted[middle].result;
  const EvaluationResult centre[] = {sorted[middle - 1].result, sorted[middle].result};
  return averageOf(centre);
}

std::vector<Decimal> numbersOf(Results results) {
  std::vector<Decimal> numbers;
  for (const EvaluationResult& result : results) {
    if (const std::optional<Decimal> number = result.decimalValue()) numbers.push_back(*number);
  }
  return numbers;
}

EvaluationResult decimalOrNone(const std::optional<Decimal>& value) {
  return value ? EvaluationResult::decimal(*value) : EvaluationResult::none();
}

}  // namespace

EvaluationResult reduceTo(std::span<const EvaluationResult> results, StatisticType statisticType) {
  switch (statisticType) {
    case StatisticType::total:
      return totalOf(results);
    case StatisticType::average:
      return averageOf(results);
    case StatisticType::count:
      return EvaluationResult::decimal(countOf(results));
    case StatisticType::median:
      return medianOf(results);
    case StatisticType::lesser:
      return extremeOf(results, TokenSubType::lesserOf, "Lesser than");
    case StatisticType::greater:
      return extremeOf(results, TokenSubType::greaterOf, "Greater than");
    case StatisticType::lcm:
      return decimalOrNone(CommonMultiplesCalculator{numbersOf(results)}.lcm());
    case StatisticType::gcd:
      return decimalOrNone(CommonMultiplesCalculator{numbersOf(results)}.gcd());
  }
  return EvaluationResult::none();
}

}  // namespace tavrine
