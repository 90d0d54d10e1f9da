#pragma once

#include <optional>
#include <utility>

#include "Foundation/TimeZone.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"

namespace tavrine {

/// "Paris", "EST".
struct TimezoneTokenMetadata final : TokenMetadataOf<TokenMetadataKind::timezone> {
  explicit TimezoneTokenMetadata(TimeZone zone, std::optional<Place> place = std::nullopt)
      : timeZone(std::move(zone)), representedPlace(std::move(place)) {}
  TimeZone timeZone;
  std::optional<Place> representedPlace;
};

/// "48.85, 2.35".
struct GPSCoordinatesTokenMetadata final : TokenMetadataOf<TokenMetadataKind::gpsCoordinates> {
  explicit GPSCoordinatesTokenMetadata(GPSCoordinates coordinates) : gpsCoordinates(std::move(coordinates)) {}
  GPSCoordinates gpsCoordinates;
};

/// "48° 51' 24"".
struct DMSTokenMetadata final : TokenMetadataOf<TokenMetadataKind::dms> {
  explicit DMSTokenMetadata(DegreesMinutesSeconds angle) : dms(std::move(angle)) {}
  DegreesMinutesSeconds dms;
};

}  // namespace tavrine
