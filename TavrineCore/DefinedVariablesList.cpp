#include "TavrineCore/DefinedVariablesList.h"

#include <string>
#include <utility>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Lexing/StringLexing.h"

namespace tavrine {

namespace {

Calculator& sharedCalculator() {
  // Never destroyed: a thread may still calculate while the process ends.
  static Calculator& calculator = *Calculator::basic().release();
  return calculator;
}

}  // namespace

std::shared_ptr<VariableList> makeDefinedVariablesList(std::vector<Variable> variables) {
  auto list = std::make_shared<VariableList>();
  for (Variable& variable : variables) {
    if (!variable.isPhrase) variable.isPhrase = isPhrase(variable.name);
    list->setVariable(std::move(variable));
  }
  list->provideDefinitionsForValuesWith([](const std::string& value) {
    return std::make_shared<const EvaluationResult>(sharedCalculator().calculate(value).evaluationResult);
  });
  return list;
}

}  // namespace tavrine
