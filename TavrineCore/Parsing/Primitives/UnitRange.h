#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// Two bounds in one unit: "10-20 km".
struct UnitRange {
  Decimal lowerBound;
  Decimal upperBound;
  TCUnit unit;

  [[nodiscard]] std::size_t hash() const { return hashOf(lowerBound, upperBound, unit); }
  friend bool operator==(const UnitRange&, const UnitRange&) = default;
};

}  // namespace tavrine
