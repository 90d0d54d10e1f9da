#include <memory>
#include <utility>
#include <variant>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

/// Rates among themselves, with plain numbers, with quantities, with percentages and with bare units.
namespace tavrine::pairs {

namespace {

using Sub = TokenSubType;

/// A rate of a unit or of a plain number, as one of a unit; nothing for a percentage.
std::optional<UnitRate> unitRateOf(const std::optional<RateType>& rate) {
  if (!rate) return std::nullopt;
  if (const auto* ofUnit = std::get_if<UnitRate>(&*rate)) return *ofUnit;
  if (const auto* ofDecimal = std::get_if<DecimalRate>(&*rate)) return asUnitRate(*ofDecimal);
  return std::nullopt;
}

std::optional<UnitRate> unitRateOf(const Token& token) { return unitRateOf(RateExtractor::from(token)); }

Token rateToken(UnitRate rate) {
  rate.prefersCompoundUnitFormatting = false;
  return TokenFactory::rateWith(std::make_shared<const UnitRateTokenMetadata>(std::move(rate)));
}

Token rateToken(PercentageRate rate) {
  return TokenFactory::rateWith(std::make_shared<const PercentageRateTokenMetadata>(std::move(rate)));
}

Answer calculatedRates(const UnitRate& first, const UnitRate& second, Sub operation) {
  switch (operation) {
    case Sub::additionOperator:
      return calculated(UnitCalculation::rateByRateAddition(first, second));
    case Sub::subtractionOperator:
      return calculated(UnitCalculation::rateByRateSubtraction(first, second));
    case Sub::reverseSubtractionOperator:
      return calculated(UnitCalculation::rateByRateSubtraction(second, first));
    case Sub::multiplicationOperator:
      return calculated(UnitCalculation::rateByRateMultiplication(first, second));
    case Sub::divisionOperator:
      return calculated(UnitCalculation::rateByRateDivision(first, second));
    case Sub::reverseDivisionOperator:
      return calculated(UnitCalculation::rateByRateDivision(second, first));
    case Sub::equalTo:
      return TokenFactory::booleanWith(first == second);
    case Sub::notEqualTo:
      return TokenFactory::booleanWith(first != second);
    default:
      break;
  }
  // Rates in different units are in no order.
  const bool sameUnits = first.ofUnit == second.ofUnit && first.perUnit == second.perUnit;
  if (const auto truth = comparison(first.value, second.value, operation)) {
    return TokenFactory::booleanWith(sameUnits && *truth);
  }
  return Token();
}

Answer calculatedRates(const PercentageRate& first, const PercentageRate& second, Sub operation) {
  if (operation != Sub::additionOperator && operation != Sub::subtractionOperator) return Token();
  const auto sum = operation == Sub::additionOperator ? first + second : first - second;
  return sum ? rateToken(*sum) : Token();
}

/// "$20 / hour * 2".
Answer rateFirst(const UnitRate& rate, const Decimal& number, Sub operation) {
  switch (operation) {
    case Sub::additionOperator:
      return calculated(UnitCalculation::rateAddition(rate, number));
    case Sub::subtractionOperator:
      return calculated(UnitCalculation::rateSubtraction(rate, number));
    case Sub::multiplicationOperator:
      return calculated(UnitCalculation::rateMultiplication(rate, number));
    case Sub::divisionOperator:
      return calculated(UnitCalculation::rateDivision(rate, number));
    case Sub::powerOperator:
      return calculated(UnitCalculation::rateToPower(rate, number));
    default:
      return Token();
  }
}

/// "2 * $20 / hour".
Answer decimalFirst(const Decimal& number, const UnitRate& rate, const PairOperands& operands) {
  const auto withValue = [&rate](const Decimal& value) { return rateToken({value, rate.ofUnit, rate.perUnit}); };
  switch (operands.operation()) {
    case Sub::additionOperator:
      return withValue(rate.value + number);
    case Sub::subtractionOperator:
      return withValue(number - rate.value);
    case Sub::reverseSubtractionOperator:
      return withValue(rate.value - number);
    case Sub::multiplicationOperator:
      return withValue(rate.value * number);
    case Sub::divisionOperator:
      if (rate.value.isZero()) return errorToken(EvaluationError::DivideByZero);
      if (rate.ofUnit) return rateToken({number / rate.value, rate.perUnit, *rate.ofUnit});
      return TokenFactory::unitExpressionWith(number / rate.value, rate.perUnit, true);
    default:
      return operands.secondToken;
  }
}

Answer percentageRateFirst(const PercentageRate& rate, const PairOperands& operands) {
  const Token percentage = TokenFactory::percentageWith(rate.percentage.decimalValue);
  const Answer result = decimalAndPercentagePair({percentage, operands.secondToken, operands.operatorToken});
  if (!result || isBlank(*result)) return Token();
  if (result->errorValue()) return result;
  return rateToken(PercentageRate{result->percentageValue(), rate.perUnit});
}

std::optional<UnitCalculation> unitCalculationFor(const UnitExpression& unit, const UnitRate& rate, Sub operation,
                                                  bool isUnitFirst) {
  switch (operation) {
    case Sub::additionOperator:
      return UnitCalculation::unitAndRateAddition(unit, rate);
    case Sub::subtractionOperator:
      if (isUnitFirst) return UnitCalculation::unitAndRateSubtraction(unit, rate);
      return UnitCalculation::rateAndUnitSubtraction(rate, unit);
    case Sub::multiplicationOperator:
      return UnitCalculation::rateByUnitMultiplication(rate, unit);
    case Sub::divisionOperator:
      if (!isUnitFirst) return std::nullopt;
      return UnitCalculation::unitByRateDivision(unit, rate);
    default:
      return std::nullopt;
  }
}

/// "$20 / hour / day": how many of the bare unit one of the rate's is.
Answer dividedByUnit(const RateType& rate, const TCUnit& unit) {
  if (const auto* ofDecimal = std::get_if<DecimalRate>(&rate)) {
    const auto ratio = ratioOf(ofDecimal->perUnit, unit);
    if (ratio) return TokenFactory::numberWith(ofDecimal->value / *ratio);
    return TokenFactory::rateWith(
        std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{ofDecimal->value, unit}));
  }
  const auto* ofUnit = std::get_if<UnitRate>(&rate);
  if (ofUnit == nullptr) return std::nullopt;
  const auto ratio = ratioOf(ofUnit->perUnit, unit);
  if (!ratio) return ofUnit->ofUnit ? errorToken(EvaluationError::UnsupportedRate) : Token();
  const Decimal value = ofUnit->value / *ratio;
  return ofUnit->ofUnit ? TokenFactory::unitExpressionWith(value, *ofUnit->ofUnit, true)
                        : TokenFactory::numberWith(value);
}

}  // namespace

Answer ratesPair(const PairOperands& operands) {
  const auto first = RateExtractor::from(operands.firstToken);
  const auto second = RateExtractor::from(operands.secondToken);
  const auto firstRate = unitRateOf(first);
  const auto secondRate = unitRateOf(second);
  if (firstRate && secondRate) return calculatedRates(*firstRate, *secondRate, operands.operation());
  if (!first || !second || firstRate || secondRate) return Token();
  return calculatedRates(std::get<PercentageRate>(*first), std::get<PercentageRate>(*second), operands.operation());
}

Answer decimalAndRatePair(const PairOperands& operands) {
  const auto rate = RateExtractor::from(operands.operandOf(TokenType::rate));
  if (!rate) return Token();
  const Token& number = operands.operandBesides(TokenType::rate);
  const auto unitRate = unitRateOf(rate);
  if (operands.firstIs(TokenType::rate)) {
    if (unitRate) return rateFirst(*unitRate, number.decimalValue(), operands.operation());
    return percentageRateFirst(std::get<PercentageRate>(*rate), operands);
  }
  return unitRate ? decimalFirst(number.decimalValue(), *unitRate, operands) : number;
}

Answer unitExpressionAndRatePair(const PairOperands& operands) {
  const Token& expression = operands.operandOf(TokenType::unitExpression);
  const auto rate = unitRateOf(operands.operandBesides(TokenType::unitExpression));
  if (!rate) return expression;
  const bool isUnitFirst = operands.firstIs(TokenType::unitExpression);
  if (const auto calculation = unitCalculationFor(quantityOf(expression), *rate, operands.operation(), isUnitFirst)) {
    if (const auto result = UnitCalculator::performUnitCalculation(*calculation)) return result->tokenized();
  }
  const bool dividesRate = operands.operation() == Sub::divisionOperator && !isUnitFirst;
  return errorToken(dividesRate ? EvaluationError::UnsupportedRate : EvaluationError::UnitMismatch);
}

Answer rateAndPercentagePair(const PairOperands& operands) {
  const Token& rate = operands.operandOf(TokenType::rate);
  const Token number = TokenFactory::numberWith(rate.decimalValue());
  const Token& percentage = operands.operandBesides(TokenType::rate);
  const Answer result = operands.firstIs(TokenType::rate)
                            ? decimalAndPercentagePair({number, percentage, operands.operatorToken})
                            : decimalAndPercentagePair({percentage, number, operands.operatorToken});
  if (!result || !result->is(TokenType::number) || result->errorValue()) return result;
  return TokenFactory::tokenWith(result->decimalValue(), rate);
}

Answer rateAndUnitPair(const PairOperands& operands) {
  const Token& rateOperand = operands.operandOf(TokenType::rate);
  const std::optional<TCUnit> unit = operands.operandBesides(TokenType::rate).unitValue();
  const auto rate = RateExtractor::from(rateOperand);
  if (!unit || !rate) return Token();
  switch (operands.operation()) {
    case Sub::multiplicationOperator: {
      const Token one = TokenFactory::unitExpressionWith(1, *unit, true);
      if (operands.firstIs(TokenType::rate)) {
        return unitExpressionAndRatePair({rateOperand, one, operands.operatorToken});
      }
      return unitExpressionAndRatePair({one, rateOperand, operands.operatorToken});
    }
    case Sub::additionOperator:
    case Sub::subtractionOperator:
    case Sub::reverseSubtractionOperator:
      return std::nullopt;
    case Sub::divisionOperator:
      return dividedByUnit(*rate, *unit);
    default:
      return Token();
  }
}

}  // namespace tavrine::pairs
