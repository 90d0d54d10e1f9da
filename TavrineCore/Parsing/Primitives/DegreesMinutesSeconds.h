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

  /// The angle of so many degrees: 48.5 gives 48° 30′ 0″. Below zero the degrees are rounded down and the rest counts
  /// upwards: -0.25 gives -1° 45′ 0″.
  [[nodiscard]] static DegreesMinutesSeconds fromDecimal(const Decimal& decimalDegrees);

  /// All three as degrees. The direction takes no part.
  [[nodiscard]] Decimal decimalDegrees() const;

  /// On the degrees; the result has no direction.
  friend DegreesMinutesSeconds operator+(const DegreesMinutesSeconds& left, const DegreesMinutesSeconds& right) {
    return fromDecimal(left.decimalDegrees() + right.decimalDegrees());
  }
  friend DegreesMinutesSeconds operator-(const DegreesMinutesSeconds& left, const DegreesMinutesSeconds& right) {
    return fromDecimal(left.decimalDegrees() - right.decimalDegrees());
  }

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
