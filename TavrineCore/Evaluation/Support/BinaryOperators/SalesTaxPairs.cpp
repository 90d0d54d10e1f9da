#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::pairs {

/// Adding a tax is adding its percentage; taking it off again divides by one and the tax, since the number then
/// already holds it.
Answer decimalAndSalesTaxPair(const PairOperands& operands) {
  const auto tax = operands.secondToken.salesTaxValue();
  if (!tax) return Token();
  if (operands.operation() == TokenSubType::subtractionOperator) {
    const Decimal divisor = Decimal(1) + tax->decimalValue;
    if (divisor.isZero()) return errorToken(EvaluationError::DivideByZero);
    return TokenFactory::numberWith(operands.firstToken.decimalValue() / divisor);
  }
  const Token percentage = TokenFactory::percentageWith(tax->decimalValue);
  return decimalAndPercentagePair({operands.firstToken, percentage, operands.operatorToken});
}

}  // namespace tavrine::pairs
