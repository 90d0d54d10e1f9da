#include "TavrineCore/Multiline/Utilities/CustomFunctionDefinitionUtility.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "TavrineCore/Customization/Variables/SingleCharacterUIDGenerator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

namespace {

using Symbols = SingleCharacterUIDGenerator;

/// A phrase has placeholders for these, but in a definition they are the words between its values: "to", "average".
constexpr TokenTypeSet kWordTypes{TokenType::converterSymbol, TokenType::statisticType, TokenType::anyWord};
constexpr TokenTypeSet kUnitTypes{TokenType::unit, TokenType::unitExpression};

/// The call that the definition is of its own function.
std::optional<std::vector<CustomFunctionArgument>> argumentsOfExample(std::string_view definition,
                                                                      EngineCustomization customization,
                                                                      const CustomFunction& function) {
  std::vector<CustomFunction> functions = customization.customFunctions();
  functions.insert(functions.begin(), function);
  customization.setCustomFunctions(std::move(functions));
  const TokenList tokens = Parser(std::move(customization)).tokensFor(definition, VariableList());
  const auto isCall = [&function](const Token& token) {
    const auto* call = token.metadataAs<CustomFunctionTokenMetadata>();
    return call != nullptr && call->customFunction == function;
  };
  const auto call = std::find_if(tokens.begin(), tokens.end(), isCall);
  if (call == tokens.end()) return std::nullopt;
  return CustomFunctionSubstitutionUtility::functionArgumentsFor(*call);
}

CustomFunction functionWith(std::string prototype, CustomFunction::Handler handler) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = std::move(prototype);
  fields.handler = std::move(handler);
  return CustomFunction(std::move(fields));
}

}  // namespace

CustomFunctionDefinitionUtility::CustomFunctionDefinitionUtility(EngineCustomization customization,
                                                                 std::shared_ptr<const FunctionBodies> bodies)
    : engineCustomization_(std::move(customization)), bodies_(std::move(bodies)) {}

PrototypeExpressionMatchType CustomFunctionDefinitionUtility::prototypeExpressionMatchHandler(const Token& token) {
  if (kUnitTypes.contains(token.type)) return PrototypeExpressionMatchType::byUnitType;
  const bool isValue = PrototypeTypePlaceholders::placeholderFor(token.type) && !kWordTypes.contains(token.type);
  return isValue ? PrototypeExpressionMatchType::byType : PrototypeExpressionMatchType::literally;
}

std::optional<std::string> CustomFunctionDefinitionUtility::prototypeOf(std::string_view customFunctionDefinition) {
  const auto handler = [](const Token& token) { return prototypeExpressionMatchHandler(token); };
  return PrototypeExpressionGenerator::validCustomFunctionPrototypeStringFrom(customFunctionDefinition, handler);
}

std::optional<std::vector<CustomFunctionParameter>> CustomFunctionDefinitionUtility::parametersIn(
    std::string_view customFunctionDefinition) const {
  std::optional<std::string> prototype = prototypeOf(customFunctionDefinition);
  if (!prototype) return std::nullopt;
  const auto answer = [](const std::vector<EvaluationResult>&) { return EvaluationResult::none(); };
  auto arguments =
      argumentsOfExample(customFunctionDefinition, engineCustomization_, functionWith(*std::move(prototype), answer));
  if (!arguments) return std::nullopt;

  std::vector<CustomFunctionParameter> parameters;
  for (std::size_t i = 0; i < std::min(arguments->size(), Symbols::maximumParameterIndex); ++i) {
    Subsheet subsheet;
    subsheet.lineSheet = bodies_->sheetWith(parameterSheetMarker);
    subsheet.identifier = LineReference{Symbols::parameterSymbol(i + 1)};
    parameters.push_back({std::move(subsheet), std::move((*arguments)[i].matchedToken)});
  }
  return parameters;
}

std::optional<CustomFunction> CustomFunctionDefinitionUtility::customFunctionFrom(
    std::string_view customFunctionDefinition, std::shared_ptr<const LineSheet> implementationBody) const {
  std::optional<std::string> prototype = prototypeOf(customFunctionDefinition);
  if (!prototype || implementationBody == nullptr) return std::nullopt;
  const auto answer = [utility = *this,
                       body = std::move(implementationBody)](const std::vector<EvaluationResult>& arguments) {
    const auto variables = std::make_shared<VariableList>();
    setParameters(arguments, *variables);
    const auto result = utility.bodies_->lastResultOf(*body, utility.engineCustomization_, variables);
    return result ? result->evaluationResult : EvaluationResult::none();
  };
  return functionWith(*std::move(prototype), answer);
}

void CustomFunctionDefinitionUtility::setParameters(std::span<const EvaluationResult> values, VariableList& variables) {
  for (std::size_t i = 0; i < std::min(values.size(), Symbols::maximumParameterIndex); ++i) {
    Variable variable(Symbols::parameterSymbol(i + 1), std::nullopt, Variable::VariableType::local);
    variable.definition = std::make_shared<const EvaluationResult>(values[i]);
    variables.setVariable(std::move(variable));
  }
}

}  // namespace tavrine
