#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"

/// The mathematics that decimals themselves don't have. What has an exact or convergent decimal algorithm is done in
/// decimals with banker's rounding; transcendental functions go through 64-bit floating point (15 to 17 good digits)
/// and come back with a guard for values that aren't finite. Nothing here throws or loops long, whatever the argument.
namespace tavrine::foundation {

using literals::operator""_dec;

inline constexpr Decimal kPi = "3.1415926535897932384626433832795028842"_dec;
inline constexpr Decimal kE = "2.7182818284590452353602874713526624978"_dec;

/// Above it a modulus is no longer trusted.
inline constexpr Decimal largestPreciseNonDarwinDecimal = "1e34"_dec;
/// Default thresholds for abbreviations such as "1.5M".
inline constexpr Decimal largestSIDecimal = "1e14"_dec;
inline constexpr Decimal smallestSIDecimal = "1e-6"_dec;

enum class PowerCalculationError : std::uint8_t { overflow, underflow, noError };

/// The value is not a number when there is an error.
struct PowerResult {
  Decimal value;
  PowerCalculationError error = PowerCalculationError::noError;
};

/// `base` to a whole power by squaring and multiplying, with the range checked at every product. Takes as many steps
/// as the power has bits, or fewer.
PowerResult calculatePower(const Decimal& base, std::uint64_t power, RoundingMode mode);

/// `base` to a whole power, every product rounded in mode `plain`; 1 for power 0. Where the range is left at either
/// end, and for a negative power of 0, the result is not a number. A negative power divides 1 by the positive one.
Decimal pow(const Decimal& base, std::int64_t power);

/// `base` to any power. Anything to the power 0 is 1. A whole power is computed in decimals; a fractional one in
/// floating point, so that a negative base has none (not a number). Overflow and underflow give not a number.
Decimal TCDecimalPower(const Decimal& base, const Decimal& power);

/// pi * 2.
Decimal DDDecimal2Pi();

/// a - b * floor(a / b): takes the sign of `b`. Not a number for a divisor of 0.
Decimal DDDecimalMod(const Decimal& a, const Decimal& b);

/// Newton's square root: 38 digits, fewer (but 30) below 1e-40. Callers reject negative arguments first (they give not
/// a number here).
Decimal DDDecimalSqrt(const Decimal& value);

/// Newton's root of any degree; a degree that isn't whole is worked out in floating point. An even root of a negative
/// number is not a number, and neither is the 0th root.
Decimal DDDecimalNthRoot(const Decimal& value, const Decimal& degree);

Decimal DDDecimalAbsoluteValue(const Decimal& value);

/// The logarithm through floating point; a logarithm that isn't a normal floating-point number counts as 0.
Decimal DDDecimalNthLog(const Decimal& value, const Decimal& base);

/// n! of the magnitude of a whole number, and gamma(x + 1) of any other. Not a number where it overflows.
Decimal DDDecimalFactorial(const Decimal& value);

/// The functions that are written with their name and an argument. The order is fixed.
enum class MathFunction : std::uint8_t {
  assert_,
  unitstrip,
  fromunix,
  sqrt,
  cbrt,
  ceil,
  floor,
  round,
  bankersRound,
  abs,
  exp,
  log,
  ln,
  log10,
  log2,
  fact,
  sin,
  sind,
  sinh,
  asin,
  asinh,
  cos,
  cosh,
  cosd,
  acos,
  acosh,
  atan,
  atanh,
  tan,
  tanh,
};
inline constexpr int kMathFunctionCount = 30;

/// The name as the user types it: "bankersRound".
std::string_view rawValue(MathFunction function);
/// The function of that name, letter case included.
std::optional<MathFunction> mathFunctionFromRawValue(std::string_view name);

class MathFunctionsCalculator {
 public:
  /// Absent where a floating-point function has no finite value. Angles are radians, for `sind` and `cosd` too: the
  /// caller has turned degrees into radians. `assert` and `fromunix` give no decimal and must not be asked for here.
  static std::optional<Decimal> evaluate(MathFunction function, const Decimal& value);
};

/// The value minus its floor: never negative.
Decimal fractionalNumberComponent(const Decimal& value);

/// The multiple of `step` that is nearest to the value, half away from zero: 37 to the nearest 10 is 40. Not-a-number
/// for a step of 0.
Decimal roundedToNearest(const Decimal& value, const Decimal& step);

/// Whether the magnitude has reached the threshold; never for 0.
bool needsSiFormatting(const Decimal& value, const Decimal& upperThreshold);

/// A fraction between 0 and 1, such as 3/8.
struct FractionDescription {
  std::int64_t numerator = 0;
  std::int64_t denominator = 1;

  /// "3/8".
  std::string formattedProperFraction() const;
  /// "⅜", for the halves to sixths and the eighths that have a character of their own.
  std::optional<std::string> vulgarFractionCharacter() const;

  friend bool operator==(const FractionDescription&, const FractionDescription&) = default;
};

/// A fraction that has a character of its own.
struct VulgarFraction {
  FractionDescription fraction;
  std::string_view character;
};
std::span<const VulgarFraction> vulgarFractions();

/// The fractional part as a fraction with a denominator of at most 2000, if it is within 1e-15 of one (weighed by the
/// square of the denominator). None for negative numbers and for those without a fractional part.
std::optional<FractionDescription> fractionDescription(const Decimal& value);

}  // namespace tavrine::foundation
