#include "Foundation/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>
#include <utility>

namespace tavrine::foundation {
namespace {

constexpr int kPrecision = 38;
constexpr int kMinimumExponent = -128;
constexpr int kMaximumExponent = 127;
constexpr UInt128 kMaximumMantissa = powerOfTen(kPrecision) - 1;

// Beyond these an exponent in a text decides alone: no mantissa in memory can bring the value back.
constexpr long kExponentLimit = 1L << 40;

// Divisibility by 10^k without division: a multiple of the odd f = 5^k, times the inverse of f modulo 2^128, is its
// quotient, and everything else lands above the greatest possible quotient.
struct FiveFactors {
  static constexpr int kCount = 5;  // 5^1, 5^2, 5^4, 5^8, 5^16
  UInt128 inverse[kCount] = {};
  UInt128 greatestQuotient[kCount] = {};

  constexpr FiveFactors() {
    UInt128 factor = 5;
    for (int i = 0; i < kCount; ++i, factor *= factor) {
      UInt128 x = factor;
      for (int round = 0; round < 7; ++round) x *= 2 - factor * x;
      inverse[i] = x;
      greatestQuotient[i] = ~UInt128{0} / factor;
    }
  }
};
constexpr FiveFactors kFives;

// Moves trailing zeros from the mantissa (not 0) into the exponent, as far as the exponent goes.
inline void strip(UInt128& mantissa, int& exponent) {
  if ((lowWord(mantissa) & 1) != 0) return;
  int twos = lowWord(mantissa) != 0 ? std::countr_zero(lowWord(mantissa)) : 64 + std::countr_zero(highWord(mantissa));
  twos = std::min(twos, kMaximumExponent - exponent);
  for (int i = FiveFactors::kCount - 1; i >= 0; --i) {
    const int step = 1 << i;
    while (twos >= step) {
      const UInt128 quotient = mantissa * kFives.inverse[i];
      if (quotient > kFives.greatestQuotient[i]) break;
      mantissa = quotient >> step;
      exponent += step;
      twos -= step;
    }
  }
}

// What was cut off, against half a unit of the last digit kept.
enum class Rest : std::int8_t { belowHalf = -1, half = 0, aboveHalf = 1 };

inline Rest restOf(UInt128 remainder, UInt128 divisor) {
  const UInt128 toNext = divisor - remainder;
  return remainder < toNext ? Rest::belowHalf : remainder > toNext ? Rest::aboveHalf : Rest::half;
}

inline bool roundsAway(RoundingMode mode, bool negative, bool isOdd, Rest rest) {
  switch (mode) {
    case RoundingMode::plain:
      return rest != Rest::belowHalf;
    case RoundingMode::bankers:
      return rest == Rest::aboveHalf || (rest == Rest::half && isOdd);
    case RoundingMode::down:
      return negative;
    case RoundingMode::up:
      return !negative;
  }
  return false;
}

struct ChunkedDigits {
  std::uint64_t chunks[3];
  int count = 0;
};

// Nineteen digits at a time, the lowest first.
ChunkedDigits chunk(UInt128 mantissa) {
  ChunkedDigits result;
  do {
    const Division128 division = divideByPowerOfTen(mantissa, 19);
    result.chunks[result.count++] = lowWord(division.remainder);
    mantissa = division.quotient;
  } while (mantissa != 0);
  return result;
}

}  // namespace

// Every operation comes here with its exact result, or with enough of it.
class DecimalArithmetic {
 public:
  static Decimal make(UInt128 mantissa, int exponent, bool negative) {
    strip(mantissa, exponent);
    return Decimal::raw(mantissa, exponent, negative);
  }

  // The value ±(digits + a fraction between 0 and 1 if `sticky`) × 10^exponent, rounded to 38 digits and the range.
  // Needs digits < 10^76, and with `sticky` more than 38 digits or a magnitude that is rounded away anyhow.
  static Decimal round(const UInt256& digits, long exponent, bool negative, bool sticky, RoundingMode mode,
                       CalculationError& error) {
    const int count = decimalDigits(digits);
    long drop = std::max(0, count - kPrecision);
    drop = std::max(drop, kMinimumExponent - exponent);
    UInt128 mantissa = 0;
    bool inexact = sticky;
    if (drop == 0) {
      mantissa = digits.low;
      if (sticky && roundsAway(mode, negative, (mantissa & 1) != 0, Rest::belowHalf)) ++mantissa;
    } else {
      Rest rest = Rest::belowHalf;
      if (drop > count) {
        inexact = inexact || count != 0;
      } else {
        mantissa = cut(digits, static_cast<int>(drop), sticky, rest, inexact);
      }
      exponent += drop;
      if (inexact && roundsAway(mode, negative, (mantissa & 1) != 0, rest)) ++mantissa;
    }
    return settle(mantissa, exponent, negative, inexact, error);
  }

  static Decimal add(const Decimal& a, const Decimal& b, bool subtracts, RoundingMode mode, CalculationError& error) {
    error = CalculationError::noError;
    if (a.isNaN_ || b.isNaN_) return Decimal::nan();
    if (b.isZero()) return a;
    bool largeNegative = a.isNegative_, smallNegative = b.isNegative_ != subtracts;
    if (a.isZero()) return Decimal::raw(b.mantissa(), b.exponent_, smallNegative);

    // "Large" and "small" by exponent: the large one is scaled up until both stand on the same power of ten.
    UInt128 large = a.mantissa(), small = b.mantissa();
    int largeExponent = a.exponent_, smallExponent = b.exponent_;
    if (largeExponent < smallExponent) {
      std::swap(large, small);
      std::swap(largeExponent, smallExponent);
      std::swap(largeNegative, smallNegative);
    }
    const int distance = largeExponent - smallExponent;
    // Typed numbers pass the first test, which needs no count of digits.
    if (distance == 0 || (distance <= 19 && (large >> 62) == 0) ||
        (distance <= kPrecision && decimalDigits(large) + distance <= kPrecision)) {
      const UInt128 scaled = large * powerOfTen(distance);  // below 2^127
      UInt128 sum = 0;
      bool negative = largeNegative;
      if (largeNegative == smallNegative) {
        sum = scaled + small;
      } else if (scaled >= small) {
        sum = scaled - small;
      } else {
        sum = small - scaled;
        negative = smallNegative;
      }
      if (sum == 0) return {};
      if (sum <= kMaximumMantissa) return make(sum, smallExponent, negative);
      return round({0, sum}, smallExponent, negative, false, mode, error);
    }

    const int room = 76 - decimalDigits(large);
    const int shift = std::min(distance, room);
    const UInt256 scaled = scaleByPowerOfTen(large, shift);
    bool sticky = false;
    if (const int lost = distance - shift; lost > 38) {
      sticky = true;
      small = 0;
    } else if (lost > 0) {
      const Division128 division = divideByPowerOfTen(small, lost);
      sticky = division.remainder != 0;
      small = division.quotient;
    }
    const UInt256 other{0, small};
    const int exponent = largeExponent - shift;
    if (largeNegative == smallNegative) return round(scaled + other, exponent, largeNegative, sticky, mode, error);
    if (scaled < other) return round(other - scaled, exponent, smallNegative, false, mode, error);
    if (scaled == other) return {};
    // Digits are lost only when the large one fills all 76, so what remains stays far from zero.
    const UInt256 difference = scaled - other;
    return round(sticky ? difference - UInt256{0, 1} : difference, exponent, largeNegative, sticky, mode, error);
  }

  static Decimal multiply(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
    error = CalculationError::noError;
    if (a.isNaN_ || b.isNaN_) return Decimal::nan();
    if (a.isZero() || b.isZero()) return {};
    const bool negative = a.isNegative_ != b.isNegative_;
    const int exponent = a.exponent_ + b.exponent_;
    if ((a.high_ | b.high_) == 0) {
      const UInt128 product = UInt128{a.low_} * b.low_;
      if (product <= kMaximumMantissa && exponent >= kMinimumExponent && exponent <= kMaximumExponent) {
        return make(product, exponent, negative);
      }
      return round({0, product}, exponent, negative, false, mode, error);
    }
    return round(multiplyWide(a.mantissa(), b.mantissa()), exponent, negative, false, mode, error);
  }

  static Decimal divide(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
    error = CalculationError::noError;
    if (a.isNaN_ || b.isNaN_) return Decimal::nan();
    if (b.isZero()) {
      error = CalculationError::divideByZero;
      return Decimal::nan();
    }
    if (a.isZero()) return {};
    const bool negative = a.isNegative_ != b.isNegative_;
    if ((a.high_ | b.high_) == 0 && a.low_ % b.low_ == 0) {
      return round({0, a.low_ / b.low_}, a.exponent_ - b.exponent_, negative, false, mode, error);
    }
    // Scale the dividend so that the quotient has exactly 38 digits; the remainder then decides the rounding.
    const UInt128 dividend = a.mantissa(), divisor = b.mantissa();
    const int dividendDigits = decimalDigits(dividend), divisorDigits = decimalDigits(divisor);
    const bool startsWithDigit = dividendDigits >= divisorDigits
                                     ? dividend >= divisor * powerOfTen(dividendDigits - divisorDigits)
                                     : dividend * powerOfTen(divisorDigits - dividendDigits) >= divisor;
    const int shift = kPrecision + divisorDigits - dividendDigits - (startsWithDigit ? 1 : 0);
    const Division128 division = divideWide(scaleByPowerOfTen(dividend, shift), divisor);
    const int exponent = a.exponent_ - b.exponent_ - shift;
    if (division.remainder == 0) return round({0, division.quotient}, exponent, negative, false, mode, error);
    if (exponent >= kMinimumExponent && exponent <= kMaximumExponent) {
      const Rest rest = restOf(division.remainder, divisor);
      UInt128 quotient = division.quotient;
      if (roundsAway(mode, negative, (quotient & 1) != 0, rest)) ++quotient;
      return settle(quotient, exponent, negative, true, error);
    }
    // Out of range: one more digit and the knowledge that there are others are enough to round at another place.
    const Division128 next = divideWide(multiplyWide(division.remainder, 10), divisor);
    const UInt256 digits = multiplyWide(division.quotient, 10) + UInt256{0, next.quotient};
    return round(digits, exponent - 1, negative, next.remainder != 0, mode, error);
  }

  static Decimal roundToScale(const Decimal& value, int scale, RoundingMode mode) {
    if (value.isNaN_ || value.isZero() || scale >= -value.exponent_) return value;
    const long drop = -static_cast<long>(value.exponent_) - scale;
    const UInt128 mantissa = value.mantissa();
    UInt128 kept = 0;
    Rest rest = Rest::belowHalf;
    if (drop <= decimalDigits(mantissa)) {
      const UInt128 divisor = powerOfTen(static_cast<int>(drop));
      const Division128 division = divideByPowerOfTen(mantissa, static_cast<int>(drop));
      if (division.remainder == 0) return value;  // only where the exponent had no room for trailing zeros
      kept = division.quotient;
      rest = restOf(division.remainder, divisor);
    }
    if (roundsAway(mode, value.isNegative_, (kept & 1) != 0, rest)) ++kept;
    if (kept == 0) return {};
    CalculationError ignored;
    return round({0, kept}, value.exponent_ + drop, value.isNegative_, false, mode, ignored);
  }

  static std::strong_ordering compareMagnitudes(const Decimal& a, const Decimal& b) {
    UInt128 left = a.mantissa(), right = b.mantissa();
    if (a.exponent_ != b.exponent_ && left != 0 && right != 0) {
      const int leftLength = decimalDigits(left) + a.exponent_, rightLength = decimalDigits(right) + b.exponent_;
      if (leftLength != rightLength) return leftLength <=> rightLength;
      // The same length: the one with the higher exponent has that many digits fewer.
      if (a.exponent_ > b.exponent_) {
        left *= powerOfTen(a.exponent_ - b.exponent_);
      } else {
        right *= powerOfTen(b.exponent_ - a.exponent_);
      }
    }
    return left < right   ? std::strong_ordering::less
           : left > right ? std::strong_ordering::greater
                          : std::strong_ordering::equal;
  }

 private:
  // digits / 10^drop for 1 <= drop <= the number of digits (at most 76), where at most 38 digits are left.
  static UInt128 cut(const UInt256& digits, int drop, bool sticky, Rest& rest, bool& inexact) {
    Division128 division;
    if (drop <= 38) {
      division = digits.high == 0 ? divideByPowerOfTen(digits.low, drop) : divideByPowerOfTen(digits, drop);
    } else {
      const Division128 first = divideByPowerOfTen(digits, 38);
      drop -= 38;
      division = divideByPowerOfTen(first.quotient, drop);
      sticky = sticky || first.remainder != 0;
    }
    rest = restOf(division.remainder, powerOfTen(drop));
    if (rest == Rest::half && sticky) rest = Rest::aboveHalf;
    inexact = inexact || sticky || division.remainder != 0;
    return division.quotient;
  }

  // A rounded mantissa of at most 10^38, brought into the range of exponents and into canonical form.
  static Decimal settle(UInt128 mantissa, long exponent, bool negative, bool inexact, CalculationError& error) {
    if (mantissa > kMaximumMantissa) {  // rounding up made it 10^38
      mantissa /= 10;
      ++exponent;
    }
    if (mantissa == 0) {
      error = inexact ? CalculationError::underflow : CalculationError::noError;
      return {};
    }
    if (exponent > kMaximumExponent) {
      const long excess = exponent - kMaximumExponent;
      if (excess > kPrecision || decimalDigits(mantissa) + excess > kPrecision) {
        error = CalculationError::overflow;
        return Decimal::nan();
      }
      mantissa *= powerOfTen(static_cast<int>(excess));
      exponent = kMaximumExponent;
    }
    error = inexact ? CalculationError::lossOfPrecision : CalculationError::noError;
    return make(mantissa, static_cast<int>(exponent), negative);
  }
};

// ------------------------------------------------------------------------------------------------ making

Decimal Decimal::fromParts(UInt128 mantissa, int exponent, bool negative) {
  CalculationError ignored;
  return DecimalArithmetic::round({0, mantissa}, exponent, negative, false, RoundingMode::plain, ignored);
}

Decimal Decimal::fromSignExponentSignificand(bool negative, int exponent, const Decimal& significand) {
  if (significand.isNaN_) return nan();
  CalculationError ignored;
  return DecimalArithmetic::round({0, significand.mantissa()}, static_cast<long>(significand.exponent_) + exponent,
                                  significand.isNegative_ != negative, false, RoundingMode::plain, ignored);
}

Decimal Decimal::fromDouble(double value) {
  if (!std::isfinite(value)) return nan();
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific).ptr;
  return parse({buffer, static_cast<std::size_t>(end - buffer)}).value_or(nan());
}

namespace {

// "[+-]digits" as a whole, held to the limit; absent for anything else.
std::optional<long> parseExponent(std::string_view text) {
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty()) return std::nullopt;
  long exponent = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    exponent = std::min(exponent * 10 + (c - '0'), kExponentLimit);
  }
  return negative ? -exponent : exponent;
}

}  // namespace

std::optional<Decimal> Decimal::parse(std::string_view text) {
  std::size_t i = 0;
  bool negative = false;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    negative = text[0] == '-';
    i = 1;
  }
  DecimalBuilder builder;
  bool hasDigit = false, hasPoint = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      builder.addDigit(static_cast<unsigned>(c - '0'));
      hasDigit = true;
    } else if (c == '.' && !hasPoint) {
      builder.addPoint();
      hasPoint = true;
    } else {
      break;
    }
  }
  if (!hasDigit) return std::nullopt;
  if (i == text.size()) return builder.value(negative);
  if (text[i] != 'e' && text[i] != 'E') return std::nullopt;
  const std::optional<long> exponent = parseExponent(text.substr(i + 1));
  if (!exponent) return std::nullopt;
  return builder.value(negative, *exponent);
}

Decimal DecimalBuilder::value(bool negative, long exponent) const {
  if (mantissa_ == 0) return {};
  const long total = exponent_ + std::clamp(exponent, -kExponentLimit, kExponentLimit);
  CalculationError ignored;
  if (digits_ <= kPrecision) {
    return DecimalArithmetic::round({0, mantissa_}, total, negative, false, RoundingMode::plain, ignored);
  }
  const UInt256 digits = multiplyWide(mantissa_, 10) + UInt256{0, firstDropped_};
  return DecimalArithmetic::round(digits, total - 1, negative, hasMore_, RoundingMode::plain, ignored);
}

// ------------------------------------------------------------------------------------------------ arithmetic

Decimal add(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
  return DecimalArithmetic::add(a, b, false, mode, error);
}
Decimal subtract(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
  return DecimalArithmetic::add(a, b, true, mode, error);
}
Decimal multiply(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
  return DecimalArithmetic::multiply(a, b, mode, error);
}
Decimal divide(const Decimal& a, const Decimal& b, RoundingMode mode, CalculationError& error) {
  return DecimalArithmetic::divide(a, b, mode, error);
}

Decimal add(const Decimal& a, const Decimal& b, RoundingMode mode) {
  CalculationError ignored;
  return add(a, b, mode, ignored);
}
Decimal subtract(const Decimal& a, const Decimal& b, RoundingMode mode) {
  CalculationError ignored;
  return subtract(a, b, mode, ignored);
}
Decimal multiply(const Decimal& a, const Decimal& b, RoundingMode mode) {
  CalculationError ignored;
  return multiply(a, b, mode, ignored);
}
Decimal divide(const Decimal& a, const Decimal& b, RoundingMode mode) {
  CalculationError ignored;
  return divide(a, b, mode, ignored);
}

Decimal operator+(const Decimal& a, const Decimal& b) { return add(a, b, RoundingMode::plain); }
Decimal operator-(const Decimal& a, const Decimal& b) { return subtract(a, b, RoundingMode::plain); }
Decimal operator*(const Decimal& a, const Decimal& b) { return multiply(a, b, RoundingMode::plain); }
Decimal operator/(const Decimal& a, const Decimal& b) { return divide(a, b, RoundingMode::plain); }

Decimal Decimal::rounded(int scale, RoundingMode mode) const {
  return DecimalArithmetic::roundToScale(*this, scale, mode);
}

Decimal Decimal::withExponent(int exponent) const {
  if (isNaN_ || isZero()) return *this;
  return DecimalArithmetic::make(mantissa(), std::clamp(exponent, kMinimumExponent, kMaximumExponent), isNegative_);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  if (a.isNaN_ || b.isNaN_) return b.isNaN_ <=> a.isNaN_;
  if (a.isNegative_ != b.isNegative_) return b.isNegative_ <=> a.isNegative_;
  return a.isNegative_ ? DecimalArithmetic::compareMagnitudes(b, a) : DecimalArithmetic::compareMagnitudes(a, b);
}

// ------------------------------------------------------------------------------------------------ other forms

int Decimal::writeDigits(char* buffer) const {
  const ChunkedDigits digits = chunk(mantissa());
  char* end = std::to_chars(buffer, buffer + kMaximumDigits, digits.chunks[digits.count - 1]).ptr;
  for (int i = digits.count - 2; i >= 0; --i) {
    std::uint64_t rest = digits.chunks[i];
    for (int place = 18; place >= 0; --place, rest /= 10) end[place] = static_cast<char>('0' + rest % 10);
    end += 19;
  }
  return static_cast<int>(end - buffer);
}

std::string Decimal::description() const {
  if (isNaN_) return "NaN";
  char digits[kMaximumDigits];
  const auto count = static_cast<std::size_t>(writeDigits(digits));
  std::string text;
  text.reserve(count + 4 + static_cast<std::size_t>(std::abs(int{exponent_})));
  if (isNegative_) text += '-';
  if (exponent_ >= 0) {
    text.append(digits, count).append(static_cast<std::size_t>(exponent_), '0');
    return text;
  }
  const auto places = static_cast<std::size_t>(-exponent_);
  if (places < count) {
    text.append(digits, count - places).append(1, '.').append(digits + (count - places), places);
  } else {
    text.append("0.").append(places - count, '0').append(digits, count);
  }
  return text;
}

double Decimal::doubleValue() const {
  if (isNaN_) return std::numeric_limits<double>::quiet_NaN();
  static constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                            1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  if (high_ == 0 && low_ < (std::uint64_t{1} << 53) && exponent_ >= -22 && exponent_ <= 22) {
    // Both factors are exact, so one operation rounds correctly.
    const auto whole = static_cast<double>(low_);
    const double value = exponent_ < 0 ? whole / kExactPowers[-exponent_] : whole * kExactPowers[exponent_];
    return isNegative_ ? -value : value;
  }
  char buffer[kMaximumDigits + 8];
  char* end = buffer;
  if (isNegative_) *end++ = '-';
  end += writeDigits(end);
  *end++ = 'e';
  end = std::to_chars(end, buffer + sizeof buffer, int{exponent_}).ptr;
  double value = 0;
  std::from_chars(buffer, end, value);
  return value;
}

namespace {

// The whole part of a magnitude, held to 2^64 - 1.
std::uint64_t wholeMagnitude(const Decimal& value) {
  if (value.isNaN() || value.isZero()) return 0;
  constexpr auto kLimit = std::numeric_limits<std::uint64_t>::max();
  UInt128 whole = value.mantissa();
  if (value.exponent() < 0) {
    if (-value.exponent() > kPrecision) return 0;
    whole = divideByPowerOfTen(whole, -value.exponent()).quotient;
  } else {
    if (decimalDigits(whole) + value.exponent() > 20) return kLimit;
    whole *= powerOfTen(value.exponent());
  }
  return whole > kLimit ? kLimit : lowWord(whole);
}

}  // namespace

std::int64_t Decimal::intValue() const {
  const std::uint64_t whole = wholeMagnitude(*this);
  constexpr auto kLimit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (isNegative_) {
    return whole > kLimit ? std::numeric_limits<std::int64_t>::min() : -static_cast<std::int64_t>(whole);
  }
  return static_cast<std::int64_t>(std::min(whole, kLimit));
}

std::uint64_t Decimal::uint64Value() const { return isNegative_ ? 0 : wholeMagnitude(*this); }

std::ostream& operator<<(std::ostream& stream, const Decimal& value) { return stream << value.description(); }

}  // namespace tavrine::foundation
