#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace tavrine::foundation {

/// Folds `value` into `seed`; the order of the calls matters. Mixes well enough that small integers spread.
constexpr std::size_t hashCombine(std::size_t seed, std::size_t value) noexcept {
  std::uint64_t mixed = seed ^ (value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2));
  mixed ^= mixed >> 32;
  mixed *= 0xd6e8feb86659fd93ULL;
  mixed ^= mixed >> 32;
  return static_cast<std::size_t>(mixed);
}

/// The hash of several values in a row, each by its `std::hash`.
template <class... Values>
std::size_t hashOf(const Values&... values) {
  std::size_t seed = 0;
  ((seed = hashCombine(seed, std::hash<Values>{}(values))), ...);
  return seed;
}

}  // namespace tavrine::foundation
