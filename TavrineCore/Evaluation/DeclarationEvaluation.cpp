#include "TavrineCore/Evaluation/DeclarationEvaluation.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

using Assignment = VariableDeclarationTokenMetadata::VariableAssignmentOperatorType;

std::optional<Token> operatorOf(Assignment assignment) {
  switch (assignment) {
    case Assignment::vanilla:
      return std::nullopt;
    case Assignment::additive:
      return operatorToken(TokenSubType::additionOperator, "+");
    case Assignment::subtractive:
      return operatorToken(TokenSubType::subtractionOperator, "-");
    case Assignment::multiplicative:
      return operatorToken(TokenSubType::multiplicationOperator, "*");
    case Assignment::divizive:
      return operatorToken(TokenSubType::divisionOperator, "/");
  }
  return std::nullopt;
}

/// "x += 5" works on what x has been so far, if it has been anything.
EvaluationResult assigned(Assignment assignment, const EvaluationResult* earlier, EvaluationResult value) {
  const std::optional<Token> operation = operatorOf(assignment);
  if (!operation || earlier == nullptr) return value;
  return evaluatedPair(earlier->tokenized(), value.tokenized(), *operation).evaluationResult();
}

/// What was found of the name while it was read; null in tokens that declare nothing.
const Variable* nameIn(const TokenList& tokens) {
  const Token* name = tokens.firstTokenOfType(TokenType::declaredVariable);
  const auto* metadata = name != nullptr ? name->metadataAs<VariableTokenMetadata>() : nullptr;
  return metadata != nullptr ? &metadata->variable : nullptr;
}

Variable variableWith(const VariableDeclarationTokenMetadata& declaration, const Variable* name,
                      EvaluationResult definition) {
  Variable variable(declaration.variableName, declaration.variableValueString, Variable::VariableType::local);
  if (name != nullptr) variable.isPhrase = name->isPhrase;
  const auto& earlier = declaration.preExistingDefinition;
  variable.definition = std::make_shared<const EvaluationResult>(
      assigned(declaration.type, earlier ? earlier->definition.get() : nullptr, std::move(definition)));
  return variable;
}

/// A variable can hold a bare place, a zone or a bare unit, which no expression comes to.
EvaluationResult bareValueIn(const TokenList& tokens) {
  if (const Token* timezone = tokens.lastTokenOfType(TokenType::timezone)) {
    if (auto place = placeOfZone(*timezone)) return EvaluationResult::place(std::move(*place));
  }
  if (const Token* unit = tokens.lastTokenOfType(TokenType::unit)) {
    if (auto value = unit->unitValue()) return EvaluationResult::unit(std::move(*value));
  }
  return EvaluationResult::none();
}

Token declared(const VariableDeclarationTokenMetadata& declaration, const Variable* name, EvaluationResult definition) {
  if (definition.is(EvaluationResultCase::none) && declaration.supportsRawStringValues) {
    definition = EvaluationResult::rawString(declaration.variableValueString);
  }
  return TokenFactory::variable(variableWith(declaration, name, std::move(definition)));
}

struct AssignmentSign {
  std::string_view sign;
  Assignment type;
};
constexpr auto kAssignmentSigns = std::to_array<AssignmentSign>({
    {"+", Assignment::additive},
    {"-", Assignment::subtractive},
    {"−", Assignment::subtractive},
    {"*", Assignment::multiplicative},
    {"×", Assignment::multiplicative},
    {"/", Assignment::divizive},
    {"÷", Assignment::divizive},
});

/// The kind of the assignment in the tokens, which its text begins with: "=", "+=".
Assignment assignmentIn(const TokenList& tokens) {
  const Token* assignment = tokens.firstTokenOfType(TokenType::variableAssignmentOperator);
  if (assignment == nullptr) return Assignment::vanilla;
  for (const AssignmentSign& row : kAssignmentSigns) {
    if (assignment->stringValue.starts_with(row.sign)) return row.type;
  }
  return Assignment::vanilla;
}

/// "y = if …": all that is known of the variable is its name, and what it has been so far.
Token declared(const Token& declaredVariable, Assignment assignment, const Token& value) {
  const auto* metadata = declaredVariable.metadataAs<VariableTokenMetadata>();
  if (metadata == nullptr) return Token();
  Variable variable(metadata->variable.name, std::nullopt, Variable::VariableType::local);
  variable.isPhrase = metadata->variable.isPhrase;
  variable.definition = std::make_shared<const EvaluationResult>(
      assigned(assignment, metadata->variable.definition.get(), value.evaluationResult()));
  return TokenFactory::variable(variable);
}

}  // namespace

Token evaluateDeclaration(const Token& declaration) {
  if (!declaration.subtokens) return Token();
  const TokenList& tokens = *declaration.subtokens;
  const Token* assignment = tokens.firstTokenOfType(TokenType::variableAssignmentOperator);
  if (assignment == nullptr) return Token();

  if (const auto* variable = declaration.metadataAs<VariableDeclarationTokenMetadata>()) {
    const auto behind = static_cast<std::ptrdiff_t>(*tokens.indexOf(*assignment) + 1);
    const TokenList value(std::vector<Token>(tokens.begin() + behind, tokens.end()));
    EvaluationResult definition = evaluate(value).evaluationResult();
    if (definition.is(EvaluationResultCase::none)) definition = bareValueIn(tokens);
    return declared(*variable, nameIn(tokens), std::move(definition));
  }
  if (const auto* unit = declaration.metadataAs<UnitDeclarationTokenMetadata>()) {
    // "2 sprints = 4 weeks" answers what the sprints are worth, like a variable.
    return TokenFactory::unitExpressionWith(unit->equivalentUnitExpression.value, unit->equivalentUnitExpression.unit);
  }
  return Token();
}

Token evaluateConditionalDeclaration(const Token& declaration) {
  const auto* metadata = declaration.metadataAs<ConditionalVariableDeclarationTokenMetadata>();
  if (metadata == nullptr || !declaration.subtokens) return Token();
  const Token* conditional = declaration.subtokens->firstTokenOfType(TokenType::conditionalExpression);
  if (conditional == nullptr) return Token();
  if (metadata->variableDeclaration) {
    const Token& whole = *metadata->variableDeclaration;
    const auto* variable = whole.metadataAs<VariableDeclarationTokenMetadata>();
    if (variable == nullptr || !whole.subtokens) return Token();
    return declared(*variable, nameIn(*whole.subtokens), conditional->evaluated().evaluationResult());
  }
  if (!metadata->declaredVariable) return Token();
  return declared(*metadata->declaredVariable, assignmentIn(*declaration.subtokens), conditional->evaluated());
}

}  // namespace tavrine
