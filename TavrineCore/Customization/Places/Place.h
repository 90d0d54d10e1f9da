#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Foundation/TimeZone.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

struct Place;

struct Country {
  std::string name;
  std::optional<std::vector<std::string>> aliases;
  std::string capital;
  std::optional<std::string> capitalCityTimezoneID;

  /// In the zone of the capital; absent where that isn't known.
  [[nodiscard]] std::optional<Place> place() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, capital); }
  friend bool operator==(const Country&, const Country&) = default;
};

struct City {
  std::string identifier;
  std::string name;
  std::optional<std::string> country;
  std::optional<std::vector<std::string>> aliases;
  /// Meters above the sea.
  int elevation = 0;
  std::string population;
  /// In degrees, as text.
  std::optional<std::string> longitude;
  std::optional<std::string> latitude;
  std::string timezone_id;

  /// Absent for a zone that nobody knows.
  [[nodiscard]] std::optional<Place> place() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(identifier, name); }
  friend bool operator==(const City&, const City&) = default;
};

struct Airport {
  std::string name;
  std::string iata_code;
  /// Meters above the sea.
  double elevation = 0;
  /// Latitude and longitude in degrees, with a comma between: "40.64, -73.78".
  std::string coordinates;
  std::string cityIdentifier;
  /// Known once the airport has found its city.
  std::optional<std::string> associatedCityName;
  std::optional<std::string> associatedCountryName;

  /// Absent where the text isn't two numbers on the earth.
  [[nodiscard]] std::optional<GPSCoordinates> gpsCoordinates() const;
  /// In the zone of its city in the resources, with the names of city and country filled in; absent where there is no
  /// such city.
  [[nodiscard]] std::optional<Place> place() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, iata_code); }
  friend bool operator==(const Airport&, const Airport&) = default;
};

/// A place that a host adds.
struct CustomPlace {
  std::string name;
  TimeZone timeZone;
  std::optional<GPSCoordinates> gpsCoordinates;

  [[nodiscard]] std::optional<Place> place() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, timeZone, gpsCoordinates); }
  friend bool operator==(const CustomPlace&, const CustomPlace&) = default;
};

/// A name with a time zone: a city, a country, an airport.
struct Place {
  /// A place that is but the short name of a zone: "EST".
  struct TimeZoneAbbreviation {
    friend bool operator==(const TimeZoneAbbreviation&, const TimeZoneAbbreviation&) = default;
  };
  struct Unspecified {
    friend bool operator==(const Unspecified&, const Unspecified&) = default;
  };
  using PlaceType = std::variant<Country, City, Airport, CustomPlace, TimeZoneAbbreviation, Unspecified>;

  std::string name;
  std::optional<std::vector<std::string>> aliases;
  TimeZone timeZone;
  PlaceType type = Unspecified{};

  /// What the place is, if it is one of these.
  [[nodiscard]] const City* city() const { return std::get_if<City>(&type); }
  [[nodiscard]] const Country* country() const { return std::get_if<Country>(&type); }
  [[nodiscard]] const Airport* airport() const { return std::get_if<Airport>(&type); }

  /// The aliases of at least two lexemes under the current locale. Codes, which have no lower-case letter, are none.
  [[nodiscard]] std::vector<std::string> multiWordAliases() const;

  /// Where the place lies, as far as is known: countries and zones lie nowhere in particular.
  [[nodiscard]] std::optional<GPSCoordinates> gpsCoordinates() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, timeZone, type.index()); }
  friend bool operator==(const Place&, const Place&) = default;
};

/// What can be a place of lines.
template <class Source>
concept PlaceConvertable = requires(const Source& source) {
  { source.place() } -> std::same_as<std::optional<Place>>;
};
static_assert(PlaceConvertable<Country> && PlaceConvertable<City> && PlaceConvertable<Airport> &&
              PlaceConvertable<CustomPlace>);

/// "country", "city", "airport", "custom", "timeZoneAbbreviation" or "unspecified".
std::string_view toString(const Place::PlaceType& type);

}  // namespace tavrine
