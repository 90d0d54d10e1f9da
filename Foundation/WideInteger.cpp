#include "Foundation/WideInteger.h"

namespace tavrine::foundation {
namespace {

struct Division64 {
  std::uint64_t quotient;
  std::uint64_t remainder;
};

// Needs high < denominator. One machine instruction where there is one: compilers call a library function instead.
inline Division64 divideTwoWords(std::uint64_t high, std::uint64_t low, std::uint64_t denominator) {
#if defined(__x86_64__)
  Division64 result;
  __asm__("divq %4" : "=a"(result.quotient), "=d"(result.remainder) : "a"(low), "d"(high), "r"(denominator) : "cc");
  return result;
#else
  const UInt128 numerator = joinWords(high, low);
  return {lowWord(numerator / denominator), lowWord(numerator % denominator)};
#endif
}

struct DivisionStep {
  std::uint64_t quotient;
  UInt128 remainder;
};

// One digit (in base 2^64) of a long division: (top : next) / denominator with top < denominator, and the top bit of
// the denominator set, so that the guess from its upper word is at most two too high.
inline DivisionStep divideThreeWords(UInt128 top, std::uint64_t next, UInt128 denominator) {
  const std::uint64_t upper = highWord(denominator);
  const std::uint64_t lower = lowWord(denominator);
  std::uint64_t quotient;
  UInt128 partial;
  if (highWord(top) == upper) {
    quotient = ~std::uint64_t{0};
    partial = UInt128{lowWord(top)} + upper;
  } else {
    const Division64 guess = divideTwoWords(highWord(top), lowWord(top), upper);
    quotient = guess.quotient;
    partial = guess.remainder;
  }
  UInt128 excess = UInt128{quotient} * lower;
  while (highWord(partial) == 0 && excess > (partial << 64 | next)) {
    --quotient;
    excess -= lower;
    partial += upper;
  }
  return {quotient, (partial << 64 | next) - excess};
}

// A power of ten shifted until its top bit is set, with its reciprocal floor((2^192 - 1) / divisor) - 2^64: enough to
// find each word of a quotient by multiplication (Möller and Granlund, "Improved division by invariant integers").
struct Reciprocal {
  UInt128 divisor = 0;
  std::uint64_t reciprocal = 0;
  int shift = 0;
};

struct ReciprocalsOfTen {
  Reciprocal rows[39] = {};

  constexpr ReciprocalsOfTen() {
    for (int i = 0; i < 39; ++i) {
      rows[i].shift = 128 - bitWidth(powerOfTen(i));
      rows[i].divisor = powerOfTen(i) << rows[i].shift;
      rows[i].reciprocal = reciprocalOf(rows[i].divisor);
    }
  }

 private:
  static constexpr std::uint64_t reciprocalOf(UInt128 divisor) {
    const std::uint64_t upper = highWord(divisor), lower = lowWord(divisor);
    std::uint64_t result = lowWord(joinWords(~upper, ~std::uint64_t{0}) / upper);
    std::uint64_t rest = upper * result + lower;
    if (rest < lower) {
      --result;
      if (rest >= upper) {
        --result;
        rest -= upper;
      }
      rest -= upper;
    }
    const UInt128 correction = UInt128{result} * lower;
    rest += highWord(correction);
    if (rest < highWord(correction)) {
      --result;
      if (joinWords(rest, lowWord(correction)) >= divisor) --result;
    }
    return result;
  }
};
constexpr ReciprocalsOfTen kReciprocalsOfTen;

// The same long division with the reciprocal of the denominator.
inline DivisionStep divideThreeWords(UInt128 top, std::uint64_t next, const Reciprocal& denominator) {
  const std::uint64_t upper = highWord(denominator.divisor), lower = lowWord(denominator.divisor);
  const UInt128 guess = UInt128{denominator.reciprocal} * highWord(top) + top;
  std::uint64_t quotient = highWord(guess);
  const std::uint64_t rest = lowWord(top) - quotient * upper;
  UInt128 remainder = joinWords(rest, next) - UInt128{lower} * quotient - denominator.divisor;
  ++quotient;
  if (highWord(remainder) >= lowWord(guess)) {
    --quotient;
    remainder += denominator.divisor;
  }
  if (remainder >= denominator.divisor) {
    ++quotient;
    remainder -= denominator.divisor;
  }
  return {quotient, remainder};
}

}  // namespace

Division128 divideWide(UInt256 numerator, UInt128 denominator) {
  if (highWord(denominator) == 0) {
    const std::uint64_t small = lowWord(denominator);
    const Division64 upper = divideTwoWords(lowWord(numerator.high), highWord(numerator.low), small);
    const Division64 lower = divideTwoWords(upper.remainder, lowWord(numerator.low), small);
    return {joinWords(upper.quotient, lower.quotient), lower.remainder};
  }
  const int shift = std::countl_zero(highWord(denominator));
  if (shift != 0) {
    denominator <<= shift;
    numerator.high = numerator.high << shift | numerator.low >> (128 - shift);
    numerator.low <<= shift;
  }
  const DivisionStep upper = divideThreeWords(numerator.high, highWord(numerator.low), denominator);
  const DivisionStep lower = divideThreeWords(upper.remainder, lowWord(numerator.low), denominator);
  return {joinWords(upper.quotient, lower.quotient), lower.remainder >> shift};
}

Division128 divideByPowerOfTen(const UInt256& numerator, int exponent) {
  const Reciprocal& denominator = kReciprocalsOfTen.rows[exponent];
  const int shift = denominator.shift;
  // Two shifts on the low half: one by 128, for a shift of 0, is undefined.
  const UInt128 high = numerator.high << shift | numerator.low >> 1 >> (127 - shift);
  const UInt128 low = numerator.low << shift;
  const DivisionStep upper = divideThreeWords(high, highWord(low), denominator);
  const DivisionStep lower = divideThreeWords(upper.remainder, lowWord(low), denominator);
  return {joinWords(upper.quotient, lower.quotient), lower.remainder >> shift};
}

Division128 divideByPowerOfTen(UInt128 numerator, int exponent) {
  if (highWord(numerator) == 0) return divideNarrow(numerator, powerOfTen(exponent));
  if (exponent == 0) return {numerator, 0};
  return divideByPowerOfTen(UInt256{0, numerator}, exponent);
}

Division128 divideNarrow(UInt128 numerator, UInt128 denominator) {
  if (highWord(numerator) == 0) {
    if (highWord(denominator) != 0) return {0, numerator};
    const std::uint64_t n = lowWord(numerator), d = lowWord(denominator);
    return {n / d, n % d};
  }
  if (highWord(denominator) != 0) return divideWide({0, numerator}, denominator);
  const std::uint64_t small = lowWord(denominator);
  const std::uint64_t upper = highWord(numerator) / small;
  const Division64 lower = divideTwoWords(highWord(numerator) % small, lowWord(numerator), small);
  return {joinWords(upper, lower.quotient), lower.remainder};
}

}  // namespace tavrine::foundation
