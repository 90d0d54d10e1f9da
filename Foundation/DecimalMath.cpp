#include "Foundation/DecimalMath.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>

namespace tavrine::foundation {
namespace {

constexpr auto kBankers = RoundingMode::bankers;
constexpr Decimal kConvergenceTolerance = "1e-64"_dec;
constexpr int kIterationLimit = 999;
constexpr Decimal kLeastForSkipping = "1e-40"_dec;  // well above the tolerance

bool leavesRange(CalculationError error) {
  return error == CalculationError::underflow || error == CalculationError::overflow;
}

// A whole power as a count. Beyond 63 bits only its parity matters: every base but 0, 1 and -1 has left the range long
// before, as far as 38 digits can tell.
std::uint64_t wholePower(const Decimal& power) {
  constexpr auto kLimit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const std::uint64_t count = power.magnitude().uint64Value();
  if (count < kLimit) return count;
  const bool isOdd = power.exponent() == 0 && (power.mantissa() & 1) != 0;
  return isOdd ? kLimit : kLimit - 1;
}

// Powers of what lies between 0 and 1 are rounded without bias, since they are usually long.
RoundingMode modeOfWholePower(const Decimal& base) {
  const bool isPositive = !base.isSignMinus() && !base.isZero() && !base.isNaN();
  const bool isBelowOne = decimalDigits(base.mantissa()) + base.exponent() <= 0;
  return isPositive && isBelowOne ? kBankers : RoundingMode::plain;
}

// A power that is applied to many bases.
class Power {
 public:
  explicit Power(const Decimal& power) : power_(power), isWhole_(power.isWhole()) {
    if (isWhole_) count_ = wholePower(power);
  }

  Decimal operator()(const Decimal& base) const {
    if (power_.isZero()) return 1;
    if (power_.isNaN()) return Decimal::nan();
    if (!isWhole_) return Decimal::fromDouble(std::pow(base.doubleValue(), power_.doubleValue()));
    if (power_.isSignMinus()) {
      const PowerResult inverse = calculatePower(base, count_, kBankers);
      return inverse.error == PowerCalculationError::noError ? divide(1, inverse.value, kBankers) : Decimal::nan();
    }
    return calculatePower(base, count_, modeOfWholePower(base)).value;
  }

 private:
  Decimal power_;
  bool isWhole_;
  std::uint64_t count_ = 0;
};

// Newton's method with a tolerance that 38 digits often can't reach runs to its limit. But a step is a pure function of
// the value it starts from: once a value comes back, what follows is a cycle, and where the limit falls in it is known.
class CycleWatch {
 public:
  CycleWatch(const Decimal& start, int round)
      : previous_(start), beforePrevious_(start), anchor_(start), anchorRound_(round) {}

  // After `round` rounds (counted from 1) have led to `value`: how many more lead to the value that all would end with.
  // Absent as long as no value has come back.
  std::optional<int> roundsLeft(const Decimal& value, int round) {
    const int left = kIterationLimit - round;
    if (value == previous_) return 0;
    if (value == beforePrevious_) return left % 2;
    if (value == anchor_) return left % (round - anchorRound_);
    if (round >= 2 * anchorRound_) {
      anchor_ = value;
      anchorRound_ = round;
    }
    beforePrevious_ = previous_;
    previous_ = value;
    return std::nullopt;
  }

 private:
  Decimal previous_;
  Decimal beforePrevious_;
  Decimal anchor_;
  int anchorRound_;
};

// The magnitude to a few digits, at a fraction of the cost of the true one.
double roughly(const Decimal& value) {
  static constexpr auto kPowers = [] {
    std::array<double, 256> powers{};  // 10^-128 to 10^127
    powers[128] = 1;
    for (std::size_t i = 128; i + 1 < powers.size(); ++i) powers[i + 1] = powers[i] * 10;
    for (std::size_t i = 128; i > 0; --i) powers[i - 1] = powers[i] / 10;
    return powers;
  }();
  const double mantissa =
      static_cast<double>(highWord(value.mantissa())) * 0x1p64 + static_cast<double>(lowWord(value.mantissa()));
  return mantissa * kPowers[static_cast<std::size_t>(value.exponent() + 128)];
}

bool isWithinTolerance(const Decimal& power, const Decimal& value) {
  const Decimal difference = subtract(power, value, kBankers).magnitude();
  return difference < kConvergenceTolerance && !difference.isNaN();
}

// A guess, and how many rounds of Newton's method have led to it.
struct Approach {
  Decimal guess;
  int rounds = 0;
};

// The rounds towards a square root that lead from `start` to within a thousandth of it, in floating point. Each round
// from there on squares the distance, and with it what was rounded here; and next to the root a round gives the same
// for every guess, since the guess and its share of the value are added without a loss. So no digit of the root shows
// it. That holds as long as the tolerance is out of reach of all but the root. (Roots of other degrees depend on the
// last digits of the guesses on the way.)
Approach approachInFloatingPoint(const Decimal& value, const Decimal& start) {
  constexpr Decimal kLeast = "1e-24"_dec;
  constexpr int kUsefulRounds = 400;
  if (value < kLeast) return {start};
  const double magnitude = value.doubleValue();
  const double root = std::sqrt(magnitude);
  double guess = start.doubleValue();
  int rounds = 0;
  for (; !(std::abs(guess - root) <= 1e-3 * root); ++rounds) {
    if (rounds == kUsefulRounds) return {start};
    guess = (magnitude / guess + guess) / 2;
  }
  if (rounds == 0) return {start};
  return {Decimal::fromDouble(guess), rounds};
}

// Newton's method for a root of `value`. `lowerPower(guess)` is the guess to the degree less one, from which
// `step(guess, lower)` makes the next guess and `power(guess, lower)` the guess to the degree.
//
// With `movesFromAbove` the degree is whole and at least 2, and the value not tiny: then a step that moved the guess by
// more than a thousandth has left it above the root by 4e-7 of it or more, and needs no test against the tolerance.
template <class LowerPower, class Step, class Power>
Decimal newton(const Decimal& value, const Approach& start, bool movesFromAbove, const LowerPower& lowerPower,
               const Step& step, const Power& power) {
  Decimal guess = start.guess;
  CycleWatch watch(guess, start.rounds);
  int lastRound = kIterationLimit;
  Decimal lower = lowerPower(guess);
  for (int round = start.rounds + 1; round <= lastRound; ++round) {
    const double before = movesFromAbove ? roughly(guess) : 0;
    guess = step(guess, lower);
    lower = lowerPower(guess);
    if (movesFromAbove && !guess.isNaN()) {
      const double after = roughly(guess);
      if (std::abs(after - before) > 1e-3 * after) continue;
    }
    if (isWithinTolerance(power(guess, lower), value)) break;
    if (lastRound < kIterationLimit) continue;  // inside the cycle
    if (const std::optional<int> left = watch.roundsLeft(guess, round)) lastRound = round + *left;
  }
  return guess;
}

// What floating point takes for the root.
Decimal estimatedRoot(const Decimal& value, const Decimal& degree) {
  const double estimate = std::pow(value.magnitude().doubleValue(), 1 / degree.doubleValue());
  const Decimal root = Decimal::fromDouble(estimate);
  return value.isSignMinus() ? root.negated() : root;
}

bool isNear(const Decimal& root, const Decimal& estimate) {
  const Decimal distance = subtract(root, estimate, kBankers).magnitude();
  return !distance.isNaN() && distance <= multiply(estimate.magnitude(), "1e-6"_dec, kBankers);
}

// Zero for what isn't a normal floating-point number.
Decimal decimalFromLogarithm(double logarithm) {
  return std::isnormal(logarithm) ? Decimal::fromDouble(logarithm) : Decimal();
}

std::optional<Decimal> finiteDecimal(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  return Decimal::fromDouble(value);
}

}  // namespace

// ------------------------------------------------------------------------------------------------ powers

PowerResult calculatePower(const Decimal& base, std::uint64_t power, RoundingMode mode) {
  if (base.isNaN()) return {base, PowerCalculationError::overflow};
  if (power == 0) return {1};
  Decimal result = 1, square = base;
  CalculationError error = CalculationError::noError;
  const auto failure = [&error]() -> PowerResult {
    return {Decimal::nan(),
            error == CalculationError::underflow ? PowerCalculationError::underflow : PowerCalculationError::overflow};
  };
  for (bool isFirst = true;; power >>= 1) {
    if ((power & 1) != 0) {
      result = isFirst ? square : multiply(result, square, mode, error);
      if (leavesRange(error)) return failure();
      isFirst = false;
    }
    if (power <= 1) return {result};
    square = multiply(square, square, mode, error);
    if (leavesRange(error)) return failure();
  }
}

Decimal pow(const Decimal& base, std::int64_t power) {
  if (power >= 0) return calculatePower(base, static_cast<std::uint64_t>(power), RoundingMode::plain).value;
  return Decimal(1) /
         calculatePower(base, std::uint64_t{0} - static_cast<std::uint64_t>(power), RoundingMode::plain).value;
}

Decimal TCDecimalPower(const Decimal& base, const Decimal& power) { return Power(power)(base); }

// ------------------------------------------------------------------------------------------------ roots

Decimal DDDecimalSqrt(const Decimal& value) {
  if (value.isZero()) return {};
  if (value.isNaN() || value.isSignMinus()) return Decimal::nan();
  // Half the exponent brings large values near their root at once. The tolerance would take any small guess for the
  // root of a tiny value, so there the first guess has to be a good one.
  const Decimal start = value < kLeastForSkipping ? estimatedRoot(value, 2)
                        : value.exponent() > 2    ? value.withExponent(value.exponent() / 2)
                                                  : value;
  const auto itself = [](const Decimal& guess) { return guess; };
  const auto step = [&value](const Decimal& guess, const Decimal&) {
    const Decimal sum = add(divide(value, guess, kBankers), guess, kBankers);
    return multiply(sum, "0.5"_dec, kBankers);  // cheaper than the division by 2, and the same
  };
  const auto square = [](const Decimal& guess, const Decimal&) { return multiply(guess, guess, kBankers); };
  return newton(value, approachInFloatingPoint(value, start), value >= kLeastForSkipping, itself, step, square);
}

Decimal DDDecimalNthRoot(const Decimal& value, const Decimal& degree) {
  if (value.isZero()) return {};
  if (value.isNaN() || degree.isNaN() || degree.isZero()) return Decimal::nan();
  const bool isOddDegree = degree.isWhole() && degree.exponent() == 0 && (degree.mantissa() & 1) != 0;
  if (value.isSignMinus() && !isOddDegree) return Decimal::nan();
  const Decimal oneLess = subtract(degree, 1, kBankers);
  const Power power(degree), powerOfOneLess(oneLess);
  const auto step = [&](const Decimal& guess, const Decimal& lower) {
    const Decimal kept = multiply(oneLess, guess, kBankers);
    return divide(add(kept, divide(value, lower, kBankers), kBankers), degree, kBankers);
  };
  // Where the power of one less is a chain of squares only, the last product is all that the full power adds.
  const bool isOneProductMore = degree >= 2 && degree <= 5 && degree != 4 && degree.isWhole();
  const auto fullPower = [&](const Decimal& guess, const Decimal& lower) {
    if (!isOneProductMore) return power(guess);
    CalculationError error;
    const Decimal product = multiply(lower, guess, modeOfWholePower(guess), error);
    return error == CalculationError::underflow ? Decimal::nan() : product;
  };
  const bool movesFromAbove = degree >= 2 && degree.isWhole() && value.magnitude() >= kLeastForSkipping;
  const auto rootFrom = [&](const Decimal& start) {
    return newton(value, {start}, movesFromAbove, powerOfOneLess, step, fullPower);
  };
  // From the value itself the powers may leave the range, or the way may be too long: the first step from 0.5 towards
  // its 30th root leads to ten millions. Then the search starts where floating point sees the root.
  const Decimal estimate = estimatedRoot(value, degree);
  if (!power(value).isNaN()) {
    const Decimal root = rootFrom(value);
    if (isNear(root, estimate)) return root;
  }
  return rootFrom(estimate);
}

// ------------------------------------------------------------------------------------------------ other arithmetic

Decimal DDDecimal2Pi() { return multiply(kPi, 2, kBankers); }

Decimal DDDecimalMod(const Decimal& a, const Decimal& b) {
  const Decimal quotient = divide(a, b, kBankers).rounded(0, RoundingMode::down);
  return subtract(a, multiply(quotient, b, kBankers), kBankers);
}

Decimal DDDecimalAbsoluteValue(const Decimal& value) { return value.magnitude(); }

Decimal DDDecimalNthLog(const Decimal& value, const Decimal& base) {
  return divide(decimalFromLogarithm(std::log(value.doubleValue())), decimalFromLogarithm(std::log(base.doubleValue())),
                kBankers);
}

Decimal DDDecimalFactorial(const Decimal& value) {
  if (value.isNaN()) return value;
  if (!value.isWhole()) return Decimal::fromDouble(std::tgamma(value.doubleValue() + 1));
  Decimal result = 1;
  // Ends by overflow after about a hundred rounds, however large the value.
  for (Decimal factor = value.magnitude(); factor > 1; factor = subtract(factor, 1, kBankers)) {
    CalculationError error;
    result = multiply(result, factor, kBankers, error);
    if (error == CalculationError::overflow) return Decimal::nan();
  }
  return result;
}

Decimal fractionalNumberComponent(const Decimal& value) { return value - value.rounded(0, RoundingMode::down); }

Decimal roundedToNearest(const Decimal& value, const Decimal& step) {
  return (value / step).rounded(0, RoundingMode::plain) * step;
}

bool needsSiFormatting(const Decimal& value, const Decimal& upperThreshold) {
  return !value.isZero() && !value.isNaN() && value.magnitude() >= upperThreshold;
}

// ------------------------------------------------------------------------------------------------ named functions

namespace {

constexpr auto kMathFunctionNames = std::to_array<std::string_view>({
    "assert", "unitstrip", "fromunix", "sqrt",  "cbrt", "ceil",  "floor", "round", "bankersRound", "abs",
    "exp",    "log",       "ln",       "log10", "log2", "fact",  "sin",   "sind",  "sinh",         "asin",
    "asinh",  "cos",       "cosh",     "cosd",  "acos", "acosh", "atan",  "atanh", "tan",          "tanh",
});
static_assert(kMathFunctionNames.size() == kMathFunctionCount);
static_assert(static_cast<int>(MathFunction::tanh) == kMathFunctionCount - 1);

}  // namespace

std::string_view rawValue(MathFunction function) { return kMathFunctionNames[static_cast<std::size_t>(function)]; }

std::optional<MathFunction> mathFunctionFromRawValue(std::string_view name) {
  const auto found = std::find(kMathFunctionNames.begin(), kMathFunctionNames.end(), name);
  if (found == kMathFunctionNames.end()) return std::nullopt;
  return static_cast<MathFunction>(found - kMathFunctionNames.begin());
}

std::optional<Decimal> MathFunctionsCalculator::evaluate(MathFunction function, const Decimal& value) {
  const auto inFloatingPoint = [&value](double (*work)(double)) { return finiteDecimal(work(value.doubleValue())); };
  switch (function) {
    case MathFunction::assert_:
      assert(false &&
             "This should be handled earlier, as it performs a comparison, and this method returns only decimals");
      return std::nullopt;
    case MathFunction::fromunix:
      assert(false && "This should be handled earlier, as it returns a date, and this method returns only decimals");
      return std::nullopt;
    case MathFunction::unitstrip:
      return value;
    case MathFunction::sqrt:
      return DDDecimalSqrt(value);
    case MathFunction::cbrt:
      return DDDecimalNthRoot(value, 3);
    case MathFunction::ceil:
      return value.rounded(0, RoundingMode::up);
    case MathFunction::floor:
      return value.rounded(0, RoundingMode::down);
    case MathFunction::round:
      return value.rounded(0, RoundingMode::plain);
    case MathFunction::bankersRound:
      return value.rounded(0, RoundingMode::bankers);
    case MathFunction::abs:
      return DDDecimalAbsoluteValue(value);
    case MathFunction::exp:
      return TCDecimalPower(kE, value);
    case MathFunction::log:
    case MathFunction::log10:
      return DDDecimalNthLog(value, 10);
    case MathFunction::ln:
      return decimalFromLogarithm(std::log(value.doubleValue()));
    case MathFunction::log2:
      return DDDecimalNthLog(value, 2);
    case MathFunction::fact:
      return DDDecimalFactorial(value);
    case MathFunction::sin:
    case MathFunction::sind:
      return inFloatingPoint(std::sin);
    case MathFunction::sinh:
      return inFloatingPoint(std::sinh);
    case MathFunction::asin:
      return inFloatingPoint(std::asin);
    case MathFunction::asinh:
      return inFloatingPoint(std::asinh);
    case MathFunction::cos:
    case MathFunction::cosd:
      return inFloatingPoint(std::cos);
    case MathFunction::cosh:
      return inFloatingPoint(std::cosh);
    case MathFunction::acos:
      return inFloatingPoint(std::acos);
    case MathFunction::acosh:
      return inFloatingPoint(std::acosh);
    case MathFunction::atan:
      return inFloatingPoint(std::atan);
    case MathFunction::atanh:
      return inFloatingPoint(std::atanh);
    case MathFunction::tan:
      return inFloatingPoint(std::tan);
    case MathFunction::tanh:
      return inFloatingPoint(std::tanh);
  }
  return std::nullopt;
}

// ------------------------------------------------------------------------------------------------ fractions

namespace {

constexpr double kFractionPrecision = 1e-15;
constexpr std::int64_t kGreatestDenominator = 2000;

// The convergents of the continued fraction of x, 0 <= x <= 1, until one is near enough. The bound on the rest keeps
// every quotient below 1e15 and the denominator below 1e16, so that nothing here overflows.
FractionDescription continuedFraction(double x) {
  const double whole = std::floor(x);
  std::int64_t numerator = static_cast<std::int64_t>(whole), denominator = 1;
  std::int64_t lastNumerator = 1, lastDenominator = 0;
  double rest = x - whole;
  for (;;) {
    const auto k = static_cast<double>(denominator);
    if (!(rest > kFractionPrecision * k * k)) break;
    const double inverse = 1 / rest;
    const double floorOfInverse = std::floor(inverse);
    const auto quotient = static_cast<std::int64_t>(floorOfInverse);
    const std::int64_t nextNumerator = quotient * numerator + lastNumerator;
    const std::int64_t nextDenominator = quotient * denominator + lastDenominator;
    lastNumerator = numerator;
    lastDenominator = denominator;
    numerator = nextNumerator;
    denominator = nextDenominator;
    rest = inverse - floorOfInverse;
  }
  return {numerator, denominator};
}

constexpr auto kVulgarFractions = std::to_array<VulgarFraction>({
    {{1, 2}, "½"},
    {{1, 3}, "⅓"},
    {{2, 3}, "⅔"},
    {{1, 4}, "¼"},
    {{3, 4}, "¾"},
    {{1, 5}, "⅕"},
    {{2, 5}, "⅖"},
    {{3, 5}, "⅗"},
    {{4, 5}, "⅘"},
    {{1, 6}, "⅙"},
    {{5, 6}, "⅚"},
    {{1, 8}, "⅛"},
    {{3, 8}, "⅜"},
    {{5, 8}, "⅝"},
    {{7, 8}, "⅞"},
});

}  // namespace

std::optional<FractionDescription> fractionDescription(const Decimal& value) {
  if (value.isNaN() || value.isSignMinus()) return std::nullopt;
  const FractionDescription fraction = continuedFraction(fractionalNumberComponent(value).doubleValue());
  if (fraction.denominator > kGreatestDenominator || fraction.numerator < 1) return std::nullopt;
  return fraction;
}

std::span<const VulgarFraction> vulgarFractions() { return kVulgarFractions; }

std::string FractionDescription::formattedProperFraction() const {
  return std::to_string(numerator) + "/" + std::to_string(denominator);
}

std::optional<std::string> FractionDescription::vulgarFractionCharacter() const {
  for (const VulgarFraction& row : kVulgarFractions) {
    if (row.fraction == *this) return std::string(row.character);
  }
  return std::nullopt;
}

}  // namespace tavrine::foundation
