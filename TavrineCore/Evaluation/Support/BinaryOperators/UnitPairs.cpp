#include <memory>
#include <utility>

#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

/// Quantities among themselves, with plain numbers, with percentages and with bare units.
namespace tavrine::pairs {

namespace {

using Sub = TokenSubType;

std::optional<UnitCalculation> unitCalculationFor(Sub operation, const UnitExpression& first,
                                                  const UnitExpression& second) {
  switch (operation) {
    case Sub::additionOperator:
      return UnitCalculation::unitsAddition(first, second);
    case Sub::subtractionOperator:
      return UnitCalculation::unitsSubtraction(first, second);
    case Sub::multiplicationOperator:
      return UnitCalculation::unitsMultiplication(first, second);
    case Sub::divisionOperator:
      return UnitCalculation::unitsDivision(first, second);
    case Sub::reverseDivisionOperator:
      return UnitCalculation::unitsDivision(second, first);
    case Sub::reverseSubtractionOperator:
      return UnitCalculation::unitsSubtraction(second, first);
    case Sub::modOperator:
      return UnitCalculation::unitsMod(first, second);
    case Sub::lesserOf:
      return UnitCalculation::unitsMin(first, second);
    case Sub::greaterOf:
      return UnitCalculation::unitsMax(first, second);
    case Sub::greaterThan:
      return UnitCalculation::unitsGreaterThan(first, second);
    case Sub::greaterThanOrEqualTo:
      return UnitCalculation::unitsGreaterThanOrEqualTo(first, second);
    case Sub::lessThan:
      return UnitCalculation::unitsLessThan(first, second);
    case Sub::lessThanOrEqualTo:
      return UnitCalculation::unitsLessThanOrEqualTo(first, second);
    case Sub::equalTo:
      return UnitCalculation::unitsEqual(first, second);
    case Sub::notEqualTo:
      return UnitCalculation::unitsDontEqual(first, second);
    default:
      return std::nullopt;
  }
}

/// "$10 + 5": the number is taken for a quantity in the unit beside it.
Answer summedAsUnits(const PairOperands& operands) {
  const Token& expression = operands.operandOf(TokenType::unitExpression);
  const Token& number = operands.operandBesides(TokenType::unitExpression);
  const auto* metadata = expression.metadataAs<UnitExpressionTokenMetadata>();
  if (metadata == nullptr) return Token();
  const auto* value = number.metadataAs<NumberTokenMetadata>();
  const Token friendly = TokenFactory::unitExpressionWith(
      value != nullptr ? value->decimalValue : number.decimalValue(), value != nullptr ? value->scalar : std::nullopt,
      metadata->unitMetaData.underlyingTCUnit, metadata->prefersCompoundFormatting);
  if (operands.firstIs(TokenType::unitExpression))
    return unitExpressionsPair({expression, friendly, operands.operatorToken});
  return unitExpressionsPair({friendly, expression, operands.operatorToken});
}

Answer dividedNumberAndUnit(const PairOperands& operands, const UnitExpression& expression, const Decimal& number) {
  // Nothing divided by a quantity has no answer either: there would be nothing for each of it.
  if (number.isZero()) return errorToken(EvaluationError::DivideByZero);
  if (operands.firstIs(TokenType::unitExpression)) return calculated(UnitCalculation::unitDivision(expression, number));
  if (expression.value.isZero()) return errorToken(EvaluationError::DivideByZero);
  return TokenFactory::rateWith(
             std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{number / expression.value, expression.unit}))
      .evaluated();
}

}  // namespace

UnitExpression quantityOf(const Token& token) {
  UnitExpression expression = token.unitExpressionValue().value_or(UnitExpression{});
  if (const auto scaled = token.ownDecimalValue()) expression.value = *scaled;
  return expression;
}

Decimal unscaledValueOf(const Token& expression) {
  const auto* metadata = expression.metadataAs<UnitExpressionTokenMetadata>();
  return metadata != nullptr ? metadata->numericValue.decimalValue : expression.decimalValue();
}

Answer likeOperand(const Token& expression, Answer result) {
  const auto* metadata = expression.metadataAs<UnitExpressionTokenMetadata>();
  const bool isNumber = result && result->metadataAs<NumberTokenMetadata>() != nullptr && !result->errorValue();
  if (metadata == nullptr || !isNumber) return result;
  return TokenFactory::unitExpressionWith(result->decimalValue(), metadata->numericValue.scalar,
                                          metadata->unitMetaData.underlyingTCUnit, metadata->prefersCompoundFormatting);
}

Answer calculated(const UnitCalculation& calculation) {
  const auto result = UnitCalculator::performUnitCalculation(calculation);
  return result ? result->tokenized() : Token();
}

Answer unitExpressionsPair(const PairOperands& operands) {
  const UnitExpression first = quantityOf(operands.firstToken);
  const UnitExpression second = quantityOf(operands.secondToken);
  if (const auto calculation = unitCalculationFor(operands.operation(), first, second)) {
    if (const auto result = UnitCalculator::performUnitCalculation(*calculation)) return result->tokenized();
  }
  if (first.unit == second.unit || UnitRelations::mayGenerouslyConisiderUnitsToBeEquivalent(first.unit, second.unit)) {
    return Token();
  }
  return errorToken(EvaluationError::UnitMismatch);
}

Answer decimalAndUnitExpressionPair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::unitExpression);
  const UnitExpression expression = quantityOf(token);
  const Decimal number = operands.operandBesides(TokenType::unitExpression).decimalValue();
  const bool isUnitFirst = operands.firstIs(TokenType::unitExpression);
  switch (operands.operation()) {
    case Sub::additionOperator:
    case Sub::subtractionOperator:
    case Sub::reverseSubtractionOperator:
      return summedAsUnits(operands);
    case Sub::multiplicationOperator:
      return calculated(UnitCalculation::unitMultiplication(expression, number));
    case Sub::divisionOperator:
      return dividedNumberAndUnit(operands, expression, number);
    case Sub::reverseDivisionOperator:
      return Token();
    case Sub::powerOperator:
      if (isUnitFirst) return calculated(UnitCalculation::unitToPower(expression, number));
      return TokenFactory::unitExpressionWith(TCDecimalPower(number, expression.value), expression.unit, true);
    case Sub::modOperator: {
      const Decimal& divisor = isUnitFirst ? number : expression.value;
      if (divisor.isZero()) return errorToken(EvaluationError::DivideByZero);
      const Decimal& dividend = isUnitFirst ? expression.value : number;
      return TokenFactory::unitExpressionWith(DDDecimalMod(dividend, divisor), expression.unit, true);
    }
    default:
      return isUnitFirst ? calculated(expression.value, number, operands.operatorToken)
                         : calculated(number, expression.value, operands.operatorToken);
  }
}

Answer unitExpressionAndPercentagePair(const PairOperands& operands) {
  const Token& expression = operands.operandOf(TokenType::unitExpression);
  const Token& percentage = operands.operandBesides(TokenType::unitExpression);
  const bool isUnitFirst = operands.firstIs(TokenType::unitExpression);
  if (operands.operation() == Sub::divisionOperator && !isUnitFirst) {
    const UnitExpression divisor = quantityOf(expression);
    if (divisor.value.isZero()) return errorToken(EvaluationError::DivideByZero);
    return TokenFactory::rateWith(std::make_shared<const PercentageRateTokenMetadata>(
        PercentageRate{{percentage.unscaledDecimalValue() / divisor.value}, divisor.unit}));
  }
  const Token number = TokenFactory::numberWith(unscaledValueOf(expression));
  return likeOperand(expression, isUnitFirst ? decimalAndPercentagePair({number, percentage, operands.operatorToken})
                                             : decimalAndPercentagePair({percentage, number, operands.operatorToken}));
}

Answer decimalAndUnitPair(const PairOperands& operands) {
  const Token& number = operands.operandOf(TokenType::number);
  const std::optional<TCUnit> unit = operands.operandOf(TokenType::unit).unitValue();
  const bool isProduct = operands.operation() == Sub::multiplicationOperator;
  if (!isProduct && operands.operation() != Sub::divisionOperator) return errorToken(EvaluationError::UnitMismatch);
  if (!unit || !operands.firstIs(TokenType::number)) return Token();
  if (isProduct) return TokenFactory::unitExpressionWith(number.decimalValue(), *unit, true);
  return TokenFactory::rateWith(
      std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{number.decimalValue(), *unit}));
}

Answer unitExpressionAndUnitPair(const PairOperands& operands) {
  const UnitExpression expression = quantityOf(operands.operandOf(TokenType::unitExpression));
  const std::optional<TCUnit> unit = operands.operandOf(TokenType::unit).unitValue();
  if (!unit) return Token();
  switch (operands.operation()) {
    case Sub::multiplicationOperator: {
      const auto result =
          UnitCalculator::performUnitCalculation(UnitCalculation::unitsMultiplication(expression, {1, *unit, true}));
      return result ? result->tokenized() : errorToken(EvaluationError::UnsupportedUnitMultiplication);
    }
    case Sub::additionOperator:
    case Sub::subtractionOperator:
    case Sub::reverseSubtractionOperator:
      return std::nullopt;
    case Sub::divisionOperator:
      return TokenFactory::rateWith(
          std::make_shared<const UnitRateTokenMetadata>(UnitRate{expression.value, expression.unit, *unit}));
    default:
      return Token();
  }
}

}  // namespace tavrine::pairs
