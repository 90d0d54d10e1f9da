#pragma once

#include <cstddef>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A point on the earth in degrees: north and east are positive.
struct GPSCoordinates {
  static constexpr int maximumLat = 90;
  static constexpr int maximumLong = 180;

  Decimal lat;
  Decimal long_;

  [[nodiscard]] const Decimal& latitude() const { return lat; }
  [[nodiscard]] const Decimal& longitude() const { return long_; }

  [[nodiscard]] std::size_t hash() const { return hashOf(lat, long_); }
  friend bool operator==(const GPSCoordinates&, const GPSCoordinates&) = default;
};

}  // namespace tavrine
