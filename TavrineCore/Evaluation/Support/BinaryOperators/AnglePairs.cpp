#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

Answer dmsPair(const PairOperands& operands) {
  const auto first = operands.firstToken.dmsValue();
  const auto second = operands.secondToken.dmsValue();
  const TokenSubType operation = operands.operation();
  if (operation != TokenSubType::additionOperator && operation != TokenSubType::subtractionOperator) {
    return std::nullopt;
  }
  if (!first || !second) return errorToken(EvaluationError::Other);
  return TokenFactory::dmsWith(operation == TokenSubType::additionOperator ? *first + *second : *first - *second);
}

}  // namespace tavrine::pairs
