#include "TavrineCore/Customization/Places/Place.h"

#include <array>
#include <memory>
#include <utility>

#include "Foundation/Decimal.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Places/NameLexemes.h"
#include "TavrineCore/Customization/Places/PlaceRows.h"

namespace tavrine {

namespace {

std::string_view withoutBlanksAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<GPSCoordinates> coordinatesFrom(std::string_view latitude, std::string_view longitude) {
  const std::optional<Decimal> lat = Decimal::parse(withoutBlanksAround(latitude));
  const std::optional<Decimal> long_ = Decimal::parse(withoutBlanksAround(longitude));
  if (!lat || !long_) return std::nullopt;
  return GPSCoordinates::make(*lat, *long_);
}

}  // namespace

std::optional<GPSCoordinates> Airport::gpsCoordinates() const {
  const std::string_view text = coordinates;
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  return coordinatesFrom(text.substr(0, comma), text.substr(comma + 1));
}

std::optional<Place> Country::place() const {
  if (!capitalCityTimezoneID) return std::nullopt;
  const std::optional<TimeZone> zone = TimeZone::withIdentifier(*capitalCityTimezoneID);
  if (!zone) return std::nullopt;
  return Place{.name = name, .aliases = aliases, .timeZone = *zone, .type = *this};
}

std::optional<Place> City::place() const {
  const std::optional<TimeZone> zone = TimeZone::withIdentifier(timezone_id);
  if (!zone) return std::nullopt;
  return Place{.name = name, .aliases = aliases, .timeZone = *zone, .type = *this};
}

std::optional<Place> Airport::place() const {
  const std::shared_ptr<const PlaceRows> cities = StaticResouces::localizedCities();
  const std::optional<std::size_t> row = cities ? cities->rowWithKey(cityIdentifier) : std::nullopt;
  const std::optional<City> city = row ? cities->city(*row) : std::nullopt;
  const std::optional<Place> around = city ? city->place() : std::nullopt;
  if (!around) return std::nullopt;
  Airport known = *this;
  known.associatedCityName = city->name;
  known.associatedCountryName = city->country;
  return Place{.name = name, .aliases = {}, .timeZone = around->timeZone, .type = std::move(known)};
}

std::optional<Place> CustomPlace::place() const {
  return Place{.name = name, .aliases = {}, .timeZone = timeZone, .type = *this};
}

std::vector<std::string> Place::multiWordAliases() const {
  std::vector<std::string> result;
  if (!aliases) return result;
  for (const std::string& alias : *aliases) {
    if (containsLowercaseLetter(alias) && leadingLexemesOf(alias).areSeveral()) result.push_back(alias);
  }
  return result;
}

std::optional<GPSCoordinates> Place::gpsCoordinates() const {
  if (const City* const found = city()) {
    if (!found->latitude || !found->longitude) return std::nullopt;
    return coordinatesFrom(*found->latitude, *found->longitude);
  }
  if (const Airport* const found = airport()) return found->gpsCoordinates();
  if (const auto* const found = std::get_if<CustomPlace>(&type)) return found->gpsCoordinates;
  return std::nullopt;
}

std::string_view toString(const Place::PlaceType& type) {
  constexpr std::array<std::string_view, std::variant_size_v<Place::PlaceType>> kNames = {
      "country", "city", "airport", "custom", "timeZoneAbbreviation", "unspecified"};
  return kNames[type.index()];
}

}  // namespace tavrine
