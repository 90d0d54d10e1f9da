#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// An angle as written: 48° 51′ 24″ N.
struct DegreesMinutesSeconds {
  enum class CardinalDirection : std::uint8_t { north, south, east, west };

  Decimal degrees;
  Decimal minutes;
  Decimal seconds;
  std::optional<CardinalDirection> cardinalDirection;

  [[nodiscard]] std::size_t hash() const { return hashOf(degrees, minutes, seconds, cardinalDirection); }
  friend bool operator==(const DegreesMinutesSeconds&, const DegreesMinutesSeconds&) = default;
};

/// "N", "S", "E" or "W".
std::string_view toString(DegreesMinutesSeconds::CardinalDirection direction);

/// The direction that one of these four letters stands for.
std::optional<DegreesMinutesSeconds::CardinalDirection> cardinalDirectionNamed(std::string_view letter);

constexpr bool isValidLatitude(DegreesMinutesSeconds::CardinalDirection direction) {
  using enum DegreesMinutesSeconds::CardinalDirection;
  return direction == north || direction == south;
}
constexpr bool isValidLongitude(DegreesMinutesSeconds::CardinalDirection direction) {
  return !isValidLatitude(direction);
}

}  // namespace tavrine
