#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

/// Percentages count as fractions here: 20% is 0.2.
namespace tavrine::pairs {

namespace {

Token number(const Decimal& value) { return TokenFactory::numberWith(value); }
Token percentage(const Decimal& fraction) { return TokenFactory::percentageWith(fraction); }

/// "10 + 20%": the percentage is one of the number.
Answer numberFirst(const Decimal& n, const Decimal& p, TokenSubType operation) {
  switch (operation) {
    case TokenSubType::additionOperator:
      return number(n + n * p);
    case TokenSubType::subtractionOperator:
      return number(n - n * p);
    case TokenSubType::multiplicationOperator:
      return number(n * p);
    case TokenSubType::divisionOperator:
      if (p.isZero()) return errorToken(EvaluationError::DivideByZero);
      return number(n / p);
    default:
      return Token();
  }
}

/// "20% + 10": the number joins the percentage as a fraction.
Answer percentageFirst(const Decimal& p, const Decimal& n, TokenSubType operation) {
  switch (operation) {
    case TokenSubType::additionOperator:
      return percentage(p + n);
    case TokenSubType::subtractionOperator:
      return percentage(p - n);
    case TokenSubType::multiplicationOperator:
      return number(n * p);
    case TokenSubType::divisionOperator:
      if (n.isZero()) return errorToken(EvaluationError::DivideByZero);
      return percentage(p / n);
    case TokenSubType::reverseSubtractionOperator:
      return percentage(n - p);
    case TokenSubType::powerOperator:
      return number(TCDecimalPower(p, n));
    default:
      return Token();
  }
}

}  // namespace

bool salesTaxIsSecond(const PairOperands& operands) { return operands.secondToken.is(TokenType::salesTax); }

Answer decimalAndPercentagePair(const PairOperands& operands) {
  const Decimal first = operands.firstToken.decimalValue();
  const Decimal second = operands.secondToken.decimalValue();
  return operands.firstIs(TokenType::percentage) ? percentageFirst(first, second, operands.operation())
                                                 : numberFirst(first, second, operands.operation());
}

Answer percentagesPair(const PairOperands& operands) {
  const Decimal a = operands.firstToken.decimalValue();
  const Decimal b = operands.secondToken.decimalValue();
  switch (operands.operation()) {
    case TokenSubType::additionOperator:
      return percentage(a + b);
    case TokenSubType::subtractionOperator:
      return percentage(a - b);
    case TokenSubType::multiplicationOperator:
      return percentage(a * b);
    case TokenSubType::divisionOperator:
      if (b.isZero()) return errorToken(EvaluationError::DivideByZero);
      return number(a / b);
    case TokenSubType::reverseDivisionOperator:
      if (a.isZero()) return errorToken(EvaluationError::DivideByZero);
      return percentage(b / a);
    case TokenSubType::reverseSubtractionOperator:
      return percentage(b - a);
    default:
      break;
  }
  if (const auto truth = comparison(a, b, operands.operation())) return TokenFactory::booleanWith(*truth);
  return Token();
}

}  // namespace tavrine::pairs
