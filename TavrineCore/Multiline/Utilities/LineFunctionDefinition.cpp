#include "TavrineCore/Multiline/Utilities/LineFunctionDefinition.h"

#include <utility>
#include <vector>

#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/EvaluationResultFormatter.h"
#include "TavrineCore/Parsing/Primitives/SubsheetList.h"

namespace tavrine {

LineFunctionDefinition::LineFunctionDefinition(FunctionDefiningLine line, CustomFunctionDefinitionUtility utility,
                                               std::shared_ptr<SubsheetList> subsheetList)
    : line_(std::move(line)), utility_(std::move(utility)), subsheetList_(std::move(subsheetList)) {}

/// What the line knows, and the values of its example under their symbols; null for a line that defines nothing.
std::shared_ptr<const VariableList> LineFunctionDefinition::variablesOfExample() const {
  const auto parameters = utility_.parametersIn(line_.expression);
  if (!parameters) return nullptr;
  std::vector<EvaluationResult> values;
  for (const CustomFunctionParameter& parameter : *parameters) {
    values.push_back(parameter.matchedToken.evaluationResult());
  }
  auto variables = line_.variableEnvironment ? line_.variableEnvironment->copy() : std::make_shared<VariableList>();
  CustomFunctionDefinitionUtility::setParameters(values, *variables);
  return variables;
}

CalculationResult LineFunctionDefinition::getResult() const {
  if (!line_.lineReference || subsheetList_ == nullptr) return EmptyResult();
  const std::shared_ptr<const VariableList> variables = variablesOfExample();
  if (variables == nullptr) return EmptyResult();
  const auto body = subsheetList_->evaluatedSubsheetWith(*line_.lineReference, *variables);
  if (!body || body->result == nullptr || body->result->isEmptyResult()) return EmptyResult();

  CalculationResult result = EvaluationResultFormatter(utility_.engineCustomization(), line_.formattingPreferences)
                                 .format(body->result->evaluationResult);
  result.parsedExpression = body->result->parsedExpression;
  return result;
}

}  // namespace tavrine
