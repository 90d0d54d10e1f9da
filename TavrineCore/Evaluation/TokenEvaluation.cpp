#include "TavrineCore/Evaluation/TokenEvaluation.h"

#include <array>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/DeclarationEvaluation.h"
#include "TavrineCore/Evaluation/EvaluationNode.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Functions/FunctionExpressionEvaluator.h"
#include "TavrineCore/Evaluation/Support/UnitProducts.h"
#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"
#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateType.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using TokenEvaluator = Token (*)(const Token&);

/// Whether the answer waits for the background, or will never come: what needs the value then shares its fate, since
/// taken for a number it would be 0.
bool isHeldUp(const Token& value) { return pendingOrFailureToken({&value, 1}) != nullptr; }

Token evaluateSubexpression(const Token& token) { return token.subtokens ? evaluate(*token.subtokens) : Token(); }

std::optional<Token> evaluatedClause(const std::optional<TokenList>& clause) {
  if (!clause) return std::nullopt;
  return evaluate(*clause);
}

Token evaluateConditional(const Token& token) {
  if (!token.subtokens) return Token();
  const std::optional<TokenList> condition = token.subtokens->ifClause();
  const Token* keyword = token.subtokens->firstTokenOfType(TokenType::conditionalKeyword);
  if (!condition || keyword == nullptr) return Token();

  const Token value = evaluate(*condition);
  if (isHeldUp(value)) return value;
  if (!value.is(TokenType::boolean)) return Token();
  const bool holds = value.subType == TokenSubType::true_;

  if (keyword->subType == TokenSubType::conditionalKeywordIf) {
    if (holds) return evaluatedClause(token.subtokens->thenClause()).value_or(value);
    return evaluatedClause(token.subtokens->elseClause()).value_or(TokenFactory::booleanWith(false));
  }
  if (keyword->subType == TokenSubType::conditionalKeywordUnless) {
    if (!holds) return TokenFactory::booleanWith(true);
    if (std::optional<Token> then = evaluatedClause(token.subtokens->thenClause())) return std::move(*then);
    return evaluatedClause(token.subtokens->elseClause()).value_or(TokenFactory::booleanWith(false));
  }
  return Token();
}

/// "5 ft 3 in" where it stands for a value, as in "half of 5 ft 3 in": 5.25 ft. The parts of "-5 ft 3 in" all count
/// down.
Token evaluateCompoundUnit(const Token& token) {
  if (!token.subtokens) return Token();
  const Token* first = token.subtokens->firstTokenOfType(TokenType::unitExpression);
  const bool isNegative = first != nullptr && first->unscaledDecimalValue().isSignMinus();
  const Token plus = operatorToken(TokenSubType::additionOperator, "+");
  std::optional<Token> total;
  for (std::size_t i = token.subtokens->count(); i-- > 0;) {
    const Token& part = (*token.subtokens)[i];
    if (!part.is(TokenType::unitExpression)) continue;
    const Token amount = isNegative && &part != first ? part.negated() : part;
    total = total ? evaluatedPair(*total, amount, plus) : amount;
  }
  return total.value_or(Token());
}

/// "sqrt(4)": the function gets the name and the evaluated argument.
Token evaluateFunctionExpression(const Token& token) {
  if (!token.subtokens) return Token();
  const Token* name = token.subtokens->firstTokenOfType(TokenType::functionName);
  if (name == nullptr) return Token();

  Token call = token;
  if (const Token* argument = token.subtokens->firstTokenOfType(TokenType::subexpression)) {
    Token value = argument->evaluated();
    if (isHeldUp(value)) return value;
    call.subtokens = TokenList::frozen(std::vector<Token>{*name, std::move(value)});
  }
  return FunctionExpressionEvaluator::evaluateFunction(call).value_or(Token());
}

Token evaluateHashtag(const Token& token) {
  const std::optional<Variable> variable = token.variable();
  return variable ? TokenFactory::variable(*variable) : Token();
}

/// "500 m / km" is plain 0.5, "5 / Hz" are 5 seconds; what is counted by time stays a rate.
Token evaluateRate(const Token& token) {
  const std::optional<RateType> rate = RateExtractor::from(token);
  if (const auto* ofUnits = rate ? std::get_if<UnitRate>(&*rate) : nullptr) {
    const std::optional<EvaluationResult> simpler = resolved(*ofUnits);
    return simpler ? simpler->tokenized() : token;
  }
  const auto* ofNumbers = rate ? std::get_if<DecimalRate>(&*rate) : nullptr;
  if (ofNumbers == nullptr || ofNumbers->perUnit.unitType() != UnitType::frequency) return token;
  // So many for each hertz are so many seconds.
  const std::optional<TCUnit> reciprocal = UnitRelations::reciprocalOf(baseUnitOf(ofNumbers->perUnit));
  if (!reciprocal) return token;
  return TokenFactory::unitExpressionWith(ofNumbers->value / baseUnitValueOf(ofNumbers->perUnit), *reciprocal,
                                          /*prefersCompoundFormatting=*/true);
}

Token evaluateRemoteQuery(const Token&) { return pendingToken(); }

struct TokenEvaluatorRow {
  TokenType type;
  /// Null while tokens of the type can't be worked out: they come to nothing.
  TokenEvaluator evaluate;
};

constexpr auto kTokenEvaluators = std::to_array<TokenEvaluatorRow>({
    {TokenType::subexpression, evaluateSubexpression},
    {TokenType::compoundUnitExpression, evaluateCompoundUnit},
    {TokenType::conditionalExpression, evaluateConditional},
    {TokenType::rate, evaluateRate},
    {TokenType::functionExpression, evaluateFunctionExpression},
    {TokenType::wordFunction, evaluateWordFunction},
    {TokenType::variableDeclaration, evaluateDeclaration},
    {TokenType::unitDeclaration, evaluateDeclaration},
    {TokenType::conditionalVariableDeclaration, evaluateConditionalDeclaration},
    {TokenType::hashtag, evaluateHashtag},
    {TokenType::remoteQuery, evaluateRemoteQuery},
});

}  // namespace

Token evaluate(const TokenList& list) {
  if (const auto tree = EvaluationTree::headNode(list)) return tree->evaluate();
  const Token* answer = nullptr;
  for (const Token& token : list) {
    if (token.is(TokenType::error)) return token;
  }
  for (const Token& token : list) {
    if (!TokenTypeSet::validAnswerProducingTypes.contains(token.type)) continue;
    if (answer != nullptr) return Token();
    answer = &token;
  }
  return answer != nullptr ? answer->evaluated() : Token();
}

const Token* pendingOrFailureToken(std::span<const Token> tokens) {
  for (const Token& token : tokens) {
    if (token.is(TokenType::pending) || token.is(TokenType::failed)) return &token;
    if (!token.is(TokenType::list) || !token.subtokens) continue;
    if (const Token* member = pendingOrFailureToken(token.subtokens->tokens())) return member;
  }
  return nullptr;
}

Token Token::evaluated() const {
  if (evaluatesToItself(*this)) return *this;
  for (const TokenEvaluatorRow& row : kTokenEvaluators) {
    if (row.type == type) return row.evaluate != nullptr ? row.evaluate(*this) : Token();
  }
  return *this;
}

}  // namespace tavrine
