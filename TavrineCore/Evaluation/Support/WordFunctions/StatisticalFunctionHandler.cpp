// "average of 3, 5 and 9", "total of #food": one figure for many.

#include <optional>
#include <span>
#include <vector>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/ResultStatistics.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Answer = std::optional<EvaluationResult>;
using Results = std::vector<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{statisticOfList, statisticOfTag};

/// What the lines of the tag came to. Durations add up as quantities, so that their total keeps one unit.
std::optional<Results> resultsForStatistic(const Variable& variable) {
  if (variable.representedResults == nullptr) return std::nullopt;
  Results results = *variable.representedResults;
  for (EvaluationResult& result : results) {
    if (!result.is(EvaluationResultCase::timespan)) continue;
    if (auto quantity = result.tokenized().unitExpressionValue()) {
      result = EvaluationResult::unitExpression(*std::move(quantity));
    }
  }
  return results;
}

std::optional<Results> membersOf(FunctionIdentifier identifier, const Token& token) {
  if (identifier == statisticOfTag) {
    const std::optional<Variable> tag = token.variable();
    return tag ? resultsForStatistic(*tag) : std::nullopt;
  }
  const EvaluationResult result = token.evaluationResult();
  const List* list = result.as<EvaluationResultCase::list>();
  if (list == nullptr) return std::nullopt;
  return list->members ? *list->members : Results();
}

Answer evaluateStatisticalFunction(FunctionIdentifier identifier, std::span<const Token> arguments,
                                   const EngineCustomization&) {
  if (arguments.size() != 2) return std::nullopt;
  const std::optional<StatisticType> statistic = arguments[0].statisticType();
  const std::optional<Results> members = membersOf(identifier, arguments[1]);
  if (!statistic || !members) return std::nullopt;
  EvaluationResult result = reduceTo(*members, *statistic);
  if (result.is(EvaluationResultCase::none)) return std::nullopt;
  return result;
}

}  // namespace

constinit const WordFunctionHandler kStatisticalFunctionHandler{kHandled, evaluateStatisticalFunction};

}  // namespace tavrine
