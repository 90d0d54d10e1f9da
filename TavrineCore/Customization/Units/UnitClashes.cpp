#include "TavrineCore/Customization/Units/UnitClashes.h"

#include <array>
#include <utility>

namespace tavrine {

namespace {

using enum UnitIdentifier;

constexpr auto kOwners = std::to_array<std::pair<std::string_view, UnitIdentifier>>({
    {"pt", point},
    {"m", meters},
    {"qt", quarts},
    {"gal", gallons},
    {"tbsp", tablespoons},
    {"tsp", teaspoons},
    {"fl oz", fluidOunces},
    {"kb", kilobits},
    {"C", celsius},
});

}  // namespace

std::optional<UnitIdentifier> UnitClashes::unitIdentifierFor(std::string_view symbol) {
  for (const auto& [claimed, owner] : kOwners) {
    if (claimed == symbol) return owner;
  }
  return std::nullopt;
}

}  // namespace tavrine
