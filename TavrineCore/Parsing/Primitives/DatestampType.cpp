#include "TavrineCore/Parsing/Primitives/DatestampType.h"

#include <array>

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  UnitIdentifier largestUnit;
  CalendarComponentSet components;
};

constexpr std::array<Row, kDatestampTypeCount> makeRows() {
  using enum Calendar::Component;
  return {{
#define DATESTAMP_TYPE(name, largest, ...) {#name, UnitIdentifier::largest, {__VA_ARGS__}},
#include "TavrineCore/Parsing/Primitives/DatestampType.def"
  }};
}

constexpr auto kRows = makeRows();

const Row& rowOf(DatestampType type) { return kRows[static_cast<std::size_t>(type)]; }

}  // namespace

std::string_view toString(DatestampType type) { return rowOf(type).name; }

const CalendarComponentSet& calendarComponentsRepresentedBy(DatestampType type) { return rowOf(type).components; }

UnitIdentifier largestUnitOf(DatestampType type) { return rowOf(type).largestUnit; }

}  // namespace tavrine
