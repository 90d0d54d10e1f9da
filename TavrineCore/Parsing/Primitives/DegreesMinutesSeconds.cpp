#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"

namespace tavrine {

namespace {

constexpr std::string_view kLetters = "NSEW";

}  // namespace

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
