#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

namespace {

/// Adding a tax is adding its percentage; taking it off again divides by one and the tax, since the value then already
/// holds it. `amount` stands where the value stood.
Answer taxed(const Decimal& amount, const SalesTax& tax, const Token& operation, bool isAmountFirst) {
  if (operation.subType == TokenSubType::subtractionOperator) {
    const Decimal divisor = Decimal(1) + tax.decimalValue;
    if (divisor.isZero()) return errorToken(EvaluationError::DivideByZero);
    return TokenFactory::numberWith(amount / divisor);
  }
  const Token number = TokenFactory::numberWith(amount);
  const Token percentage = TokenFactory::percentageWith(tax.decimalValue);
  return isAmountFirst ? decimalAndPercentagePair({number, percentage, operation})
                       : decimalAndPercentagePair({percentage, number, operation});
}

}  // namespace

Answer decimalAndSalesTaxPair(const PairOperands& operands) {
  const auto tax = operands.secondToken.salesTaxValue();
  if (!tax) return Token();
  return taxed(operands.firstToken.decimalValue(), *tax, operands.operatorToken, true);
}

Answer unitExpressionAndSalesTaxPair(const PairOperands& operands) {
  const auto tax = operands.operandOf(TokenType::salesTax).salesTaxValue();
  const Token& expression = operands.operandBesides(TokenType::salesTax);
  if (!tax) return Token();
  return likeOperand(expression, taxed(unscaledValueOf(expression), *tax, operands.operatorToken,
                                       operands.firstIs(TokenType::unitExpression)));
}

}  // namespace tavrine::pairs
