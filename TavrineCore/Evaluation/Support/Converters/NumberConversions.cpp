#include <optional>

#include "Foundation/Calendar.h"
#include "Foundation/DateComponents.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::conversions {

namespace {

Token inBase(const ConverterOperands& operands, TokenType base) {
  return *tokenInBase(base, unsignedWhole(operands.operand.decimalValue()));
}

}  // namespace

Token intoNumber(const ConverterOperands& operands) {
  return TokenFactory::numberWith(operands.operand.decimalValue());
}

Token intoFraction(const ConverterOperands& operands) {
  Fraction fraction{operands.operand.decimalValue(), std::nullopt};
  if (operands.operand.is(TokenType::unitExpression)) fraction.unitValue = operands.operand.unitValue();
  return TokenFactory::fractionWith(fraction);
}

Token intoScientificNotation(const ConverterOperands& operands) {
  return TokenFactory::scientificNotationWith(operands.operand.decimalValue());
}

Token intoPercent(const ConverterOperands& operands) {
  return TokenFactory::percentageWith(operands.operand.decimalValue());
}

Token applyingPercent(const ConverterOperands& operands) {
  return TokenFactory::percentageWith(operands.operand.decimalValue() / Decimal(100));
}

Token intoMultiplier(const ConverterOperands& operands) {
  return TokenFactory::multiplierWith(operands.operand.decimalValue());
}

Token intoBinary(const ConverterOperands& operands) { return inBase(operands, TokenType::binaryNumber); }

Token intoOctal(const ConverterOperands& operands) { return inBase(operands, TokenType::octalNumber); }

Token intoHex(const ConverterOperands& operands) { return inBase(operands, TokenType::hexadecimalNumber); }

}  // namespace tavrine::conversions
