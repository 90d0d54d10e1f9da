#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A percentage, as the number that was written: 20 for "20%".
struct Percentage {
  Decimal decimalValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue); }
  friend bool operator==(const Percentage&, const Percentage&) = default;
};

}  // namespace tavrine
