// Arithmetic in words: "half of 10", "15% off $30", "larger of 3 and 9". What a row writes with an operator behaves as
// if the user had typed the operator, so that percentages, units and dates come out as they do there.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Foundation/DecimalMath.h"
#include "Foundation/Environment.h"
#include "Foundation/RandomSource.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CommonMultiplesCalculator.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/PrimeDeterminer.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{halfOf,
                                         toNearestX,
                                         midpoint,
                                         proportionsFindNumerator,
                                         proportionsFindDenominator,
                                         percentOf,
                                         percentOff,
                                         percentOn,
                                         reversedPercentOf,
                                         reversedPercentOff,
                                         reversedPercentOn,
                                         isPercentOfWhat,
                                         isPercentOffWhat,
                                         isPercentOnWhat,
                                         isPercentOfWhatClassic,
                                         isPercentOffWhatClassic,
                                         isPercentOnWhatClassic,
                                         isWhatPercentOf,
                                         isWhatPercentOn,
                                         isWhatPercentOff,
                                         isWhatPercentWith,
                                         xToYIsWhatPercentage,
                                         xToYIsWhatMultiplier,
                                         isWhatMultiplierOf,
                                         isWhatMultiplierOff,
                                         isWhatMultiplierOn,
                                         lesserOf,
                                         greaterOf,
                                         intervalBetweenDates,
                                         intervalBetweenTimestamps,
                                         intervalBetweenFrametimes,
                                         intervalBetweenLaptimes,
                                         remainder,
                                         dividedBy,
                                         isPrime,
                                         clamp,
                                         multipliedBy,
                                         rateUnitChange,
                                         rateForADuration,
                                         xToY,
                                         speedForTime,
                                         powerAtRotation,
                                         makeRandomNumber,
                                         lcm,
                                         gcd,
                                         nthRoot,
                                         squareRoot,
                                         cubedRoot,
                                         nthLog,
                                         nthLogReversed,
                                         scrubNumberWithSpecifiedRange,
                                         permutation,
                                         combination,
                                         reversedCombination,
                                         reversedPermutation,
                                         declareGenericUnit};

std::size_t argumentCountOf(FunctionIdentifier identifier) {
  switch (identifier) {
    case halfOf:
    case isPrime:
    case squareRoot:
    case cubedRoot:
      return 1;
    case proportionsFindNumerator:
    case proportionsFindDenominator:
    case clamp:
    case scrubNumberWithSpecifiedRange:
      return 3;
    default:
      return 2;
  }
}

Token number(int value) { return TokenFactory::numberWith(Decimal(value)); }

/// What the word alone counts: one mile in "half a mile".
Token amountOf(const Token& token) {
  if (token.is(TokenType::unit)) {
    if (const std::optional<TCUnit> unit = token.unitValue())
      return TokenFactory::unitExpressionWith(Decimal(1), *unit);
  }
  return token;
}

/// 0.2 for "20%", so that a sum with it adds 0.2 instead of a fifth.
Token oneMinus(const Token& fraction) { return difference(number(1), asNumber(fraction)); }
Token onePlus(const Token& fraction) { return sum(number(1), asNumber(fraction)); }

Answer root(const Token& token, const Decimal& degree) {
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  if (expression) {
    std::optional<TCUnit> unit;
    if (degree == Decimal(2)) unit = UnitRelations::squareRootUnitFor(expression->unit);
    if (degree == Decimal(3)) unit = UnitRelations::cubeRootUnitFor(expression->unit);
    if (unit) return EvaluationResult::unitExpression({DDDecimalNthRoot(expression->value, degree), *unit, true});
  }
  const std::optional<Decimal> value = decimalOf(token);
  if (!value) return std::nullopt;
  return EvaluationResult::decimal(DDDecimalNthRoot(*value, degree));
}

/// 4 for the word in "fourth root"; any other word says nothing of the degree, and a root is a square root then.
std::optional<Decimal> degreeOf(const Token& token) {
  if (!token.is(TokenType::literal)) return decimalOf(token);
  constexpr auto kOrdinals = std::to_array<std::string_view>(
      {"second", "third", "fourth", "fifth", "sixth", "seventh", "eighth", "ninth", "tenth"});
  const std::string word = lowercased(token.stringValue);
  const auto* found = std::find(kOrdinals.begin(), kOrdinals.end(), word);
  return Decimal(found != kOrdinals.end() ? 2 + static_cast<int>(found - kOrdinals.begin()) : 2);
}

Answer logarithm(const Decimal& value, const Decimal& base) {
  if (base.isZero()) return EvaluationResult::error(EvaluationError::Infinity);
  return EvaluationResult::decimal(DDDecimalNthLog(value, base));
}

/// Ways to take `chosen` out of `all`, where their order counts or doesn't.
Answer choices(const Decimal& all, const Decimal& chosen, bool orderCounts) {
  if (all < chosen) return EvaluationResult::error(EvaluationError::Other);
  Decimal divisor = DDDecimalFactorial(all - chosen);
  if (!orderCounts) divisor = DDDecimalFactorial(chosen) * divisor;
  if (divisor.isZero() || divisor.isNaN()) return EvaluationResult::error(EvaluationError::BadDivision);
  return EvaluationResult::decimal(DDDecimalFactorial(all) / divisor);
}

Answer randomNumber(const Decimal& lowest, const Decimal& highest) {
  if (highest < lowest || highest.isZero()) return std::nullopt;
  RandomSource& source = Environment::current().random();
  if (lowest.isZero() && highest == Decimal(1))
    return EvaluationResult::decimal(Decimal::fromDouble(source.unitInterval()));
  const std::int64_t low = lowest.rounded(0, RoundingMode::plain).intValue();
  const std::int64_t high = highest.rounded(0, RoundingMode::plain).intValue();
  return EvaluationResult::decimal(Decimal(source.integerIn(low, high)));
}

Answer primality(const Decimal& value) {
  const Decimal whole = value.rounded(0, RoundingMode::plain);
  if (whole != value) return EvaluationResult::boolean(false);
  const std::optional<bool> isPrime = PrimeDeterminer::isPrime(whole);
  if (!isPrime) return std::nullopt;
  return EvaluationResult::boolean(*isPrime);
}

Answer clamped(const Token& token, const Decimal& lowest, const Decimal& highest) {
  const std::optional<Decimal> value = decimalOf(token);
  if (!value) return std::nullopt;
  Decimal result = *value < lowest ? lowest : *value;
  if (highest < result) result = highest;
  return resultWith(result, token);
}

/// Of the numbers of a list: "highest common factor of 12, 18 and 30".
Answer commonMultipleOf(FunctionIdentifier identifier, const Token& list) {
  const EvaluationResult result = list.evaluationResult();
  const List* const value = result.as<EvaluationResultCase::list>();
  if (value == nullptr || !value->members) return std::nullopt;
  CommonMultiplesCalculator calculator;
  for (const EvaluationResult& member : *value->members) {
    const std::optional<Decimal> number = decimalOf(member.tokenized());
    if (!number) return std::nullopt;
    calculator.values.push_back(*number);
  }
  const std::optional<Decimal> common = identifier == gcd ? calculator.gcd() : calculator.lcm();
  return common ? Answer(EvaluationResult::decimal(*common)) : std::nullopt;
}

/// What works on the bare numbers of two arguments.
Answer ofDecimals(FunctionIdentifier identifier, const Token& first, const Decimal& a, const Decimal& b) {
  switch (identifier) {
    case makeRandomNumber:
      return randomNumber(a, b);
    case gcd:
    case lcm: {
      const CommonMultiplesCalculator calculator{{a, b}};
      const std::optional<Decimal> value = identifier == gcd ? calculator.gcd() : calculator.lcm();
      if (!value) return std::nullopt;
      return EvaluationResult::decimal(*value);
    }
    case nthLog:
      return logarithm(a, b);
    case nthLogReversed:
      return logarithm(b, a);
    case toNearestX:
      return resultWith(roundedToNearest(a, b), first);
    case combination:
      return choices(a, b, /*orderCounts=*/false);
    case reversedCombination:
      return choices(b, a, /*orderCounts=*/false);
    case permutation:
      return choices(a, b, /*orderCounts=*/true);
    case reversedPermutation:
      return choices(b, a, /*orderCounts=*/true);
    default:
      return std::nullopt;
  }
}

/// The rows that are written with operators; blank for the others.
Token ofTokens(FunctionIdentifier identifier, const Token& a, const Token& b) {
  switch (identifier) {
    case lesserOf:
      return operated(a, TokenSubType::lesserOf, b, "Lesser than");
    case greaterOf:
      return operated(a, TokenSubType::greaterOf, b, "Greater than");
    case remainder:
      return operated(a, TokenSubType::modOperator, b, "mod");
    case midpoint:
      return quotient(sum(a, b), number(2));
    case dividedBy:
    case powerAtRotation:
      return quotient(a, b);
    case multipliedBy:
    case percentOf:
      return product(a, amountOf(b));
    case reversedPercentOf:
    case rateForADuration:
    case speedForTime:
      return product(a, b);
    case percentOff:
      return difference(b, product(a, b));
    case percentOn:
      return sum(b, product(a, b));
    case reversedPercentOff:
      return difference(a, product(a, b));
    case reversedPercentOn:
      return sum(a, product(a, b));
    case isPercentOfWhat:
      return quotient(a, asNumber(b));
    case isPercentOffWhat:
      return quotient(a, oneMinus(b));
    case isPercentOnWhat:
      return quotient(a, onePlus(b));
    case isPercentOfWhatClassic:
      return quotient(b, asNumber(a));
    case isPercentOffWhatClassic:
      return quotient(b, oneMinus(a));
    case isPercentOnWhatClassic:
      return quotient(b, onePlus(a));
    case isWhatPercentOf:
      return asPercentage(quotient(a, b));
    case isWhatPercentOff:
      return asPercentage(oneMinus(quotient(a, b)));
    case isWhatPercentOn:
      return asPercentage(difference(quotient(a, b), number(1)));
    case isWhatPercentWith:
      return asPercentage(quotient(a, sum(a, b)));
    case isWhatMultiplierOf:
      return asMultiplier(quotient(a, b));
    case isWhatMultiplierOn:
      return asMultiplier(difference(quotient(a, b), number(1)));
    case isWhatMultiplierOff:
      return asMultiplier(oneMinus(quotient(a, b)));
    case xToYIsWhatPercentage:
      return asPercentage(difference(quotient(b, a), number(1)));
    case xToYIsWhatMultiplier:
      return asMultiplier(quotient(b, a));
    case xToY:
    case intervalBetweenTimestamps:
    case intervalBetweenLaptimes:
    case intervalBetweenFrametimes:
      return difference(b, a);
    case intervalBetweenDates:
      return difference(a, b);
    case rateUnitChange:
      return convertedInto(a, b);
    default:
      return Token();
  }
}

/// The rows of one or three arguments, and of none.
Answer ofOtherCounts(FunctionIdentifier identifier, Arguments arguments) {
  switch (identifier) {
    case halfOf:
      return resultOf(quotient(amountOf(arguments[0]), number(2)));
    case isPrime: {
      const std::optional<Decimal> value = decimalOf(arguments[0]);
      return value ? primality(*value) : std::nullopt;
    }
    case squareRoot:
      return root(arguments[0], Decimal(2));
    case cubedRoot:
      return root(arguments[0], Decimal(3));
    case proportionsFindNumerator:
      return resultOf(product(quotient(arguments[2], arguments[1]), arguments[0]));
    case proportionsFindDenominator:
      return resultOf(product(quotient(arguments[2], arguments[0]), arguments[1]));
    case clamp: {
      const std::optional<Decimal> lowest = decimalOf(arguments[1]);
      const std::optional<Decimal> highest = decimalOf(arguments[2]);
      return lowest && highest ? clamped(arguments[0], *lowest, *highest) : std::nullopt;
    }
    case scrubNumberWithSpecifiedRange:
      return resultOf(arguments[0]);
    default:
      return std::nullopt;
  }
}

/// "declare unit apple": a unit that nothing is known of but the word for it, which "new unit" leaves open.
Answer declaredUnit(Arguments arguments) {
  const bool isNamed = arguments.size() == 1 && arguments[0].is(TokenType::literal);
  if (!arguments.empty() && !isNamed) return std::nullopt;
  return EvaluationResult::unit(
      TCUnit::counted({UnitIdentifier::undefined, UnitType::other, isNamed ? arguments[0].stringValue : "",
                       TCUnitConverterLinear{Decimal(1), Decimal()}, nullptr}));
}

Answer evaluateBasicFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  constexpr FunctionIdentifierSet kOfLists{gcd, lcm};
  if (kOfLists.contains(identifier) && arguments.size() == 1) return commonMultipleOf(identifier, arguments[0]);
  if (identifier == declareGenericUnit) return declaredUnit(arguments);
  if (arguments.size() != argumentCountOf(identifier)) return std::nullopt;
  if (arguments.size() != 2) return ofOtherCounts(identifier, arguments);
  const std::optional<Decimal> a = decimalOf(arguments[0]);
  const std::optional<Decimal> b = decimalOf(arguments[1]);
  if (identifier == nthRoot) {
    const std::optional<Decimal> degree = degreeOf(arguments[0]);
    return degree ? root(arguments[1], *degree) : std::nullopt;
  }
  if (a && b) {
    if (Answer answer = ofDecimals(identifier, arguments[0], *a, *b)) return answer;
  }
  return resultOf(ofTokens(identifier, arguments[0], arguments[1]));
}

}  // namespace

constinit const WordFunctionHandler kBasicFunctionHandler{kHandled, evaluateBasicFunction};

}  // namespace tavrine
