#include "Foundation/Calendar.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

/// Durations on the calendar: beside nearly everything they count as the quantity that they are.
namespace tavrine::pairs {

namespace {

using Sub = TokenSubType;

/// A quantity of time as a duration again, any other result as it is.
Answer asTimespan(Answer result) {
  if (!result || !result->is(TokenType::unitExpression)) return result;
  const auto timespan = result->timespanValue();
  return timespan ? TokenFactory::timespanWith(*timespan) : result;
}

}  // namespace

Answer timespansPair(const PairOperands& operands) {
  const auto first = operands.firstToken.timespanValue();
  const auto second = operands.secondToken.timespanValue();
  if (!first || !second) return std::nullopt;
  switch (operands.operation()) {
    case Sub::additionOperator:
      return TokenFactory::timespanWith(summed(*first, *second, UnitSum::addition));
    case Sub::subtractionOperator:
      return TokenFactory::timespanWith(summed(*first, *second, UnitSum::subtraction));
    case Sub::reverseSubtractionOperator:
      return TokenFactory::timespanWith(summed(*second, *first, UnitSum::subtraction));
    default:
      return asTimespan(
          unitExpressionsPair({asUnitExpressionToken(*first), asUnitExpressionToken(*second), operands.operatorToken}));
  }
}

Answer decimalAndTimespanPair(const PairOperands& operands) {
  const auto timespan = operands.operandOf(TokenType::timespan).timespanValue();
  if (!timespan) return Token();
  Answer result =
      handedOver(decimalAndUnitExpressionPair, operands, TokenType::timespan, asUnitExpressionToken(*timespan));
  if (!result || !result->is(TokenType::unitExpression)) return result;
  const auto formed = result->timespanValue();
  return formed && hasMultipleComponents(*formed) ? TokenFactory::timespanWith(*formed) : result;
}

Answer unitExpressionAndTimespanPair(const PairOperands& operands) {
  const auto timespan = operands.operandOf(TokenType::timespan).timespanValue();
  if (!timespan) return Token();
  return handedOver(unitExpressionsPair, operands, TokenType::timespan, asUnitExpressionToken(*timespan));
}

Answer timespanAndPercentagePair(const PairOperands& operands) {
  const auto timespan = operands.operandOf(TokenType::timespan).timespanValue();
  if (!timespan) return Token();
  return asTimespan(
      handedOver(unitExpressionAndPercentagePair, operands, TokenType::timespan, asUnitExpressionToken(*timespan)));
}

Answer rateAndTimespanPair(const PairOperands& operands) {
  const auto timespan = operands.operandOf(TokenType::timespan).timespanValue();
  if (!timespan) return Token();
  return handedOver(unitExpressionAndRatePair, operands, TokenType::timespan, asUnitExpressionToken(*timespan));
}

Answer rateAndDatespanPair(const PairOperands& operands) {
  const auto timespan = operands.operandOf(TokenType::datespan).timespanValue();
  if (!timespan) return Token();
  return handedOver(rateAndTimespanPair, operands, TokenType::datespan, TokenFactory::timespanWith(*timespan));
}

Answer rateAndLaptimePair(const PairOperands& operands) {
  const auto laptime = operands.operandOf(TokenType::laptime).laptimeValue();
  if (!laptime) return Token();
  return handedOver(unitExpressionAndRatePair, operands, TokenType::laptime,
                    tokenOf(inSeconds(totalSecondsOf(*laptime))));
}

}  // namespace tavrine::pairs
