#include "TavrineCore/Evaluation/Support/WordFunctions/PrimeDeterminer.h"

#include <array>
#include <cstdint>
#include <limits>

#include "Foundation/DecimalMath.h"
#include "Foundation/WideInteger.h"

namespace tavrine {

namespace {

/// Divides by these first. As bases of the test of Miller and Rabin they settle every number of 64 bits
/// (J. Sorenson, J. Webster, "Strong pseudoprimes to twelve prime bases", 2015).
constexpr std::array<std::uint64_t, 12> kSmallPrimes{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37};

std::uint64_t productModulo(std::uint64_t a, std::uint64_t b, std::uint64_t modulus) {
  return static_cast<std::uint64_t>(UInt128{a} * b % modulus);
}

std::uint64_t powerModulo(std::uint64_t base, std::uint64_t exponent, std::uint64_t modulus) {
  std::uint64_t result = 1;
  for (; exponent != 0; exponent >>= 1) {
    if ((exponent & 1) != 0) result = productModulo(result, base, modulus);
    base = productModulo(base, base, modulus);
  }
  return result;
}

/// For an odd number above all small primes: whether the base finds it composite.
bool isWitness(std::uint64_t base, std::uint64_t number) {
  std::uint64_t odd = number - 1;
  int twos = 0;
  for (; (odd & 1) == 0; odd >>= 1) ++twos;
  std::uint64_t power = powerModulo(base, odd, number);
  if (power == 1 || power == number - 1) return false;
  for (int i = 1; i < twos; ++i) {
    power = productModulo(power, power, number);
    if (power == number - 1) return false;
  }
  return true;
}

}  // namespace

std::optional<bool> PrimeDeterminer::isPrime(const Decimal& whole) {
  if (whole < Decimal(2)) return false;
  for (const std::uint64_t prime : kSmallPrimes) {
    if (whole == Decimal(prime)) return true;
    if (DDDecimalMod(whole, Decimal(prime)).isZero()) return false;
  }
  if (Decimal(std::numeric_limits<std::int64_t>::max()) < whole) return std::nullopt;
  const auto number = static_cast<std::uint64_t>(whole.intValue());
  for (const std::uint64_t base : kSmallPrimes) {
    if (isWitness(base, number)) return false;
  }
  return true;
}

}  // namespace tavrine
