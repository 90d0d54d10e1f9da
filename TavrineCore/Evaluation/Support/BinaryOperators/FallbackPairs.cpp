#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/ResultStatistics.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

/// The pairs for operands that take anything beside them, and the end of the walk.
namespace tavrine::pairs {

namespace {

bool isMinus(const Token& token) { return token.subType == TokenSubType::subtractionOperator; }

}  // namespace

/// An operand that is itself a sign, left over from "3 + - 4": the two signs act together on the other operand.
Answer operatorAndAnythingPair(const PairOperands& operands) {
  if (operands.operation() == TokenSubType::powerOperator) return std::nullopt;
  const Token& other = operands.operandBesides(TokenType::operator_);
  const bool isNegative = isMinus(operands.operandOf(TokenType::operator_)) != isMinus(operands.operatorToken);
  return isNegative ? other.negated() : other;
}

/// Adding to a list adds to its total.
Answer listAndAnything(const PairOperands& operands) {
  if (operands.operation() != TokenSubType::additionOperator) return errorToken(EvaluationError::Other);
  const EvaluationResult result = operands.operandOf(TokenType::list).evaluationResult();
  const List* list = result.as<EvaluationResultCase::list>();
  if (list == nullptr) return Token();

  std::vector<EvaluationResult> members;
  if (list->members) members = *list->members;
  members.push_back(operands.operandBesides(TokenType::list).evaluationResult());
  return reduceTo(members, StatisticType::total).tokenized();
}

Answer nothingAndAnythingPair(const PairOperands& operands) {
  return isBlank(operands.firstToken) ? operands.secondToken : operands.firstToken;
}

Answer errorAndAnything(const PairOperands& operands) { return operands.operandOf(TokenType::error); }

Answer pendingAndAnything(const PairOperands& operands) { return operands.operandOf(TokenType::pending); }

Answer failedAndAnything(const PairOperands& operands) { return operands.operandOf(TokenType::failed); }

Answer unhandledPair(const PairOperands& operands) {
  const Token& first = operands.firstToken;
  const Token& second = operands.secondToken;
  // "today + 5": nothing joins a date and a plain number, and the number is what can be calculated on with.
  if (first.is(TokenType::datestamp) && !TokenTypeSet::nonMeaningfulTypes.contains(second.type)) return second;
  if (second.is(TokenType::datestamp) && !TokenTypeSet::nonMeaningfulTypes.contains(first.type)) return first;

  if (first.is(TokenType::unit) && second.is(TokenType::unit)) {
    return errorToken(operands.operation() == TokenSubType::multiplicationOperator
                          ? EvaluationError::UnsupportedUnitMultiplication
                          : EvaluationError::UnitMismatch);
  }
  return errorToken(EvaluationError::Other);
}

}  // namespace tavrine::pairs
