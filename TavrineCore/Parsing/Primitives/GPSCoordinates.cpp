#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"

#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"

namespace tavrine {

std::optional<GPSCoordinates> GPSCoordinates::make(const Decimal& latitude, const Decimal& longitude) {
  if (latitude.isNaN() || longitude.isNaN()) return std::nullopt;
  if (latitude.magnitude() > Decimal(maximumLat) || longitude.magnitude() > Decimal(maximumLong)) return std::nullopt;
  return GPSCoordinates{latitude, longitude};
}

std::optional<GPSCoordinates> GPSCoordinates::make(const DegreesMinutesSeconds& latitude,
                                                   const DegreesMinutesSeconds& longitude) {
  using enum DegreesMinutesSeconds::CardinalDirection;
  if (!isValidLatitude(latitude.cardinalDirection.value_or(north))) return std::nullopt;
  if (!isValidLongitude(longitude.cardinalDirection.value_or(east))) return std::nullopt;

  Decimal lat = latitude.decimalDegrees();
  Decimal long_ = longitude.decimalDegrees();
  if (latitude.cardinalDirection == south) lat = lat.negated();
  if (longitude.cardinalDirection == west) long_ = long_.negated();
  return make(lat, long_);
}

}  // namespace tavrine
