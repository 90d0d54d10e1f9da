#include "TavrineCore/Customization/Places/Place.h"

#include <array>

namespace tavrine {

std::string_view toString(const Place::PlaceType& type) {
  constexpr std::array<std::string_view, std::variant_size_v<Place::PlaceType>> kNames = {
      "country", "city", "airport", "custom", "timeZoneAbbreviation", "unspecified"};
  return kNames[type.index()];
}

}  // namespace tavrine
