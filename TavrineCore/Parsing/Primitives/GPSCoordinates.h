#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

struct DegreesMinutesSeconds;

/// A point on the earth in degrees: north and east are positive.
struct GPSCoordinates {
  static constexpr int maximumLat = 90;
  static constexpr int maximumLong = 180;

  Decimal lat;
  Decimal long_;

  /// Absent where a value lies beyond the earth or isn't a number.
  [[nodiscard]] static std::optional<GPSCoordinates> make(const Decimal& latitude, const Decimal& longitude);

  /// From two angles, the latitude first. A direction that is given must fit; south and west make a value negative.
  [[nodiscard]] static std::optional<GPSCoordinates> make(const DegreesMinutesSeconds& latitude,
                                                          const DegreesMinutesSeconds& longitude);

  [[nodiscard]] const Decimal& latitude() const { return lat; }
  [[nodiscard]] const Decimal& longitude() const { return long_; }

  [[nodiscard]] std::size_t hash() const { return hashOf(lat, long_); }
  friend bool operator==(const GPSCoordinates&, const GPSCoordinates&) = default;
};

}  // namespace tavrine
