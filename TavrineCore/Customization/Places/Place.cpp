#include "TavrineCore/Customization/Places/Place.h"

#include <array>

#include "Foundation/Decimal.h"

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
