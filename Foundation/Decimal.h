#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/WideInteger.h"

namespace tavrine::foundation {

/// How a result that doesn't fit is cut to size. `down` and `up` are floor and ceiling, not truncation.
enum class RoundingMode : std::uint8_t {
  plain,    ///< to the nearest, half away from zero
  down,     ///< towards minus infinity: -7.5 gives -8
  up,       ///< towards plus infinity: -7.5 gives -7
  bankers,  ///< to the nearest, half to the even digit
};

/// What happened in an operation, besides its value.
enum class CalculationError : std::uint8_t {
  noError,          ///< the result is exact, or an operand was not a number
  lossOfPrecision,  ///< the result is rounded; its value is good
  underflow,        ///< the result isn't zero, but became 0
  overflow,         ///< the result is beyond the range; its value is not a number
  divideByZero,     ///< its value is not a number, for 0 / 0 as well
};

/// A decimal number of 38 significant digits: ±mantissa × 10^exponent, with a mantissa below 10^38 and an exponent of
/// -128 to 127, or not a number. Every operation gives the correctly rounded result.
///
/// The form is canonical: the mantissa has no trailing zeros (except where the exponent would pass 127), and zero is
/// 0 × 10^0, never negative. So equality and hashing go by field, "is whole" is `exponent() >= 0`, and the exponent of
/// 100 is 2.
///
/// Order is total: not-a-number equals itself and stands below every number. Ask `isNaN()` where that matters.
class Decimal {
 public:
  /// Zero.
  constexpr Decimal() = default;

  /// The exact value of an integer. Floating-point numbers are refused here: see `fromDouble` and `_dec`.
  template <std::integral Integer>
  requires(!std::same_as<Integer, bool> && sizeof(Integer) <= sizeof(std::uint64_t)) constexpr Decimal(
      Integer value)  // NOLINT(google-explicit-constructor): a whole number is a decimal number
      : Decimal(fromInteger(
            value < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value),
            value < 0)) {}

  /// ±mantissa × 10^exponent, rounded (`plain`) where it doesn't fit; not a number beyond the range.
  static Decimal fromParts(UInt128 mantissa, int exponent, bool negative);

  /// ±significand × 10^exponent, the sign replacing none but multiplying the significand's own.
  static Decimal fromSignExponentSignificand(bool negative, int exponent, const Decimal& significand);

  /// The shortest decimal number that reads back as `value`: 0.1 gives exactly 0.1. Infinities, not-a-number and what
  /// lies beyond the range give not a number.
  static Decimal fromDouble(double value);

  /// `[+-]digits[.digits][e[+-]digits]`, the whole text or nothing; one side of the point may be empty, not both.
  /// Digits beyond 38 are rounded (`plain`), not cut. Time is linear in the length.
  static std::optional<Decimal> parse(std::string_view text);

  static constexpr Decimal nan() {
    Decimal result;
    result.isNaN_ = true;
    return result;
  }
  /// 1e-128.
  static constexpr Decimal leastNonzeroMagnitude() { return raw(1, -128, false); }
  /// 38 nines and 127 zeros.
  static constexpr Decimal greatestFiniteMagnitude() { return raw(powerOfTen(38) - 1, 127, false); }

  constexpr bool isNaN() const { return isNaN_; }
  constexpr bool isZero() const { return (low_ | high_) == 0 && !isNaN_; }
  constexpr bool isSignMinus() const { return isNegative_; }
  /// Whether this is a number without fractional part.
  constexpr bool isWhole() const { return exponent_ >= 0 && !isNaN_; }

  constexpr UInt128 mantissa() const { return joinWords(high_, low_); }
  constexpr int exponent() const { return exponent_; }

  /// The same sign and mantissa with another exponent, which is held to -128 ... 127.
  Decimal withExponent(int exponent) const;

  constexpr Decimal negated() const {
    Decimal result = *this;
    result.isNegative_ = !isNegative_ && !isZero() && !isNaN_;
    return result;
  }
  constexpr Decimal magnitude() const {
    Decimal result = *this;
    result.isNegative_ = false;
    return result;
  }
  constexpr Decimal operator-() const { return negated(); }

  /// Rounded to `scale` places after the point; a negative scale rounds to tens, hundreds...
  Decimal rounded(int scale, RoundingMode mode) const;

  /// Correctly rounded; not-a-number for not a number.
  double doubleValue() const;
  double toDouble() const { return doubleValue(); }

  /// Towards zero, held to the 64-bit limits; 0 for not a number.
  std::int64_t intValue() const;
  /// Towards zero, held to 0 ... 2^64 - 1; 0 for not a number.
  std::uint64_t uint64Value() const;

  /// Plain notation with "." and "-", never an exponent: "-0.05", "1200", "NaN".
  std::string description() const;

  /// The room that `writeDigits` needs.
  static constexpr int kMaximumDigits = 39;
  /// Writes the digits of the mantissa ("0" for zero) without a terminator and tells how many there are.
  int writeDigits(char* buffer) const;

  /// Rounded in mode `plain`; see `add`, `subtract`, `multiply` and `divide` for the other modes.
  friend Decimal operator+(const Decimal& a, const Decimal& b);
  friend Decimal operator-(const Decimal& a, const Decimal& b);
  friend Decimal operator*(const Decimal& a, const Decimal& b);
  friend Decimal operator/(const Decimal& a, const Decimal& b);
  Decimal& operator+=(const Decimal& other) { return *this = *this + other; }
  Decimal& operator-=(const Decimal& other) { return *this = *this - other; }
  Decimal& operator*=(const Decimal& other) { return *this = *this * other; }
  Decimal& operator/=(const Decimal& other) { return *this = *this / other; }

  friend constexpr bool operator==(const Decimal&, const Decimal&) = default;
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

  /// Equal numbers have equal hashes.
  constexpr std::size_t hash() const {
    const std::uint64_t flags = std::uint64_t{static_cast<std::uint8_t>(exponent_)} << 1 | std::uint64_t{isNegative_} |
                                std::uint64_t{isNaN_} << 9;
    const std::uint64_t mixed = (low_ * 0x9E3779B97F4A7C15u) ^ ((high_ + 0x7F4A7C15u) * 0xC2B2AE3D27D4EB4Fu) ^
                                ((flags + 1) * 0x165667B19E3779F9u);
    return mixed ^ mixed >> 32;
  }

  /// The exact value of a literal such as "0.3048" or "1e-6", at compile time. What isn't a number, or doesn't fit in
  /// 38 digits and the range of exponents, doesn't compile.
  static consteval Decimal literal(std::string_view text);

 private:
  friend class DecimalArithmetic;

  static constexpr Decimal raw(UInt128 mantissa, int exponent, bool negative) {
    Decimal result;
    result.low_ = lowWord(mantissa);
    result.high_ = highWord(mantissa);
    result.exponent_ = static_cast<std::int8_t>(exponent);
    result.isNegative_ = negative;
    return result;
  }
  static constexpr Decimal fromInteger(std::uint64_t mantissa, bool negative) {
    int exponent = 0;
    while (mantissa != 0 && mantissa % 10 == 0) {
      mantissa /= 10;
      ++exponent;
    }
    return raw(mantissa, exponent, negative);
  }

  std::uint64_t low_ = 0;
  std::uint64_t high_ = 0;
  std::int8_t exponent_ = 0;
  bool isNegative_ = false;
  bool isNaN_ = false;
};
static_assert(sizeof(Decimal) == 24);

/// The named operations. A not-a-number operand gives not-a-number and `noError`.
Decimal add(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error);
Decimal subtract(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error);
Decimal multiply(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error);
Decimal divide(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error);

/// The same for callers that don't ask what was lost.
Decimal add(const Decimal& a, const Decimal& b, RoundingMode mode);
Decimal subtract(const Decimal& a, const Decimal& b, RoundingMode mode);
Decimal multiply(const Decimal& a, const Decimal& b, RoundingMode mode);
Decimal divide(const Decimal& a, const Decimal& b, RoundingMode mode);

/// Takes the digits of a number one by one, however many there are, and rounds once, at the end.
class DecimalBuilder {
 public:
  /// Appends a digit, 0 to 9.
  void addDigit(unsigned digit) {
    if (digits_ < 38) {
      mantissa_ = mantissa_ * 10 + digit;
      if (mantissa_ != 0) ++digits_;
      if (isBehindPoint_) --exponent_;
      return;
    }
    if (digits_ == 38) {
      firstDropped_ = digit;
      ++digits_;
    } else {
      hasMore_ = hasMore_ || digit != 0;
    }
    if (!isBehindPoint_) ++exponent_;
  }
  /// The digits that follow stand behind the decimal point.
  void addPoint() { isBehindPoint_ = true; }
  /// The value so far × 10^exponent, rounded in mode `plain`.
  Decimal value(bool negative, long exponent = 0) const;

 private:
  UInt128 mantissa_ = 0;
  int digits_ = 0;  // significant ones; the 39th and later only count for rounding
  unsigned firstDropped_ = 0;
  bool hasMore_ = false;  // a non-zero digit behind the first dropped one
  bool isBehindPoint_ = false;
  long exponent_ = 0;
};

/// For failure messages and debuggers: the description.
std::ostream& operator<<(std::ostream& stream, const Decimal& value);

consteval Decimal Decimal::literal(std::string_view text) {
  // A throw can't be evaluated at compile time, which is what turns a bad literal into a compile error.
  std::size_t i = 0;
  const bool negative = i < text.size() && text[i] == '-';
  if (negative) ++i;
  UInt128 mantissa = 0;
  int exponent = 0;
  bool behindPoint = false, anyDigit = false;
  for (; i < text.size() && text[i] != 'e' && text[i] != 'E'; ++i) {
    if (text[i] == '.' && !behindPoint) {
      behindPoint = true;
      continue;
    }
    if (text[i] == '\'') continue;  // groups digits for the reader, as in C++ numbers
    if (text[i] < '0' || text[i] > '9') throw "not a decimal number";
    anyDigit = true;
    const auto digit = static_cast<unsigned>(text[i] - '0');
    if (mantissa > (powerOfTen(38) - 1 - digit) / 10) throw "more than 38 digits";
    mantissa = mantissa * 10 + digit;
    if (behindPoint) --exponent;
  }
  if (!anyDigit) throw "a decimal number needs a digit";
  if (i < text.size()) {
    ++i;
    const bool negativeExponent = i < text.size() && text[i] == '-';
    if (negativeExponent || (i < text.size() && text[i] == '+')) ++i;
    if (i == text.size()) throw "an exponent needs a digit";
    int shift = 0;
    for (; i < text.size(); ++i) {
      if (text[i] < '0' || text[i] > '9' || shift > 999) throw "not an exponent";
      shift = shift * 10 + (text[i] - '0');
    }
    exponent += negativeExponent ? -shift : shift;
  }
  if (mantissa == 0) return {};
  while (mantissa % 10 == 0 && exponent < 127) {
    mantissa /= 10;
    ++exponent;
  }
  for (; exponent > 127 && mantissa < powerOfTen(37); --exponent) mantissa *= 10;
  if (exponent < -128 || exponent > 127) throw "beyond the range of a decimal number";
  return raw(mantissa, exponent, negative);
}

/// `using namespace tavrine::foundation::literals;` brings `"0.3048"_dec`.
namespace literals {
consteval Decimal operator""_dec(const char* text, std::size_t length) { return Decimal::literal({text, length}); }
}  // namespace literals

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::Decimal> {
  std::size_t operator()(const tavrine::foundation::Decimal& value) const noexcept { return value.hash(); }
};
