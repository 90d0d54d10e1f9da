#include "TavrineCore/Parsing/Primitives/SpecialDay.h"

#include <algorithm>
#include <array>

namespace tavrine {

namespace {

constexpr auto kNames = std::to_array<std::string_view>({
    "christmasEve",
    "christmasDay",
    "goodFriday",
    "easterSunday",
    "boxingDay",
    "newYearsEve",
    "newYearsDay",
    "blackFriday",
    "thanksgiving",
    "valentinesDay",
    "halloween",
    "chineseNewYear",
    "ramadanStart",
    "ramadanEnd",
});
static_assert(kNames.size() == static_cast<std::size_t>(SpecialDay::SpecialDayType::ramadanEnd) + 1);

}  // namespace

std::string_view toString(SpecialDay::SpecialDayType type) { return kNames[static_cast<std::size_t>(type)]; }

std::optional<SpecialDay::SpecialDayType> specialDayTypeNamed(std::string_view name) {
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<SpecialDay::SpecialDayType>(found - kNames.begin());
}

}  // namespace tavrine
