#include <string>
#include <string_view>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

namespace {

Token literal(std::string text) { return Token(TokenType::literal, std::move(text), NSRange::zero); }

}  // namespace

Answer booleanPair(const PairOperands& operands) {
  const bool first = operands.firstToken.subType == TokenSubType::true_;
  const bool second = operands.secondToken.subType == TokenSubType::true_;
  switch (operands.operation()) {
    case TokenSubType::equalTo:
      return TokenFactory::booleanWith(first == second);
    case TokenSubType::notEqualTo:
      return TokenFactory::booleanWith(first != second);
    case TokenSubType::logicalAndOperator:
      return TokenFactory::booleanWith(first && second);
    case TokenSubType::logicalOrOperator:
      return TokenFactory::booleanWith(first || second);
    default:
      return std::nullopt;
  }
}

Answer decimalAndBooleanPair(const PairOperands& operands) {
  const TokenSubType operation = operands.operation();
  // A boolean has no number, but it has a truth: only the logical operators ask for it.
  if (operation == TokenSubType::logicalAndOperator || operation == TokenSubType::logicalOrOperator) {
    return decimalPair(operands);
  }
  return calculated(operands.firstToken.decimalValue(), operands.secondToken.decimalValue(), operands.operatorToken);
}

Answer literalPair(const PairOperands& operands) {
  const std::string& a = operands.firstToken.stringValue;
  const std::string& b = operands.secondToken.stringValue;
  switch (operands.operation()) {
    case TokenSubType::additionOperator:
      return literal(a + b);
    case TokenSubType::bitwiseAndOperator:
      return literal(std::string(trimmed(a)) + " " + std::string(trimmed(b)));
    case TokenSubType::lesserOf:
      return literal(b < a ? b : a);
    case TokenSubType::greaterOf:
      return literal(a < b ? b : a);
    default:
      break;
  }
  if (const auto truth = comparison(a, b, operands.operation())) return TokenFactory::booleanWith(*truth);
  return std::nullopt;
}

}  // namespace tavrine::pairs
