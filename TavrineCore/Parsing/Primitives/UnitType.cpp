#include "TavrineCore/Parsing/Primitives/UnitType.h"

#include <algorithm>
#include <array>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::string_view label;
  UnitIdentifier baseUnit;
};

constexpr std::array<Row, kUnitTypeCount> kRows = {{
#define UNIT_TYPE(name, label, base) {#name, label, UnitIdentifier::base},
#include "TavrineCore/Parsing/Primitives/UnitType.def"
}};

const Row& rowOf(UnitType type) { return kRows[static_cast<std::size_t>(type)]; }

}  // namespace

std::string_view toString(UnitType type) { return rowOf(type).name; }

std::optional<UnitType> unitTypeNamed(std::string_view name) {
  const auto found = std::find_if(kRows.begin(), kRows.end(), [name](const Row& row) { return row.name == name; });
  if (found == kRows.end()) return std::nullopt;
  return static_cast<UnitType>(found - kRows.begin());
}

std::string_view labelOf(UnitType type) { return rowOf(type).label; }

UnitIdentifier baseUnitIdentifierOf(UnitType type) { return rowOf(type).baseUnit; }

}  // namespace tavrine
