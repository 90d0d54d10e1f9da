#pragma once

#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// Knows a fixed set of places, for trials and tests.
class MockPlaceDataProvider final : public PlaceDataProvider {
 public:
  explicit MockPlaceDataProvider(const std::vector<PlaceData>& places);

  /// By its name, in upper or lower case.
  [[nodiscard]] std::optional<PlaceData> placeDataFor(const std::string& name, std::stop_token stop) override;

  /// The names that have been looked up so far, in order.
  [[nodiscard]] std::vector<std::string> namesAskedFor() const;

 private:
  StringMap<PlaceData> places_;  // by name in lower case
  mutable std::mutex mutex_;
  std::vector<std::string> namesAskedFor_;
};

}  // namespace tavrine
