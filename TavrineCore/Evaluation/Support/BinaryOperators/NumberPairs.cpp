#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

namespace {

Token number(const Decimal& value) { return TokenFactory::numberWith(value); }

Answer quotient(const Decimal& dividend, const Decimal& divisor) {
  if (divisor.isZero()) return errorToken(EvaluationError::DivideByZero);
  return number(dividend / divisor);
}

Answer modulus(const Decimal& dividend, const Decimal& divisor) {
  if (dividend.magnitude() > largestPreciseNonDarwinDecimal) return errorToken(EvaluationError::ImpreciseResult);
  return number(DDDecimalMod(dividend, divisor));
}

/// The operation on the bits of the two whole numbers, as a plain number again.
Answer bitwise(const Decimal& first, const Decimal& second, const Token& operator_) {
  const Token left = TokenFactory::binaryWith(unsignedWhole(first));
  const Token right = TokenFactory::binaryWith(unsignedWhole(second));
  const Answer result = binaryPair({left, right, operator_});
  if (!result) return Token();
  return number(result->decimalValue());
}

Answer logical(const PairOperands& operands) {
  const Token first = TokenFactory::booleanWith(isTrue(operands.firstToken));
  const Token second = TokenFactory::booleanWith(isTrue(operands.secondToken));
  return booleanPair({first, second, operands.operatorToken});
}

/// Both operands as numbers through `decimalPair`, and the result as a multiplier again.
Answer asMultiplier(const PairOperands& operands) {
  Answer result =
      calculated(operands.firstToken.decimalValue(), operands.secondToken.decimalValue(), operands.operatorToken);
  // A number that is none stays one, since only so it reads as the error that it is.
  if (!result || !result->is(TokenType::number) || result->errorValue()) return result;
  return TokenFactory::multiplierWith(result->decimalValue());
}

}  // namespace

bool bothCarryNumbers(const PairOperands& operands) {
  return operands.firstToken.metadataAs<NumberTokenMetadata>() != nullptr &&
         operands.secondToken.metadataAs<NumberTokenMetadata>() != nullptr;
}

Answer decimalPair(const PairOperands& operands) {
  const Decimal a = operands.firstToken.decimalValue();
  const Decimal b = operands.secondToken.decimalValue();
  switch (operands.operation()) {
    case TokenSubType::additionOperator:
      return number(a + b);
    case TokenSubType::subtractionOperator:
      return number(a - b);
    case TokenSubType::multiplicationOperator:
      return number(a * b);
    case TokenSubType::divisionOperator:
      return quotient(a, b);
    case TokenSubType::reverseDivisionOperator:
      return quotient(b, a);
    case TokenSubType::reverseSubtractionOperator:
      return number(b - a);
    case TokenSubType::powerOperator:
      return number(TCDecimalPower(a, b));
    case TokenSubType::modOperator:
      return modulus(a, b);
    case TokenSubType::lesserOf:
      return b < a ? operands.secondToken : operands.firstToken;
    case TokenSubType::greaterOf:
      return a < b ? operands.secondToken : operands.firstToken;
    case TokenSubType::logicalAndOperator:
    case TokenSubType::logicalOrOperator:
      return logical(operands);
    case TokenSubType::bitwiseAndOperator:
    case TokenSubType::bitwiseOrOperator:
    case TokenSubType::bitwiseXorOperator:
    case TokenSubType::bitwiseLeftShiftOperator:
    case TokenSubType::bitwiseRightShiftOperator:
      return bitwise(a, b, operands.operatorToken);
    default:
      break;
  }
  if (const auto truth = comparison(a, b, operands.operation())) return TokenFactory::booleanWith(*truth);
  return Token();
}

Answer calculated(const Decimal& first, const Decimal& second, const Token& operator_) {
  const Token left = number(first);
  const Token right = number(second);
  return decimalPair({left, right, operator_});
}

Answer multipliersPair(const PairOperands& operands) { return asMultiplier(operands); }

Answer decimalAndMultiplierPair(const PairOperands& operands) { return asMultiplier(operands); }

Answer decimalAndFractionPair(const PairOperands& operands) {
  return calculated(operands.firstToken.decimalValue(), operands.secondToken.decimalValue(), operands.operatorToken);
}

}  // namespace tavrine::pairs
