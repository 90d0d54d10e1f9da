#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// How a unit maps to the base unit of its kind: a value v is v × `coefficient` + `constant` base units. Only
/// temperatures have a `constant` other than 0.
struct TCUnitConverterLinear {
  Decimal coefficient;
  Decimal constant;

  [[nodiscard]] std::size_t hash() const { return hashOf(coefficient, constant); }
  friend bool operator==(const TCUnitConverterLinear&, const TCUnitConverterLinear&) = default;
};

}  // namespace tavrine
