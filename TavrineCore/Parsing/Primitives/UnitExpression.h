#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// A value with a unit: "20 km".
struct UnitExpression {
  Decimal value;
  TCUnit unit;
  /// Shown as a pair of units where the unit has a smaller companion: "5 ft 3 in".
  bool prefersCompoundUnitFormatting = false;

  [[nodiscard]] std::size_t hash() const { return hashOf(value, unit, prefersCompoundUnitFormatting); }
  friend bool operator==(const UnitExpression&, const UnitExpression&) = default;
};

}  // namespace tavrine
