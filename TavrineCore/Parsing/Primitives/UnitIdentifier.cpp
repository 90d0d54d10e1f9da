#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

#include <array>
#include <unordered_map>

namespace tavrine {

namespace {

constexpr std::array<std::string_view, kUnitIdentifierCount> kNames = {
#define UNIT_IDENTIFIER(name, type) #name,
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.def"
};

constexpr std::array<UnitType, kUnitIdentifierCount> kTypes = {
#define UNIT_IDENTIFIER(name, type) UnitType::type,
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.def"
};

}  // namespace

std::string_view toString(UnitIdentifier identifier) { return kNames[static_cast<std::size_t>(identifier)]; }

std::optional<UnitIdentifier> unitIdentifierNamed(std::string_view name) {
  // Resources name an identifier on each of their rows, so a walk over 513 names would count.
  static const auto identifiers = [] {
    std::unordered_map<std::string_view, UnitIdentifier> byName;
    byName.reserve(kNames.size());
    for (std::size_t i = 0; i < kNames.size(); ++i) byName.emplace(kNames[i], static_cast<UnitIdentifier>(i));
    return byName;
  }();
  const auto found = identifiers.find(name);
  if (found == identifiers.end()) return std::nullopt;
  return found->second;
}

UnitType unitTypeOf(UnitIdentifier identifier) { return kTypes[static_cast<std::size_t>(identifier)]; }

}  // namespace tavrine
