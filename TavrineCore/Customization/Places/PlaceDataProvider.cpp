#include "TavrineCore/Customization/Places/PlaceDataProvider.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

namespace {

// (2a + b) / 3 with the half axes a and b of the WGS 84 ellipsoid.
constexpr double kMeanRadiusInKilometers = 6371.0087714150598;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

bool isWithin(double degrees, double limit) { return degrees >= -limit && degrees <= limit; }

/// What binary floating point is good for at the size of the earth: beyond meters it would be digits of noise.
constexpr int kDecimalsOfKilometers = 3;

}  // namespace

std::optional<Place> PlaceData::place() const {
  CustomPlace custom{name, timeZone, std::nullopt};
  if (coordinates && isWithin(coordinates->latitude, GPSCoordinates::maximumLat) &&
      isWithin(coordinates->longitude, GPSCoordinates::maximumLong)) {
    custom.gpsCoordinates =
        GPSCoordinates{Decimal::fromDouble(coordinates->latitude), Decimal::fromDouble(coordinates->longitude)};
  }
  return custom.place();
}

std::optional<UnitExpression> PlaceDataProvider::distanceBetween(const PlaceData::Coordinates& from,
                                                                 const PlaceData::Coordinates& to) {
  // The haversine formula, which keeps its digits where the points lie close together.
  const double halfLatitude = std::sin(radians(to.latitude - from.latitude) / 2);
  const double halfLongitude = std::sin(radians(to.longitude - from.longitude) / 2);
  const double square = halfLatitude * halfLatitude + std::cos(radians(from.latitude)) *
                                                          std::cos(radians(to.latitude)) * halfLongitude *
                                                          halfLongitude;
  if (!std::isfinite(square)) return std::nullopt;
  const double kilometers = 2 * kMeanRadiusInKilometers * std::asin(std::sqrt(std::clamp(square, 0.0, 1.0)));
  return UnitExpression{Decimal::fromDouble(kilometers).rounded(kDecimalsOfKilometers, RoundingMode::plain),
                        unitOf(UnitIdentifier::kilometers)};
}

}  // namespace tavrine
