#pragma once

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>

#include "Foundation/TimeZone.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

struct Place;
struct UnitExpression;

/// What a host knows of a place.
struct PlaceData {
  /// Degrees, north and east positive.
  struct Coordinates {
    double latitude = 0;
    double longitude = 0;

    [[nodiscard]] std::size_t hash() const { return hashOf(latitude, longitude); }
    friend bool operator==(const Coordinates&, const Coordinates&) = default;
  };

  std::string name;
  TimeZone timeZone;
  std::optional<Coordinates> coordinates = std::nullopt;

  /// For lines; without coordinates where those given lie beyond the earth.
  [[nodiscard]] std::optional<Place> place() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, timeZone, coordinates); }
  friend bool operator==(const PlaceData&, const PlaceData&) = default;
};

/// A host's knowledge of places beyond the built-in ones.
class PlaceDataProvider {
 public:
  virtual ~PlaceDataProvider() = default;

  /// Looks the name up; blocks, and is called from background threads only, several at a time. Absent when no such
  /// place is known or the look-up is stopped.
  [[nodiscard]] virtual std::optional<PlaceData> placeDataFor(const std::string& name, std::stop_token stop) = 0;

  /// How far it is from one point to another. Called on any thread, several at a time, and not to block. Unless a host
  /// knows better it is the way over a globe of the mean radius of the earth, in kilometers.
  [[nodiscard]] virtual std::optional<UnitExpression> distanceBetween(const PlaceData::Coordinates& from,
                                                                      const PlaceData::Coordinates& to);
};

}  // namespace tavrine
