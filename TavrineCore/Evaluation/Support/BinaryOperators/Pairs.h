#pragma once

#include <optional>

#include "TavrineCore/Evaluation/Support/BinaryOperators/BinaryOperandPair.h"

/// The pairs by family; their order stands in TokenAndOperatorPairFactory.cpp. Most convert their operands and hand
/// over to one of the few that own arithmetic: `decimalPair`, `decimalAndPercentagePair`, `unitExpressionsPair`,
/// `unitExpressionAndRatePair`, `binaryPair`, `booleanPair`.
namespace tavrine {

struct UnitCalculation;
struct UnitExpression;

}  // namespace tavrine

namespace tavrine::pairs {

using Answer = std::optional<Token>;

// NumberPairs.cpp
bool bothCarryNumbers(const PairOperands& operands);
Answer decimalPair(const PairOperands& operands);
Answer multipliersPair(const PairOperands& operands);
Answer decimalAndMultiplierPair(const PairOperands& operands);
Answer decimalAndFractionPair(const PairOperands& operands);

/// The operation on two plain numbers, as `decimalPair` does it.
Answer calculated(const Decimal& first, const Decimal& second, const Token& operator_);

// PercentagePairs.cpp
bool salesTaxIsSecond(const PairOperands& operands);
Answer percentagesPair(const PairOperands& operands);
Answer decimalAndPercentagePair(const PairOperands& operands);
Answer decimalAndSalesTaxPair(const PairOperands& operands);
Answer unitExpressionAndSalesTaxPair(const PairOperands& operands);

// UnitPairs.cpp
Answer unitExpressionsPair(const PairOperands& operands);
Answer decimalAndUnitExpressionPair(const PairOperands& operands);
Answer unitExpressionAndPercentagePair(const PairOperands& operands);
Answer decimalAndUnitPair(const PairOperands& operands);
Answer unitExpressionAndUnitPair(const PairOperands& operands);

/// The quantity of a unit expression token, with the scalar of its number applied: 5000 of "$5k".
UnitExpression quantityOf(const Token& token);
/// The number as it stands before its scalar: 5 of "$5k".
Decimal unscaledValueOf(const Token& expression);
/// A calculated number in the unit of the operand, with its scalar and its look; any other result as it is.
Answer likeOperand(const Token& expression, Answer result);
/// What the calculator gives, as a token; the blank token where the calculation doesn't apply.
Answer calculated(const UnitCalculation& calculation);

// RatePairs.cpp
Answer ratesPair(const PairOperands& operands);
Answer decimalAndRatePair(const PairOperands& operands);
Answer unitExpressionAndRatePair(const PairOperands& operands);
Answer rateAndPercentagePair(const PairOperands& operands);
Answer rateAndUnitPair(const PairOperands& operands);

// DatePairs.cpp
Answer datestampsPair(const PairOperands& operands);
Answer datestampAndTimespanPair(const PairOperands& operands);
Answer datestampAndLaptimePair(const PairOperands& operands);
Answer datestampAndFrametimePair(const PairOperands& operands);
Answer datestampAndUnitExpressionPair(const PairOperands& operands);
Answer iso8601Pair(const PairOperands& operands);
Answer iso8601AndUnitExpressionPair(const PairOperands& operands);
Answer iso8601AndTimespanPair(const PairOperands& operands);

// TimestampPairs.cpp
Answer timestampsPair(const PairOperands& operands);
Answer decimalAndTimestampPair(const PairOperands& operands);
Answer unitExpressionAndTimestampPair(const PairOperands& operands);
Answer timespanAndTimestampPair(const PairOperands& operands);

// DurationPairs.cpp
Answer timespansPair(const PairOperands& operands);
Answer decimalAndTimespanPair(const PairOperands& operands);
Answer unitExpressionAndTimespanPair(const PairOperands& operands);
Answer timespanAndPercentagePair(const PairOperands& operands);
Answer rateAndTimespanPair(const PairOperands& operands);
Answer rateAndDatespanPair(const PairOperands& operands);
Answer rateAndLaptimePair(const PairOperands& operands);

// LaptimePairs.cpp
Answer laptimesPair(const PairOperands& operands);
Answer frametimesPair(const PairOperands& operands);
Answer decimalAndLaptimePair(const PairOperands& operands);
Answer decimalAndFrametimePair(const PairOperands& operands);
Answer durationAndLaptimePair(const PairOperands& operands);
Answer durationAndFrametimePair(const PairOperands& operands);
Answer unitExpressionAndFrametimesPair(const PairOperands& operands);

// AnglePairs.cpp
Answer dmsPair(const PairOperands& operands);

// BasePairs.cpp
Answer hexPair(const PairOperands& operands);
Answer binaryPair(const PairOperands& operands);
Answer octalPair(const PairOperands& operands);
Answer decimalAndBinaryPair(const PairOperands& operands);
Answer decimalAndOctalPair(const PairOperands& operands);
Answer decimalAndHexPair(const PairOperands& operands);
Answer differentBasesPair(const PairOperands& operands);

// LogicPairs.cpp
Answer booleanPair(const PairOperands& operands);
Answer decimalAndBooleanPair(const PairOperands& operands);
Answer literalPair(const PairOperands& operands);

// FallbackPairs.cpp
Answer operatorAndAnythingPair(const PairOperands& operands);
Answer listAndAnything(const PairOperands& operands);
Answer nothingAndAnythingPair(const PairOperands& operands);
Answer errorAndAnything(const PairOperands& operands);
Answer pendingAndAnything(const PairOperands& operands);
Answer failedAndAnything(const PairOperands& operands);
Answer unhandledPair(const PairOperands& operands);

/// The pair with its operand of that type replaced by another token: most pairs hand over to a more general one so.
template <class Pair>
Answer handedOver(Pair pair, const PairOperands& operands, TokenType replaced, const Token& by) {
  if (operands.firstIs(replaced)) return pair({by, operands.secondToken, operands.operatorToken});
  return pair({operands.firstToken, by, operands.operatorToken});
}

/// The truth of `first op second` for one of the six comparisons; nothing for another operator.
template <class Value>
std::optional<bool> comparison(const Value& first, const Value& second, TokenSubType operation) {
  switch (operation) {
    case TokenSubType::greaterThan:
      return second < first;
    case TokenSubType::greaterThanOrEqualTo:
      return !(first < second);
    case TokenSubType::lessThan:
      return first < second;
    case TokenSubType::lessThanOrEqualTo:
      return !(second < first);
    case TokenSubType::equalTo:
      return first == second;
    case TokenSubType::notEqualTo:
      return !(first == second);
    default:
      return std::nullopt;
  }
}

}  // namespace tavrine::pairs
