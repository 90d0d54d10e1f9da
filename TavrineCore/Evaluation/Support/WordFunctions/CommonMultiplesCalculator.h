#pragma once

#include <optional>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// What whole numbers have in common. Nothing for no numbers, a fraction, zero, or a result beyond 64 bits.
struct CommonMultiplesCalculator {
  std::vector<Decimal> values;

  /// The least positive number that all divide.
  [[nodiscard]] std::optional<Decimal> lcm() const;
  /// The greatest number that divides all.
  [[nodiscard]] std::optional<Decimal> gcd() const;
};

}  // namespace tavrine
