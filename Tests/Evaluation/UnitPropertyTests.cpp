#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::testing {
namespace {

using Sub = TokenSubType;
using enum UnitIdentifier;

/// All units with a size; of money the three that have a fixed one.
const std::vector<TCUnit>& allUnits() {
  static const std::vector<TCUnit> units = [] {
    std::vector<TCUnit> found;
    for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) {
      const TCUnit& unit = TCUnitFor(static_cast<UnitIdentifier>(i));
      if (!unit.coefficient().isZero()) found.push_back(unit);
    }
    return found;
  }();
  return units;
}

/// Up to two units a kind: the first, which mostly is not the base, and one from the middle.
const std::vector<TCUnit>& someUnitsOfEachKind() {
  static const std::vector<TCUnit> units = [] {
    std::vector<TCUnit> some;
    for (std::size_t kind = 0; kind < kUnitTypeCount; ++kind) {
      std::vector<TCUnit> ofKind;
      for (const TCUnit& unit : allUnits()) {
        if (unit.unitType() == static_cast<UnitType>(kind)) ofKind.push_back(unit);
      }
      if (ofKind.empty()) continue;
      some.push_back(ofKind.front());
      if (ofKind.size() > 1) some.push_back(ofKind[ofKind.size() / 2]);
    }
    return some;
  }();
  return units;
}

Decimal decimal(std::string_view text) { return *Decimal::parse(text); }

bool isWithin(const Decimal& value, const Decimal& want, const Decimal& bound) {
  return (value - want).magnitude() <= bound;
}

/// Half of the last place that a value in the unit is shown with, in base units; nothing for units without rounding.
Decimal roundingIn(const TCUnit& unit) {
  if (unit.unitType() == UnitType::temperature) return decimal("1e-34");
  const Decimal tiny = decimal("1e-9") / unit.coefficient();
  const bool isRounded = valueFrom(tiny, unit) == 0 || valueFrom(tiny * 7 / 3, unit).exponent() >= -6;
  return unit.unitType() == UnitType::volume && isRounded ? decimal("1e-6") * unit.coefficient() : Decimal(0);
}

// Each way rounds at 38 digits, and some units at the places that they are shown with.
TEST(UnitProperties, ConversionsLeadBack) {
  const Decimal value = decimal("7.3");
  int pairs = 0;
  for (const TCUnit& from : allUnits()) {
    const Decimal base = valueInBaseUnit({value, from});
    for (const TCUnit& into : allUnits()) {
      if (from.unitType() != into.unitType()) continue;
      ++pairs;
      const auto there = to(UnitExpression{value, from}, into);
      ASSERT_TRUE(there) << from.symbol() << " in " << into.symbol();
      const auto back = to(*there, from);
      ASSERT_TRUE(back) << into.symbol() << " in " << from.symbol();
      const Decimal bound = base * decimal("1e-36") + roundingIn(from) + roundingIn(into);
      EXPECT_TRUE(isWithin(valueInBaseUnit(*back), base, bound))
          << from.symbol() << " in " << into.symbol() << ": " << back->value.description();
    }
  }
  EXPECT_GT(pairs, 5000);
}

TEST(UnitProperties, SumsAreThoseOfTheBaseValues) {
  for (const TCUnit& first : allUnits()) {
    for (const TCUnit& second : allUnits()) {
      if (first.unitType() != second.unitType() || first.unitType() == UnitType::temperature) continue;
      const UnitExpression a{decimal("7.3"), first};
      const UnitExpression b{decimal("2.9"), second};
      const auto sum = UnitCalculator::performUnitCalculation(UnitCalculation::unitsAddition(a, b));
      const auto difference = UnitCalculator::performUnitCalculation(UnitCalculation::unitsSubtraction(a, b));
      ASSERT_TRUE(sum && difference) << first.symbol() << " and " << second.symbol();
      const auto total = sum->unitExpressionValue();
      const auto rest = difference->unitExpressionValue();
      if (!total || !rest) continue;
      const Decimal wantTotal = valueInBaseUnit(a) + valueInBaseUnit(b);
      const Decimal wantRest = valueInBaseUnit(a) - valueInBaseUnit(b);
      EXPECT_TRUE(isWithin(valueInBaseUnit(*total), wantTotal, wantTotal * decimal("1e-36") + roundingIn(total->unit)))
          << first.symbol() << " + " << second.symbol();
      EXPECT_TRUE(isWithin(valueInBaseUnit(*rest), wantRest, wantTotal * decimal("1e-36") + roundingIn(rest->unit)))
          << first.symbol() << " - " << second.symbol();
    }
  }
}

/// One base unit of the kind in meters, kilograms, seconds, radians...: where kinds have bases of their own.
double sizeOfBase(UnitType kind) {
  switch (kind) {
    case UnitType::fuelConsumption:
      return 1e-6;
    case UnitType::fuelEconomy:
      return 1e6;
    case UnitType::substanceConcentraion:
      return 1e3;
    case UnitType::angle:
      return std::acos(-1.0) / 180;
    case UnitType::screenDensity:
      return unitOf(pixel).coefficient().toDouble() / unitOf(inches).coefficient().toDouble();
    default:
      return 1;
  }
}

double sizeOf(const UnitExpression& expression) {
  return valueInBaseUnit(expression).toDouble() * sizeOfBase(expression.unit.unitType());
}

/// Nothing for what is no amount.
std::optional<double> sizeOf(const EvaluationResult& result) {
  if (const auto* number = result.as<EvaluationResultCase::decimal>()) return number->toDouble();
  if (const auto expression = result.unitExpressionValue()) return sizeOf(*expression);
  const UnitRate* rate = result.rateValue();
  if (rate == nullptr) return std::nullopt;
  const double above = rate->ofUnit ? sizeOf(UnitExpression{1, *rate->ofUnit}) : 1;
  return rate->value.toDouble() * above / sizeOf(UnitExpression{1, rate->perUnit});
}

// Whatever the kind of the result, its size in base units is the product or the quotient of those of the operands. Some
// coefficients have five digits alone.
TEST(UnitProperties, ProductsAndQuotientsHaveTheSizeOfTheirOperands) {
  constexpr double kBound = 2e-4;
  int compared = 0;
  const auto compare = [&](const UnitCalculation& calculation, double want, const std::string& what) {
    const auto result = UnitCalculator::performUnitCalculation(calculation);
    ASSERT_TRUE(result) << what;
    const auto size = sizeOf(*result);
    if (!size) return;
    ++compared;
    EXPECT_NEAR(*size / want, 1, kBound) << what;
  };
  for (const TCUnit& first : someUnitsOfEachKind()) {
    for (const TCUnit& second : someUnitsOfEachKind()) {
      const auto isLeftOut = [](const TCUnit& unit) {
        // Money times anything stays money, and the scales of temperatures don't begin at nothing.
        return unit.unitType() == UnitType::currency || unit.unitType() == UnitType::temperature;
      };
      if (isLeftOut(first) || isLeftOut(second)) continue;
      const UnitExpression a{decimal("7.3"), first};
      const UnitExpression b{decimal("2.9"), second};
      compare(UnitCalculation::unitsMultiplication(a, b), sizeOf(a) * sizeOf(b),
              first.symbol() + " * " + second.symbol());
      compare(UnitCalculation::unitsDivision(a, b), sizeOf(a) / sizeOf(b), first.symbol() + " / " + second.symbol());
    }
  }
  EXPECT_GT(compared, 4000);
}

// --- Every combination through the operators ------------------------------------------------------------------------

constexpr Sub kOperators[] = {Sub::additionOperator,
                              Sub::subtractionOperator,
                              Sub::reverseSubtractionOperator,
                              Sub::multiplicationOperator,
                              Sub::divisionOperator,
                              Sub::reverseDivisionOperator,
                              Sub::powerOperator,
                              Sub::modOperator,
                              Sub::lesserOf,
                              Sub::greaterOf,
                              Sub::greaterThan,
                              Sub::greaterThanOrEqualTo,
                              Sub::lessThan,
                              Sub::lessThanOrEqualTo,
                              Sub::equalTo,
                              Sub::notEqualTo};

Token rateToken(UnitRate rate) { return TokenFactory::rateWith(std::make_shared<UnitRateTokenMetadata>(rate)); }

/// Whether the value in the token is a number, if it has one.
bool isSound(const Token& token) {
  const auto value = token.evaluationResult().decimalValue();
  return !value || !value->isNaN();
}

bool isQuotient(Sub operation) {
  return operation == Sub::divisionOperator || operation == Sub::reverseDivisionOperator;
}

TEST(UnitProperties, QuantitiesOfAllKindsHaveAnAnswerOrTheErrorOfTheOperator) {
  for (const TCUnit& first : someUnitsOfEachKind()) {
    const Token left = TokenFactory::unitExpressionWith(decimal("7.3"), first);
    for (const TCUnit& second : someUnitsOfEachKind()) {
      const Token right = TokenFactory::unitExpressionWith(decimal("2.9"), second);
      for (const Sub operation : kOperators) {
        const Token answer = evaluatedPair(left, right, operatorToken(operation, "op"));
        const auto what = [&] {
          return first.symbol() + " op" + std::to_string(static_cast<int>(operation)) + " " + second.symbol();
        };
        EXPECT_TRUE(isSound(answer)) << what();
        const auto error = answer.errorValue();
        if (isQuotient(operation)) {
          EXPECT_FALSE(error) << what();
        } else if (operation == Sub::multiplicationOperator) {
          EXPECT_TRUE(!error || *error == EvaluationError::UnsupportedUnitMultiplication) << what();
        } else {
          EXPECT_TRUE(!error || *error == EvaluationError::UnitMismatch) << what();
          // Kinds that are one and the same always have a sum, and an order.
          const bool isMod = operation == Sub::modOperator || operation == Sub::powerOperator;
          EXPECT_FALSE(haveEqualBaseUnits(first, second) && !isMod && (error || isBlank(answer))) << what();
        }
      }
    }
  }
}

/// What may stand beside units, zeros and extremes among it.
std::vector<Token> mixedOperands() {
  const TCUnit worthless = TCUnit::counted({undefined, UnitType::currency, "XXX", {0, 0}, nullptr});
  std::vector<Token> operands;
  for (const char* text : {"0", "-2.5", "1e-100", "9e160"}) {
    const Decimal value = decimal(text);
    operands.push_back(TokenFactory::numberWith(value));
    operands.push_back(TokenFactory::percentageWith(value));
    for (const UnitIdentifier unit : {kilometers, squareFeet, hours, currencyEUR, celsius, hertz, kilometersPerHour}) {
      operands.push_back(TokenFactory::unitExpressionWith(value, TCUnitFor(unit)));
    }
    operands.push_back(TokenFactory::unitExpressionWith(value, worthless));
    for (const UnitIdentifier per : {hours, squareMeters, currencyUSD, hertz}) {
      operands.push_back(rateToken({value, TCUnitFor(kilometers), TCUnitFor(per)}));
      operands.push_back(rateToken({value, worthless, TCUnitFor(per)}));
      operands.push_back(rateToken({value, std::nullopt, TCUnitFor(per)}));
      operands.push_back(
          TokenFactory::rateWith(std::make_shared<DecimalRateTokenMetadata>(DecimalRate{value, TCUnitFor(per)})));
      operands.push_back(TokenFactory::rateWith(
          std::make_shared<PercentageRateTokenMetadata>(PercentageRate{{value}, TCUnitFor(per)})));
    }
  }
  operands.push_back(TokenFactory::unitWith(TCUnitFor(hours)));
  operands.push_back(TokenFactory::unitWith(TCUnitFor(kilometers)));
  operands.push_back(TokenFactory::salesTaxWith(SalesTax{decimal("-1")}));
  return operands;
}

TEST(UnitProperties, MixedOperandsNeverGiveAnUnsoundAnswer) {
  const std::vector<Token> operands = mixedOperands();
  for (const Token& left : operands) {
    for (const Token& right : operands) {
      for (const Sub operation : kOperators) {
        const Token answer = evaluatedPair(left, right, operatorToken(operation, "op"));
        // A plain number that is none is the error itself.
        if (answer.errorValue()) continue;
        EXPECT_TRUE(isSound(answer)) << describe(left) << "\nop " << static_cast<int>(operation) << "\n"
                                     << describe(right);
      }
    }
  }
}

// Each answer is an operand again, so that rates of rates of rates meet each other. A result never grows: it has at
// most two units, whatever went in.
TEST(UnitProperties, LongChainsKeepGivingAnswers) {
  const std::vector<Token> operands = mixedOperands();
  Token answer = operands.front();
  std::size_t next = 7;
  int rates = 0;
  for (int step = 0; step < 20000; ++step) {
    next = (next * 1103515245 + 12345) % 2147483648;
    const Token& operand = operands[next % operands.size()];
    const Sub operation = kOperators[next / 1024 % std::size(kOperators)];
    answer = evaluatedPair(answer, operand, operatorToken(operation, "op"));
    ASSERT_TRUE(answer.errorValue() || isSound(answer)) << step;
    if (answer.is(TokenType::rate)) ++rates;
    if (answer.errorValue() || isBlank(answer)) answer = operand;
  }
  EXPECT_GT(rates, 1000);
}

}  // namespace
}  // namespace tavrine::testing
