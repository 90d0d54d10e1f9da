#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"

namespace tavrine {

namespace {

constexpr std::string_view kLetters = "NSEW";

/// Cuts the whole part off the value.
Decimal takeWhole(Decimal& value) {
  const Decimal whole = value.rounded(0, RoundingMode::down);
  value -= whole;
  return whole;
}

}  // namespace

DegreesMinutesSeconds DegreesMinutesSeconds::fromDecimal(const Decimal& decimalDegrees) {
  Decimal rest = decimalDegrees;
  DegreesMinutesSeconds angle;
  angle.degrees = takeWhole(rest);
  rest *= 60;
  angle.minutes = takeWhole(rest);
  angle.seconds = rest * 60;
  return angle;
}

Decimal DegreesMinutesSeconds::decimalDegrees() const {
  // One division, so that what is a short number of degrees comes out as one: 30′ is exactly 0.5.
  return degrees + (minutes * 60 + seconds) / 3600;
}

std::string_view toString(DegreesMinutesSeconds::CardinalDirection direction) {
  return kLetters.substr(static_cast<std::size_t>(direction), 1);
}

std::optional<DegreesMinutesSeconds::CardinalDirection> cardinalDirectionNamed(std::string_view letter) {
  if (letter.size() != 1) return std::nullopt;
  const std::size_t found = kLetters.find(letter);
  if (found == std::string_view::npos) return std::nullopt;
  return static_cast<DegreesMinutesSeconds::CardinalDirection>(found);
}

}  // namespace tavrine
