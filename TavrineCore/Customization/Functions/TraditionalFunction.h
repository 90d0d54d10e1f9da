#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A function that is called by name: "sqrt(2)". One with an implementation is a host's own.
struct TraditionalFunction {
  std::string name;
  std::optional<std::vector<std::string>> aliases = std::nullopt;
  std::optional<std::string> implementation = std::nullopt;

  [[nodiscard]] std::size_t hash() const {
    const std::size_t seed = hashOf(name, implementation);
    return aliases ? hashCombine(seed, hashOfRange(*aliases)) : seed;
  }
  friend bool operator==(const TraditionalFunction&, const TraditionalFunction&) = default;
};

}  // namespace tavrine
