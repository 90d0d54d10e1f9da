#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A factor: 2 for "2x".
struct Multiplier {
  Decimal decimalValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue); }
  friend bool operator==(const Multiplier&, const Multiplier&) = default;
};

}  // namespace tavrine
