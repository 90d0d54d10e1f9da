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
