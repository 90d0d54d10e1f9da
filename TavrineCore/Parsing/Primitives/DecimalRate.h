#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// So much of nothing named a unit: "5 / day".
struct DecimalRate {
  Decimal value;
  TCUnit perUnit;

  [[nodiscard]] std::size_t hash() const { return hashOf(value, perUnit); }
  friend bool operator==(const DecimalRate&, const DecimalRate&) = default;
};

}  // namespace tavrine
