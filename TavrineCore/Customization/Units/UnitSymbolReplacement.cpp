#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"

#include <algorithm>
#include <array>

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::string_view description;
};

constexpr std::array<Row, 4> kRows = {{
    {"before", "Before"},
    {"beforeWithSpace", "Before (with space)"},
    {"after", "After"},
    {"afterWithSpace", "After (with space)"},
}};

}  // namespace

std::string_view toString(UnitSymbolReplacementPosition position) {
  return kRows[static_cast<std::size_t>(position)].name;
}

std::string_view descriptionOf(UnitSymbolReplacementPosition position) {
  return kRows[static_cast<std::size_t>(position)].description;
}

std::optional<UnitSymbolReplacementPosition> unitSymbolReplacementPositionNamed(std::string_view name) {
  const auto found = std::find_if(kRows.begin(), kRows.end(), [name](const Row& row) { return row.name == name; });
  if (found == kRows.end()) return std::nullopt;
  return static_cast<UnitSymbolReplacementPosition>(found - kRows.begin());
}

}  // namespace tavrine
