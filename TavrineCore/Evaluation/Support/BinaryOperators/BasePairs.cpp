#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

namespace {

constexpr std::uint64_t kMostBits = 63;

bool isBitwise(TokenSubType operation) {
  switch (operation) {
    case TokenSubType::bitwiseAndOperator:
    case TokenSubType::bitwiseOrOperator:
    case TokenSubType::bitwiseXorOperator:
    case TokenSubType::bitwiseLeftShiftOperator:
    case TokenSubType::bitwiseRightShiftOperator:
      return true;
    default:
      return false;
  }
}

bool isSum(TokenSubType operation) {
  return operation == TokenSubType::additionOperator || operation == TokenSubType::subtractionOperator;
}

Decimal wholePart(const Decimal& value) { return value.rounded(0, RoundingMode::plain); }

/// Whether 64 bits without sign can hold the value.
bool fits(const Decimal& value) {
  return !value.isNaN() && !value.isSignMinus() && value <= Decimal(std::uint64_t{0xFFFFFFFFFFFFFFFF});
}

/// A calculated number in the base; as it stands where a base can't show it (negative, fractional, too large), and
/// where it is no number (an error, the answer to a comparison).
Answer rebased(Answer result, TokenType base) {
  if (!result || !result->is(TokenType::number)) return result;
  const Decimal value = result->decimalValue();
  if (!fits(value) || !value.isWhole()) return result;
  return tokenInBase(base, value.uint64Value());
}

/// The same, rounded first.
Answer roundedAndRebased(Answer result, TokenType base) {
  if (!result || !result->is(TokenType::number)) return result;
  const Decimal value = wholePart(result->decimalValue());
  if (!fits(value)) return TokenFactory::numberWith(value);
  return tokenInBase(base, value.uint64Value());
}

Answer asPlainNumber(Answer result) {
  if (!result || !isInBase(*result)) return result;
  return TokenFactory::numberWith(result->decimalValue());
}

Answer calculatedInBase(const PairOperands& operands, TokenType base) {
  return rebased(
      calculated(operands.firstToken.decimalValue(), operands.secondToken.decimalValue(), operands.operatorToken),
      base);
}

/// A plain number beside a number in a base that has no operations of its own on bits.
Answer decimalAndBase(const PairOperands& operands, TokenType base) {
  Answer result = rebased(calculated(wholePart(operands.firstToken.decimalValue()),
                                     wholePart(operands.secondToken.decimalValue()), operands.operatorToken),
                          base);
  if (operands.firstIs(base) || isSum(operands.operation())) {
    return isInBase(*result) ? result : roundedAndRebased(std::move(result), base);
  }
  return asPlainNumber(std::move(result));
}

}  // namespace

Answer binaryPair(const PairOperands& operands) {
  const TokenSubType operation = operands.operation();
  if (!isBitwise(operation) && operation != TokenSubType::powerOperator) {
    return calculatedInBase(operands, TokenType::binaryNumber);
  }
  const std::uint64_t a = operands.firstToken.binaryValue().value_or(0);
  const std::uint64_t b = operands.secondToken.binaryValue().value_or(0);
  switch (operation) {
    case TokenSubType::bitwiseAndOperator:
      return TokenFactory::binaryWith(a & b);
    case TokenSubType::bitwiseOrOperator:
      return TokenFactory::binaryWith(a | b);
    case TokenSubType::bitwiseLeftShiftOperator:
      return TokenFactory::binaryWith(b > kMostBits ? 0 : a << b);
    case TokenSubType::bitwiseRightShiftOperator:
      return TokenFactory::binaryWith(b > kMostBits ? 0 : a >> b);
    default:  // "^" between binary numbers is the exclusive or, not a power
      return TokenFactory::binaryWith(a ^ b);
  }
}

Answer hexPair(const PairOperands& operands) { return calculatedInBase(operands, TokenType::hexadecimalNumber); }

Answer octalPair(const PairOperands& operands) { return calculatedInBase(operands, TokenType::octalNumber); }

Answer differentBasesPair(const PairOperands& operands) { return calculatedInBase(operands, operands.firstToken.type); }

Answer decimalAndBinaryPair(const PairOperands& operands) {
  const TokenSubType operation = operands.operation();
  const Decimal a = operands.firstToken.decimalValue();
  const Decimal b = operands.secondToken.decimalValue();
  if (isSum(operation)) return roundedAndRebased(calculated(a, b, operands.operatorToken), TokenType::binaryNumber);

  Answer result;
  if (isBitwise(operation) || operation == TokenSubType::powerOperator) {
    const Token left = TokenFactory::binaryWith(unsignedWhole(a));
    const Token right = TokenFactory::binaryWith(unsignedWhole(b));
    result = binaryPair({left, right, operands.operatorToken});
  } else {
    result = calculated(a, b, operands.operatorToken);
  }
  return operands.firstIs(TokenType::binaryNumber) ? rebased(std::move(result), TokenType::binaryNumber)
                                                   : asPlainNumber(std::move(result));
}

Answer decimalAndHexPair(const PairOperands& operands) {
  return decimalAndBase(operands, TokenType::hexadecimalNumber);
}

Answer decimalAndOctalPair(const PairOperands& operands) { return decimalAndBase(operands, TokenType::octalNumber); }

}  // namespace tavrine::pairs
