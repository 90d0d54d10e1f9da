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
using Arguments = std::span<const Token>;
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

std::optional<Results> resultsOfTag(Arguments arguments) {
  const std::optional<Variable> tag = arguments.size() == 1 ? arguments[0].variable() : std::nullopt;
  return tag ? resultsForStatistic(*tag) : std::nullopt;
}

/// Those of the list, or the values that stand one by one: "max(3, 5)".
std::optional<Results> members(Arguments arguments) {
  if (arguments.empty()) return std::nullopt;
  const EvaluationResult first = arguments[0].evaluationResult();
  if (const List* list = first.as<EvaluationResultCase::list>()) return list->members ? *list->members : Results();
  Results results;
  for (const Token& argument : arguments) results.push_back(argument.evaluationResult());
  return results;
}

Answer evaluateStatisticalFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  if (arguments.empty()) return std::nullopt;
  const std::optional<StatisticType> statistic = arguments[0].statisticType();
  const Arguments values = arguments.subspan(1);
  const std::optional<Results> results = identifier == statisticOfTag ? resultsOfTag(values) : members(values);
  if (!statistic || !results) return std::nullopt;
  EvaluationResult result = reduceTo(*results, *statistic);
  if (result.is(EvaluationResultCase::none)) return std::nullopt;
  return result;
}

}  // namespace

constinit const WordFunctionHandler kStatisticalFunctionHandler{kHandled, evaluateStatisticalFunction};

}  // namespace tavrine
