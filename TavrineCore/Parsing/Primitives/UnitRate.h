#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// So many of one unit for each of another: "$5 / hour". Without `ofUnit` it is a frequency.
struct UnitRate {
  Decimal value;
  std::optional<TCUnit> ofUnit;
  TCUnit perUnit;
  /// Shown with a pair of units above the stroke: "5 ft 3 in / second".
  bool prefersCompoundUnitFormatting = false;

  [[nodiscard]] std::size_t hash() const { return hashOf(value, ofUnit, perUnit, prefersCompoundUnitFormatting); }
  friend bool operator==(const UnitRate&, const UnitRate&) = default;
};

}  // namespace tavrine
