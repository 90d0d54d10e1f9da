#pragma once

#include <bit>
#include <cstdint>

/// The unsigned 128- and 256-bit arithmetic that the decimal number stands on. Everything here is exact, on the stack,
/// and small enough to be inlined; only the division leaves the header.
namespace tavrine::foundation {

__extension__ using UInt128 = unsigned __int128;

/// An unsigned 256-bit integer, as wide as the product of two mantissas needs.
struct UInt256 {
  UInt128 high = 0;
  UInt128 low = 0;

  friend constexpr bool operator==(const UInt256&, const UInt256&) = default;
  friend constexpr bool operator<(const UInt256& a, const UInt256& b) {
    return a.high != b.high ? a.high < b.high : a.low < b.low;
  }
  friend constexpr UInt256 operator+(const UInt256& a, const UInt256& b) {
    UInt256 sum{a.high + b.high, a.low + b.low};
    if (sum.low < a.low) ++sum.high;
    return sum;
  }
  friend constexpr UInt256 operator-(const UInt256& a, const UInt256& b) {
    UInt256 difference{a.high - b.high, a.low - b.low};
    if (a.low < b.low) --difference.high;
    return difference;
  }
};

constexpr std::uint64_t lowWord(UInt128 value) { return static_cast<std::uint64_t>(value); }
constexpr std::uint64_t highWord(UInt128 value) { return static_cast<std::uint64_t>(value >> 64); }
constexpr UInt128 joinWords(std::uint64_t high, std::uint64_t low) { return UInt128{high} << 64 | low; }

/// The full product.
constexpr UInt256 multiplyWide(UInt128 a, UInt128 b) {
  const UInt128 lowLow = UInt128{lowWord(a)} * lowWord(b);
  const UInt128 lowHigh = UInt128{lowWord(a)} * highWord(b);
  const UInt128 highLow = UInt128{highWord(a)} * lowWord(b);
  const UInt128 highHigh = UInt128{highWord(a)} * highWord(b);
  const UInt128 middle = (lowLow >> 64) + lowWord(lowHigh) + lowWord(highLow);
  return {highHigh + (lowHigh >> 64) + (highLow >> 64) + (middle >> 64), middle << 64 | lowWord(lowLow)};
}

/// The product modulo 2^256.
constexpr UInt256 multiplyWide(const UInt256& a, UInt128 b) {
  UInt256 product = multiplyWide(a.low, b);
  product.high += a.high * b;
  return product;
}

/// A quotient with its remainder.
struct Division128 {
  UInt128 quotient;
  UInt128 remainder;
};

/// `numerator / denominator`; needs `numerator.high < denominator`, so that the quotient fits.
Division128 divideWide(UInt256 numerator, UInt128 denominator);

/// `numerator / denominator` in 128 bits, without the general (slow) library division where 64 bits are enough.
Division128 divideNarrow(UInt128 numerator, UInt128 denominator);

/// The same by 10^exponent, for exponents 0 to 38, several times as fast; needs `numerator.high < 10^exponent`.
Division128 divideByPowerOfTen(const UInt256& numerator, int exponent);
Division128 divideByPowerOfTen(UInt128 numerator, int exponent);

constexpr int bitWidth(UInt128 value) {
  return highWord(value) != 0 ? 64 + static_cast<int>(std::bit_width(highWord(value)))
                              : static_cast<int>(std::bit_width(lowWord(value)));
}

namespace wideIntegerDetail {
struct PowersOfTen {
  UInt128 narrow[39] = {};
  UInt256 wide[78] = {};

  constexpr PowersOfTen() {
    UInt256 power{0, 1};
    for (int i = 0; i < 78; ++i) {
      wide[i] = power;
      if (i < 39) narrow[i] = power.low;
      power = multiplyWide(power, 10);
    }
  }
};
inline constexpr PowersOfTen kPowersOfTen;
}  // namespace wideIntegerDetail

/// 10^exponent, for exponents 0 to 38.
constexpr UInt128 powerOfTen(int exponent) { return wideIntegerDetail::kPowersOfTen.narrow[exponent]; }

/// 10^exponent, for exponents 0 to 77.
constexpr const UInt256& widePowerOfTen(int exponent) { return wideIntegerDetail::kPowersOfTen.wide[exponent]; }

/// `value * 10^exponent`, for exponents 0 to 76; the caller knows that the product fits.
constexpr UInt256 scaleByPowerOfTen(UInt128 value, int exponent) {
  if (exponent <= 38) return multiplyWide(value, powerOfTen(exponent));
  return multiplyWide(multiplyWide(value, powerOfTen(38)), powerOfTen(exponent - 38));
}

/// The number of decimal digits; none for 0.
constexpr int decimalDigits(UInt128 value) {
  if (value == 0) return 0;
  const int guess = (bitWidth(value) * 1233) >> 12;  // 1233 / 4096 is log10(2), close enough up to 256 bits
  return guess < 39 ? guess + (value >= powerOfTen(guess) ? 1 : 0) : 39;
}
constexpr int decimalDigits(const UInt256& value) {
  if (value.high == 0) return decimalDigits(value.low);
  const int guess = ((128 + bitWidth(value.high)) * 1233) >> 12;
  return guess + (value < widePowerOfTen(guess) ? 0 : 1);
}

}  // namespace tavrine::foundation
