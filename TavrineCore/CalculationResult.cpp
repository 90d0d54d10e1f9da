#include "TavrineCore/CalculationResult.h"

#include <algorithm>

#include "Foundation/Hashing.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

/// Whether the result is of the case, or a variable whose value is.
bool comesTo(const EvaluationResult& result, Case resultCase) {
  if (const Variable* variable = result.variableValue())
    return variable->definition && variable->definition->is(resultCase);
  return result.is(resultCase);
}

}  // namespace

bool CalculationResult::isPendingResult() const { return comesTo(evaluationResult, Case::pending); }

bool CalculationResult::isFailedResult() const { return comesTo(evaluationResult, Case::failed); }

bool CalculationResult::isEmptyResult() const {
  if (const EvaluationError* error = evaluationResult.as<Case::error>()) return *error == EvaluationError::SilentError;
  return stringValue.empty() && comesTo(evaluationResult, Case::none);
}

std::size_t CalculationResult::hash() const {
  std::size_t hash = hashOf(stringValue, evaluationResult);
  if (parsedExpression == nullptr) return hash;
  // Not the list's own hash: it looks into subtokens, which equality doesn't.
  for (const Token& token : *parsedExpression) hash = hashCombine(hash, hashOf(token.type, token.stringValue));
  return hash;
}

bool operator==(const CalculationResult& left, const CalculationResult& right) {
  if (left.stringValue != right.stringValue || left.evaluationResult != right.evaluationResult) return false;
  if (left.parsedExpression == right.parsedExpression) return true;
  return left.parsedExpression != nullptr && right.parsedExpression != nullptr &&
         std::ranges::equal(left.parsedExpression->tokens(), right.parsedExpression->tokens());
}

const CalculationResult& EmptyResult() {
  static const CalculationResult empty;
  return empty;
}

}  // namespace tavrine
