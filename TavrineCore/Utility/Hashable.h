#pragma once

#include <concepts>
#include <cstddef>
#include <functional>

#include "Foundation/Hashing.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A value that knows its own hash. Such values are keys of the standard maps without further words.
template <class Value>
concept SelfHashing = requires(const Value& value) {
  { value.hash() } -> std::same_as<std::size_t>;
};

/// The hash of the elements in their order.
template <class Range>
std::size_t hashOfRange(const Range& range) {
  std::size_t seed = 0;
  for (const auto& element : range) seed = hashCombine(seed, hashOf(element));
  return seed;
}

}  // namespace tavrine

template <tavrine::SelfHashing Value>
struct std::hash<Value> {
  std::size_t operator()(const Value& value) const { return value.hash(); }
};
