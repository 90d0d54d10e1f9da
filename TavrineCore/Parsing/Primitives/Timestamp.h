#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A moment as the number of seconds since 1 January 1970, 00:00 UTC.
struct Timestamp {
  Decimal decimalValue;

  [[nodiscard]] std::size_t hash() const { return hashOf(decimalValue); }
  friend bool operator==(const Timestamp&, const Timestamp&) = default;
};

}  // namespace tavrine
