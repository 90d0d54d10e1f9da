#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A tax percentage that is named as such, as a fraction: 0.2 for "VAT 20%".
struct SalesTax {
  Decimal decimalValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue); }
  friend bool operator==(const SalesTax&, const SalesTax&) = default;
};

}  // namespace tavrine
