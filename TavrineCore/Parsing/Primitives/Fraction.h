#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

/// A number that is shown as a fraction, with its unit if it has one: 0.75 for "3/4".
struct Fraction {
  Decimal decimalValue;
  std::optional<TCUnit> unitValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue, unitValue); }
  friend bool operator==(const Fraction&, const Fraction&) = default;
};

}  // namespace tavrine
