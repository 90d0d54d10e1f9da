#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A percentage, as a fraction: 20% is 0.2.
struct Percentage {
  Decimal decimalValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue); }
  friend Percentage operator+(const Percentage& left, const Percentage& right) {
    return {left.decimalValue + right.decimalValue};
  }
  friend Percentage operator-(const Percentage& left, const Percentage& right) {
    return {left.decimalValue - right.decimalValue};
  }
  friend bool operator==(const Percentage&, const Percentage&) = default;
};

}  // namespace tavrine
