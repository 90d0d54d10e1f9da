#include "TavrineCore/Customization/Places/MockPlaceDataProvider.h"

#include "Foundation/Text.h"

namespace tavrine {

MockPlaceDataProvider::MockPlaceDataProvider(const std::vector<PlaceData>& places) {
  for (const PlaceData& place : places) places_.insert_or_assign(lowercased(place.name), place);
}

std::optional<PlaceData> MockPlaceDataProvider::placeDataFor(const std::string& name, std::stop_token stop) {
  {
    const std::lock_guard lock(mutex_);
    namesAskedFor_.push_back(name);
  }
  const auto found = places_.find(lowercased(name));
  if (stop.stop_requested() || found == places_.end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> MockPlaceDataProvider::namesAskedFor() const {
  const std::lock_guard lock(mutex_);
  return namesAskedFor_;
}

}  // namespace tavrine
