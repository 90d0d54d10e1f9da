#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A stopwatch reading: "1:20:35.5".
struct Laptime {
  std::optional<std::int64_t> hour;
  std::int64_t minute = 0;
  std::optional<Decimal> seconds;

  [[nodiscard]] std::size_t hash() const { return hashOf(hour, minute, seconds); }
  friend bool operator==(const Laptime&, const Laptime&) = default;
};

}  // namespace tavrine
