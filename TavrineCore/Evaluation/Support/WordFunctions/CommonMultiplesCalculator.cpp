#include "TavrineCore/Evaluation/Support/WordFunctions/CommonMultiplesCalculator.h"

#include <cstdint>
#include <limits>
#include <numeric>

namespace tavrine {

namespace {

/// The magnitude of a whole number; nothing for what is none or needs more than 63 bits.
std::optional<std::int64_t> magnitudeOf(const Decimal& value) {
  const std::int64_t whole = value.intValue();
  // A fraction or a number out of range doesn't come back as it was.
  if (value.isNaN() || Decimal(whole) != value) return std::nullopt;
  if (whole == 0 || whole == std::numeric_limits<std::int64_t>::min()) return std::nullopt;
  return whole < 0 ? -whole : whole;
}

/// Takes in the values one by one; nothing once a step gives nothing.
std::optional<Decimal> folded(const std::vector<Decimal>& values,
                              std::optional<std::int64_t> (*step)(std::int64_t, std::int64_t)) {
  std::optional<std::int64_t> result;
  for (const Decimal& value : values) {
    const std::optional<std::int64_t> next = magnitudeOf(value);
    if (!next) return std::nullopt;
    result = result ? step(*result, *next) : next;
    if (!result) return std::nullopt;
  }
  return result ? std::optional(Decimal(*result)) : std::nullopt;
}

std::optional<std::int64_t> commonDivisor(std::int64_t a, std::int64_t b) { return std::gcd(a, b); }

std::optional<std::int64_t> commonMultiple(std::int64_t a, std::int64_t b) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(a / std::gcd(a, b), b, &product)) return std::nullopt;
  return product;
}

}  // namespace

std::optional<Decimal> CommonMultiplesCalculator::lcm() const { return folded(values, commonMultiple); }
std::optional<Decimal> CommonMultiplesCalculator::gcd() const { return folded(values, commonDivisor); }

}  // namespace tavrine
