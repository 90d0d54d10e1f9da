#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <unordered_set>
#include <vector>

#include "Foundation/Decimal.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

using namespace literals;
using enum RoundingMode;
using enum CalculationError;

constexpr auto kModes = std::to_array({plain, down, up, bankers});

Decimal D(std::string_view text) { return Decimal::parse(text).value(); }

// ------------------------------------------------------------------------------------------------ the oracle

// Schoolbook numbers in base 10, the lowest digit first: slow, and too simple to be wrong in the way the real ones are.
class Natural {
 public:
  Natural() = default;
  explicit Natural(std::string_view digits) {
    for (auto c = digits.rbegin(); c != digits.rend(); ++c) digits_.push_back(*c - '0');
    trim();
  }

  bool isZero() const { return digits_.empty(); }
  int size() const { return static_cast<int>(digits_.size()); }
  int digit(int place) const { return place < size() ? digits_[static_cast<std::size_t>(place)] : 0; }

  Natural shifted(int places) const {  // times 10^places
    Natural result = *this;
    if (!isZero()) result.digits_.insert(result.digits_.begin(), static_cast<std::size_t>(places), 0);
    return result;
  }
  // The number without its lowest digits, and whether they were all zero.
  Natural cut(int places, bool& wasExact) const {
    Natural result = *this;
    const auto count = std::min(digits_.size(), static_cast<std::size_t>(places));
    const auto end = result.digits_.begin() + static_cast<std::ptrdiff_t>(count);
    wasExact = std::all_of(result.digits_.begin(), end, [](int d) { return d == 0; });
    result.digits_.erase(result.digits_.begin(), end);
    return result;
  }

  static int compare(const Natural& a, const Natural& b) {
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    for (int i = a.size() - 1; i >= 0; --i) {
      if (a.digit(i) != b.digit(i)) return a.digit(i) < b.digit(i) ? -1 : 1;
    }
    return 0;
  }
  // a + sign * b, for a >= b where the sign is -1.
  static Natural combine(const Natural& a, const Natural& b, int sign) {
    Natural result;
    int carry = 0;
    for (int i = 0; i < std::max(a.size(), b.size()) + 1; ++i) {
      const int sum = a.digit(i) + sign * b.digit(i) + carry;
      carry = sum < 0 ? -1 : sum / 10;
      result.digits_.push_back(sum - 10 * carry);
    }
    result.trim();
    return result;
  }
  static Natural product(const Natural& a, const Natural& b) {
    Natural result;
    for (int i = 0; i < a.size(); ++i) {
      for (int times = 0; times < a.digit(i); ++times) result = combine(result, b.shifted(i), 1);
    }
    return result;
  }
  static Natural quotient(const Natural& a, const Natural& b, Natural& remainder) {
    Natural result;
    remainder = {};
    for (int i = a.size() - 1; i >= 0; --i) {
      remainder = remainder.shifted(1);
      if (a.digit(i) != 0) remainder = combine(remainder, Natural(std::to_string(a.digit(i))), 1);
      int digit = 0;
      for (; compare(remainder, b) >= 0; ++digit) remainder = combine(remainder, b, -1);
      result.digits_.insert(result.digits_.begin(), digit);
    }
    result.trim();
    return result;
  }

  std::string text() const {
    std::string result;
    for (int i = size() - 1; i >= 0; --i) result += static_cast<char>('0' + digit(i));
    return result.empty() ? "0" : result;
  }

 private:
  void trim() {
    while (!digits_.empty() && digits_.back() == 0) digits_.pop_back();
  }
  std::vector<int> digits_;
};

// An exact value, but for a fraction between 0 and 1 in the last place where `hasMore`.
struct Exact {
  Natural digits;
  int exponent = 0;
  bool isNegative = false;
  bool hasMore = false;
};

Exact exactly(const Decimal& value) {
  char digits[Decimal::kMaximumDigits];
  const int count = value.writeDigits(digits);
  return {Natural({digits, static_cast<std::size_t>(count)}), value.exponent(), value.isSignMinus()};
}

Exact sum(const Decimal& a, const Decimal& b) {
  Exact x = exactly(a), y = exactly(b);
  const int exponent = std::min(x.exponent, y.exponent);
  x.digits = x.digits.shifted(x.exponent - exponent);
  y.digits = y.digits.shifted(y.exponent - exponent);
  if (x.isNegative == y.isNegative) return {Natural::combine(x.digits, y.digits, 1), exponent, x.isNegative};
  if (Natural::compare(x.digits, y.digits) < 0) std::swap(x, y);
  return {Natural::combine(x.digits, y.digits, -1), exponent, x.isNegative};
}
Exact product(const Decimal& a, const Decimal& b) {
  const Exact x = exactly(a), y = exactly(b);
  return {Natural::product(x.digits, y.digits), x.exponent + y.exponent, x.isNegative != y.isNegative};
}
Exact quotient(const Decimal& a, const Decimal& b) {
  const Exact x = exactly(a), y = exactly(b);
  Natural remainder;
  const Natural digits = Natural::quotient(x.digits.shifted(90), y.digits, remainder);
  return {digits, x.exponent - y.exponent - 90, x.isNegative != y.isNegative, !remainder.isZero()};
}

struct Outcome {
  std::string text;  // ±digits e exponent, canonical
  CalculationError error;
  friend bool operator==(const Outcome&, const Outcome&) = default;
  friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
    return stream << outcome.text << " (error " << static_cast<int>(outcome.error) << ")";
  }
};

// Cuts to `lowestExponent` or higher, as mode and sign tell.
Natural roundTo(const Exact& value, int drop, RoundingMode mode, bool& isExact) {
  bool rest = true, wasExact = true;
  const Natural kept = value.digits.cut(drop, wasExact);
  const int next = drop > 0 ? value.digits.digit(drop - 1) : 0;
  if (drop > 0) static_cast<void>(value.digits.cut(drop - 1, rest));
  const bool moreBehindNext = !rest || value.hasMore;
  isExact = wasExact && !value.hasMore;
  bool away = false;
  switch (mode) {
    case plain:
      away = next >= 5;
      break;
    case bankers:
      away = next > 5 || (next == 5 && (moreBehindNext || kept.digit(0) % 2 == 1));
      break;
    case down:
      away = value.isNegative && !isExact;
      break;
    case up:
      away = !value.isNegative && !isExact;
      break;
  }
  return away ? Natural::combine(kept, Natural("1"), 1) : kept;
}

Outcome canonical(Natural digits, int exponent, bool isNegative, bool isExact) {
  if (digits.isZero()) return {"0e0", isExact ? noError : underflow};
  if (exponent > 127) {
    digits = digits.shifted(exponent - 127);
    exponent = 127;
  }
  for (bool wasExact = true; digits.digit(0) == 0 && exponent < 127; ++exponent) digits = digits.cut(1, wasExact);
  if (digits.size() > 38) return {"nan", overflow};
  return {std::string(isNegative ? "-" : "") + digits.text() + "e" + std::to_string(exponent),
          isExact ? noError : lossOfPrecision};
}

Outcome rounded(const Exact& value, RoundingMode mode) {
  const int drop = std::max({0, value.digits.size() - 38, -128 - value.exponent});
  bool isExact = true;
  const Natural digits = roundTo(value, drop, mode, isExact);
  return canonical(digits, value.exponent + drop, value.isNegative, isExact);
}

Outcome outcome(const Decimal& value, CalculationError error) {
  if (value.isNaN()) return {"nan", error};
  const Exact exact = exactly(value);
  return {std::string(exact.isNegative ? "-" : "") + exact.digits.text() + "e" + std::to_string(exact.exponent), error};
}

// Numbers where things go wrong: long and short, nines, a lone leading digit, ties, the ends of the range.
Decimal randomDecimal(std::mt19937_64& random) {
  const int count = 1 + static_cast<int>(random() % (random() % 3 == 0 ? 12 : 38));
  const auto style = random() % 8;
  std::string text = random() % 2 == 0 ? "-" : "";
  for (int i = 0; i < count; ++i) {
    const auto any = random() % 10;
    const auto digit = style == 0   ? (random() % 4 == 0 ? any : 0)
                       : style == 1 ? 9
                       : style == 2 ? (i == 0 ? 1 : 0)
                                    : any;
    text += static_cast<char>('0' + digit);
  }
  if (style == 3) text.back() = '5';
  const int exponent =
      random() % 4 == 0 ? static_cast<int>(random() % 256) - 128 : static_cast<int>(random() % 60) - 45;
  return D(text + "e" + std::to_string(exponent));
}

TEST(Decimal, AgreesWithExactArithmetic) {
  std::mt19937_64 random(20250101);
  constexpr int kRounds = 2000;
  std::array<int, 5> seen{};
  for (int i = 0; i < kRounds; ++i) {
    const Decimal a = randomDecimal(random);
    const Decimal b = random() % 16 == 0 ? a + a * "1e-37"_dec : randomDecimal(random);
    if (a.isNaN() || b.isNaN()) continue;
    const RoundingMode mode = kModes[random() % kModes.size()];
    const std::string what = a.description() + " and " + b.description() + ", mode " + std::to_string(int(mode));
    CalculationError error;
    Decimal result = add(a, b, mode, error);
    EXPECT_EQ(outcome(result, error), rounded(sum(a, b), mode)) << "+ " << what;
    ++seen[static_cast<std::size_t>(error)];
    result = subtract(a, b, mode, error);
    EXPECT_EQ(outcome(result, error), rounded(sum(a, -b), mode)) << "- " << what;
    ++seen[static_cast<std::size_t>(error)];
    result = multiply(a, b, mode, error);
    EXPECT_EQ(outcome(result, error), rounded(product(a, b), mode)) << "* " << what;
    ++seen[static_cast<std::size_t>(error)];
    if (!b.isZero()) {
      result = divide(a, b, mode, error);
      EXPECT_EQ(outcome(result, error), rounded(quotient(a, b), mode)) << "/ " << what;
      ++seen[static_cast<std::size_t>(error)];
    }
    const Exact difference = sum(a, -b);
    const int order = difference.digits.isZero() ? 0 : difference.isNegative ? -1 : 1;
    EXPECT_EQ(a < b, order < 0) << what;
    EXPECT_EQ(a == b, order == 0) << what;
    if (HasFailure()) return;
  }
  // The numbers above do reach the ends.
  for (const CalculationError error : {noError, lossOfPrecision, underflow, overflow}) {
    EXPECT_GT(seen[static_cast<std::size_t>(error)], 20) << static_cast<int>(error);
  }
}

TEST(Decimal, RoundsToAScaleAsExactArithmeticDoes) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 4000 && !HasFailure(); ++i) {
    const Decimal value = randomDecimal(random);
    const int scale = static_cast<int>(random() % 50) - 10;
    const RoundingMode mode = kModes[random() % kModes.size()];
    const Exact exact = exactly(value);
    const int drop = std::max(0, -exact.exponent - scale);
    bool isExact = true;
    const Natural digits = roundTo(exact, drop, mode, isExact);
    const Outcome want = canonical(digits, exact.exponent + drop, exact.isNegative, true);
    EXPECT_EQ(outcome(value.rounded(scale, mode), want.error), want)
        << value << " to " << scale << ", mode " << static_cast<int>(mode);
  }
}

// The division by powers of ten goes by multiplication; the general one is checked by the numbers above.
TEST(WideInteger, DividesByPowersOfTenAsByAnyNumber) {
  std::mt19937_64 random(23);
  const auto word = [&random] {
    // Words of ones and zeros are where corrections are due.
    const auto kind = random() % 8;
    return kind == 0 ? ~std::uint64_t{0} : kind == 1 ? std::uint64_t{0} : random() >> (random() % 64);
  };
  for (int exponent = 0; exponent <= 38; ++exponent) {
    const UInt128 power = powerOfTen(exponent);
    for (int i = 0; i < 3000; ++i) {
      UInt256 numerator{joinWords(word(), word()), joinWords(word(), word())};
      if (random() % 16 == 0) numerator.high = power - 1;
      if (random() % 16 == 0) numerator = multiplyWide(power, joinWords(word(), word()));  // without remainder
      numerator.high %= power;
      const Division128 want = divideWide(numerator, power);
      const Division128 division = divideByPowerOfTen(numerator, exponent);
      ASSERT_TRUE(division.quotient == want.quotient && division.remainder == want.remainder) << exponent;
      const UInt256 again = multiplyWide(want.quotient, power) + UInt256{0, want.remainder};
      ASSERT_TRUE(want.remainder < power && again == numerator) << exponent;
      const Division128 narrow = divideByPowerOfTen(numerator.low, exponent);
      ASSERT_TRUE(narrow.quotient == numerator.low / power && narrow.remainder == numerator.low % power) << exponent;
    }
  }
}

// ------------------------------------------------------------------------------------------------ text

TEST(Decimal, ReadsAndWritesText) {
  struct Case {
    std::string_view text, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/DecimalTests", "ReadsAndWritesText")) {
    const auto value = Decimal::parse(c.text);
    ASSERT_TRUE(value.has_value()) << c.text;
    EXPECT_EQ(value->description(), c.want) << c.text;
  }
  for (const std::string_view text : {"", "-", ".", "+.", "e5", "1e", "1e+", "1e+-5", "1e5.5", "1.2.3", "1,5", " 1",
                                      "1 ", "--1", "NaN", "0x10", "1\xFF"}) {
    EXPECT_FALSE(Decimal::parse(text).has_value()) << text;
  }
}

TEST(Decimal, ReadsMillionsOfDigitsInLinearTime) {
  const std::string zeros(2'000'000, '0'), ones(2'000'000, '1');
  EXPECT_EQ(D(zeros + "12.5" + zeros), "12.5"_dec);
  EXPECT_TRUE(D(ones).isNaN());
  EXPECT_EQ(D("0." + ones), "0.11111111111111111111111111111111111111"_dec);
  EXPECT_EQ(D("0." + zeros + "1e2000001"), 1);
  EXPECT_EQ(D("1" + zeros + "e-2000000"), 1);
}

TEST(Decimal, TextGoesThereAndBack) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 3000; ++i) {
    const Decimal value = randomDecimal(random);
    EXPECT_EQ(D(value.description()), value);
  }
  EXPECT_EQ(D(Decimal::greatestFiniteMagnitude().description()), Decimal::greatestFiniteMagnitude());
  EXPECT_EQ(D(Decimal::leastNonzeroMagnitude().description()), Decimal::leastNonzeroMagnitude());
}

// A literal is read by other code than a text.
TEST(Decimal, LiteralsAreTheNumbersTheySpell) {
  EXPECT_EQ("0.3048"_dec, D("0.3048"));
  EXPECT_EQ("-1'000.50"_dec, D("-1000.5"));
  EXPECT_EQ("99999999999999999999999999999999999999e127"_dec, Decimal::greatestFiniteMagnitude());
  EXPECT_EQ("1e-128"_dec, Decimal::leastNonzeroMagnitude());
  EXPECT_EQ("1e164"_dec, D("1e164"));
  EXPECT_EQ("0e999"_dec, 0);
}

// ------------------------------------------------------------------------------------------------ other numbers

TEST(Decimal, IntegersGoThereAndBackAndSaturate) {
  constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
  constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
  constexpr auto kHighestUnsigned = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(Decimal(kLowest).description(), "-9223372036854775808");
  EXPECT_EQ(Decimal(kHighestUnsigned).description(), "18446744073709551615");
  struct Case {
    std::string_view text;
    std::int64_t want;
    std::uint64_t wantUnsigned;
  };
  const Case cases[] = {
      {"2.9", 2, 2},
      {"-2.9", -2, 0},
      {"-0.5", 0, 0},
      {"1e18", 1'000'000'000'000'000'000, 1'000'000'000'000'000'000},
      {"9223372036854775807.9", kHighest, 9223372036854775807u},
      {"9223372036854775808", kHighest, 9223372036854775808u},
      {"-9223372036854775808", kLowest, 0},
      {"-9223372036854775809", kLowest, 0},
      {"18446744073709551615", kHighest, kHighestUnsigned},
      {"18446744073709551616", kHighest, kHighestUnsigned},
      {"1e164", kHighest, kHighestUnsigned},
      {"-1e164", kLowest, 0},
      {"1e-128", 0, 0},
      {"12345678901234567890123456789.012345678", kHighest, kHighestUnsigned},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(D(c.text).intValue(), c.want) << c.text;
    EXPECT_EQ(D(c.text).uint64Value(), c.wantUnsigned) << c.text;
  }
  EXPECT_EQ(Decimal::nan().intValue(), 0);
}

TEST(Decimal, FloatingPointIsTheShortestDecimalAndBack) {
  EXPECT_EQ(Decimal::fromDouble(0.1), "0.1"_dec);
  EXPECT_EQ(Decimal::fromDouble(-1.5e20), "-1.5e20"_dec);
  EXPECT_TRUE(Decimal::fromDouble(std::numeric_limits<double>::infinity()).isNaN());
  EXPECT_TRUE(Decimal::fromDouble(1e300).isNaN());
  EXPECT_EQ(Decimal::fromDouble(5e-324), 0);
  EXPECT_TRUE(std::isnan(Decimal::nan().doubleValue()));
  std::mt19937_64 random(5);
  for (int i = 0; i < 3000; ++i) {
    const double value =
        std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), int(random() % 300) - 180);
    EXPECT_EQ(Decimal::fromDouble(value).doubleValue(), value);
    const Decimal decimal = randomDecimal(random);
    EXPECT_EQ(decimal.doubleValue(), std::strtod(decimal.description().c_str(), nullptr)) << decimal;
  }
}

TEST(Decimal, PartsAreRoundedAndCanonical) {
  EXPECT_EQ(Decimal::fromParts(1500, -2, true), "-15"_dec);
  EXPECT_EQ(Decimal::fromParts(~UInt128{0}, 0, false), D("340282366920938463463374607431768211455"));
  EXPECT_EQ(Decimal::fromParts(1, 200, false), Decimal::nan());
  EXPECT_EQ(Decimal::fromSignExponentSignificand(false, 34, 1), "1e34"_dec);
  EXPECT_EQ(Decimal::fromSignExponentSignificand(true, -2, -7), "0.07"_dec);
  EXPECT_EQ(Decimal(100).exponent(), 2);
  EXPECT_EQ("1.50"_dec.exponent(), -1);
  EXPECT_EQ("12e6"_dec.withExponent(3), 12000);
  EXPECT_EQ("12"_dec.withExponent(1000), "12e127"_dec);
  EXPECT_EQ(Decimal(0).withExponent(5), 0);
}

// ------------------------------------------------------------------------------------------------ states

TEST(Decimal, NotANumberIsContagiousAndLowest) {
  const Decimal nan = Decimal::nan();
  CalculationError error = overflow;
  EXPECT_TRUE(add(nan, 1, plain, error).isNaN());
  EXPECT_EQ(error, noError);
  EXPECT_TRUE((nan * 0).isNaN());
  EXPECT_TRUE((1 / nan).isNaN());
  EXPECT_TRUE(nan.rounded(0, plain).isNaN());
  EXPECT_EQ(nan.negated(), nan);
  EXPECT_EQ(nan, nan);
  EXPECT_LT(nan, -Decimal::greatestFiniteMagnitude());
  EXPECT_FALSE(nan.isZero() || nan.isWhole() || nan.isSignMinus());
  EXPECT_TRUE(divide(1, 0, plain, error).isNaN());
  EXPECT_EQ(error, divideByZero);
  EXPECT_TRUE(divide(0, 0, plain, error).isNaN());
  EXPECT_EQ(error, divideByZero);
}

TEST(Decimal, ZeroHasNoSign) {
  for (const Decimal& zero : {Decimal(0).negated(), Decimal(-5) + 5, Decimal(-5) * 0, "-0.4"_dec.rounded(0, plain)}) {
    EXPECT_EQ(zero, 0);
    EXPECT_FALSE(zero.isSignMinus());
    EXPECT_TRUE(zero.isZero());
    EXPECT_EQ(zero.hash(), Decimal(0).hash());
  }
}

TEST(Decimal, HashesSpread) {
  std::unordered_set<std::size_t> hashes;
  for (int i = -5000; i < 5000; ++i) hashes.insert(std::hash<Decimal>()(Decimal(i) / 100));
  EXPECT_GT(hashes.size(), 9990u);
}

}  // namespace
}  // namespace tavrine::foundation
