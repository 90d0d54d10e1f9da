#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/DecimalMath.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

constexpr Decimal kNaN = Decimal::nan();

TEST(DecimalMath, RoundsToTheNearestMultiple) {
  struct Row {
    const char* value;
    const char* step;
    const char* want;
  };
  for (const auto& c : rowsOf<Row>("Foundation/DecimalMathTests", "RoundsToTheNearestMultiple")) {
    const Decimal result = roundedToNearest(*Decimal::parse(c.value), *Decimal::parse(c.step));
    EXPECT_EQ(result.description(), c.want) << c.value << " to " << c.step;
  }
}

TEST(DecimalMath, Powers) {
  struct Case {
    Decimal base, power, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "Powers"))
    EXPECT_EQ(TCDecimalPower(c.base, c.power), c.want) << c.base << " ^ " << c.power;
  EXPECT_TRUE(TCDecimalPower(9, TCDecimalPower(9, 9)).isNaN());

  EXPECT_EQ(calculatePower(10, 200, RoundingMode::bankers).error, PowerCalculationError::overflow);
  EXPECT_EQ(calculatePower("0.1"_dec, 200, RoundingMode::bankers).error, PowerCalculationError::underflow);
  EXPECT_EQ(pow(-2, 3), -8);
  EXPECT_EQ(pow(2, -2), "0.25"_dec);
  EXPECT_TRUE(pow(2, std::numeric_limits<std::int64_t>::min()).isNaN());
}

TEST(DecimalMath, ModulusTakesTheSignOfTheDivisor) {
  struct Case {
    Decimal a, b, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "ModulusTakesTheSignOfTheDivisor"))
    EXPECT_EQ(DDDecimalMod(c.a, c.b), c.want) << c.a << " mod " << c.b;
}

// The loop as it is written down, without any way out but its tolerance and its limit.
Decimal squareRootInAllRounds(const Decimal& value) {
  constexpr auto mode = RoundingMode::bankers;
  Decimal guess = value.exponent() > 2 ? value.withExponent(value.exponent() / 2) : value;
  for (int round = 0; round < 999; ++round) {
    guess = divide(add(divide(value, guess, mode), guess, mode), 2, mode);
    if (subtract(multiply(guess, guess, mode), value, mode).magnitude() < "1e-64"_dec) break;
  }
  return guess;
}
Decimal rootInAllRounds(const Decimal& value, const Decimal& degree) {
  constexpr auto mode = RoundingMode::bankers;
  Decimal guess = value;
  for (int round = 0; round < 999; ++round) {
    const Decimal share = divide(value, TCDecimalPower(guess, degree - 1), mode);
    guess = divide(add(multiply(degree - 1, guess, mode), share, mode), degree, mode);
    if (subtract(TCDecimalPower(guess, degree), value, mode).magnitude() < "1e-64"_dec) break;
  }
  return guess;
}

TEST(DecimalMath, RootsLeaveEarlyWithTheSameDigits) {
  std::vector<Decimal> values = {2, 3, 10, "0.5"_dec, "12345.678"_dec, "1e30"_dec, "1e-20"_dec, "7e37"_dec};
  for (int i = 1; i <= 60; ++i) values.push_back(Decimal(i * i * 37 + i) / (i % 7 + 1));
  for (const Decimal& value : values) {
    EXPECT_EQ(DDDecimalSqrt(value), squareRootInAllRounds(value)) << value;
    EXPECT_EQ(DDDecimalNthRoot(value, 3), rootInAllRounds(value, 3)) << value;
  }
  // The way down to a square root is partly in floating point: beside squares and powers of ten, where digits come and
  // go, from far away, and for values so small that the tolerance ends the loop.
  for (const char* digits : {"99999999999999999999999999999999999999", "10000000000000000000000000000000000001",
                             "15241578750190521", "2", "31622776601683793319988935444327", "4000000000000000000001"}) {
    for (const int exponent : {-70, -61, -50, -40, -31, -24, -7, 0, 1, 2, 3, 30, 88}) {
      const Decimal value = *Decimal::parse(digits + ("e" + std::to_string(exponent)));
      if (value < "1e-40"_dec) continue;
      EXPECT_EQ(DDDecimalSqrt(value), squareRootInAllRounds(value)) << value;
    }
  }
  for (const Decimal& degree : {"2"_dec, "5"_dec, "2.5"_dec}) {
    for (const Decimal& value : {"2"_dec, "0.3"_dec, "99"_dec}) {
      EXPECT_EQ(DDDecimalNthRoot(value, degree), rootInAllRounds(value, degree)) << value << ", root " << degree;
    }
  }
}

TEST(DecimalMath, Roots) {
  struct Case {
    Decimal value, degree, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "Roots"))
    EXPECT_EQ(DDDecimalNthRoot(c.value, c.degree), c.want) << c.value << ", root " << c.degree;
  EXPECT_EQ(DDDecimalNthRoot("1e-60"_dec, 3).rounded(30, RoundingMode::plain), "1e-20"_dec);
  // Pairs whose loops run out of rounds, or of range, on their way down.
  for (int degree = 2; degree <= 120; ++degree) {
    const Decimal root = DDDecimalNthRoot("0.5"_dec, degree);
    EXPECT_LT((TCDecimalPower(root, degree) - "0.5"_dec).magnitude(), "1e-34"_dec) << degree;
  }
  EXPECT_EQ(DDDecimalSqrt(0), 0);
  EXPECT_EQ(DDDecimalSqrt(144), 12);
  EXPECT_EQ(DDDecimalSqrt("1e-100"_dec), "1e-50"_dec);
  EXPECT_EQ(DDDecimalSqrt("2.25e-66"_dec).rounded(60, RoundingMode::plain), "1.5e-33"_dec);
  EXPECT_EQ(DDDecimalSqrt("1e164"_dec), "1e82"_dec);
  EXPECT_EQ(DDDecimalSqrt(2), "1.4142135623730950488016887242096980786"_dec);
  EXPECT_EQ(DDDecimalSqrt(-4), kNaN);
}

TEST(DecimalMath, Factorials) {
  struct Case {
    Decimal value, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "Factorials"))
    EXPECT_EQ(DDDecimalFactorial(c.value), c.want) << c.value;
  EXPECT_FALSE(DDDecimalFactorial(103).isNaN());
  // The gamma function, through floating point.
  EXPECT_EQ(DDDecimalFactorial("0.5"_dec).rounded(13, RoundingMode::plain), "0.8862269254528"_dec);
  EXPECT_EQ(DDDecimalFactorial("-1.5"_dec).rounded(13, RoundingMode::plain), "-3.5449077018110"_dec);
}

TEST(DecimalMath, Logarithms) {
  EXPECT_EQ(DDDecimalNthLog(1, 10), 0);
  EXPECT_EQ(DDDecimalNthLog(8, 2).rounded(14, RoundingMode::plain), 3);
  EXPECT_EQ(DDDecimalNthLog(1000, 10).rounded(14, RoundingMode::plain), 3);
  // A logarithm that is infinite or not a number counts as 0.
  EXPECT_EQ(DDDecimalNthLog(0, 10), 0);
  EXPECT_EQ(DDDecimalNthLog(-5, 10), 0);
  EXPECT_EQ(DDDecimalNthLog(5, 1), kNaN);
}

TEST(DecimalMath, FunctionsByName) {
  for (int i = 0; i < kMathFunctionCount; ++i) {
    const auto function = static_cast<MathFunction>(i);
    EXPECT_EQ(mathFunctionFromRawValue(rawValue(function)), function);
  }
  EXPECT_EQ(rawValue(MathFunction::assert_), "assert");
  EXPECT_EQ(rawValue(MathFunction::cosd), "cosd");
  EXPECT_EQ(mathFunctionFromRawValue("bankersRound"), MathFunction::bankersRound);
  for (const std::string_view name : {"", "Sin", "bankersround", "sinx", "assert_"}) {
    EXPECT_FALSE(mathFunctionFromRawValue(name).has_value()) << name;
  }
}

TEST(DecimalMath, Functions) {
  struct Case {
    std::string_view function;
    Decimal argument;
    std::optional<std::string_view> want;  // to 14 places
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "Functions")) {
    const auto value = MathFunctionsCalculator::evaluate(mathFunctionFromRawValue(c.function).value(), c.argument);
    ASSERT_EQ(value.has_value(), c.want.has_value()) << c.function << " " << c.argument;
    if (!value) continue;
    EXPECT_EQ(value->rounded(14, RoundingMode::plain).description(), *c.want) << c.function;
  }
}

TEST(DecimalMath, FractionalParts) {
  EXPECT_EQ(fractionalNumberComponent("7.25"_dec), "0.25"_dec);
  EXPECT_EQ(fractionalNumberComponent("-7.25"_dec), "0.75"_dec);
  EXPECT_EQ(fractionalNumberComponent("1e100"_dec), 0);
  EXPECT_TRUE(needsSiFormatting(-1000, 1000));
  EXPECT_FALSE(needsSiFormatting(999, 1000));
  EXPECT_FALSE(needsSiFormatting(0, 0));
}

TEST(DecimalMath, Fractions) {
  struct Case {
    Decimal value;
    std::string_view want;  // empty: none
    std::string_view character;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalMathTests", "Fractions")) {
    const auto fraction = fractionDescription(c.value);
    EXPECT_EQ(fraction ? fraction->formattedProperFraction() : "", c.want) << c.value;
    EXPECT_EQ(fraction ? fraction->vulgarFractionCharacter().value_or("") : "", c.character) << c.value;
  }
}

// Whatever the arguments: an answer, and soon.
TEST(DecimalMath, ExtremeArgumentsEndQuickly) {
  const Decimal extremes[] = {kNaN,
                              0,
                              1,
                              -1,
                              "0.5"_dec,
                              "-0.5"_dec,
                              "1e164"_dec,
                              "-1e164"_dec,
                              "1e-128"_dec,
                              "-1e-128"_dec,
                              "1e18"_dec,
                              "99999999999999999999.9"_dec,
                              Decimal::greatestFiniteMagnitude(),
                              "1.0000000000000000000000000000000000001"_dec};
  const auto start = std::chrono::steady_clock::now();
  int answers = 0;
  for (const Decimal& a : extremes) {
    static_cast<void>(fractionDescription(a));
    for (int i = 0; i < kMathFunctionCount; ++i) {
      const auto function = static_cast<MathFunction>(i);
      if (function == MathFunction::assert_ || function == MathFunction::fromunix) continue;
      answers += MathFunctionsCalculator::evaluate(function, a).has_value() ? 1 : 0;
    }
    for (const Decimal& b : extremes) {
      static_cast<void>(TCDecimalPower(a, b));
      static_cast<void>(DDDecimalMod(a, b));
      static_cast<void>(DDDecimalNthRoot(a, b));
      static_cast<void>(DDDecimalNthLog(a, b));
    }
  }
  EXPECT_GT(answers, 100);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tavrine::foundation
