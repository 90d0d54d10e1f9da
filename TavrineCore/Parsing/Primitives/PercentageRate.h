#pragma once

#include <cstddef>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// A percentage that applies once a unit: "5% / year".
struct PercentageRate {
  Percentage percentage;
  TCUnit perUnit;

  [[nodiscard]] std::size_t hash() const { return hashOf(percentage, perUnit); }
  friend bool operator==(const PercentageRate&, const PercentageRate&) = default;
};

}  // namespace tavrine
