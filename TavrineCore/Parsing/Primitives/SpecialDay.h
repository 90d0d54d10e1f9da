#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A day of the year with names of its own: "christmas", "xmas".
struct SpecialDay {
  enum class SpecialDayType : std::uint8_t {
    christmasEve,
    christmasDay,
    goodFriday,
    easterSunday,
    boxingDay,
    newYearsEve,
    newYearsDay,
    blackFriday,
    thanksgiving,
    valentinesDay,
    halloween,
    chineseNewYear,
    ramadanStart,
    ramadanEnd,
  };

  SpecialDayType type = SpecialDayType::christmasEve;
  std::vector<std::string> aliases;

  [[nodiscard]] std::size_t hash() const { return hashCombine(hashOf(type), hashOfRange(aliases)); }
  friend bool operator==(const SpecialDay&, const SpecialDay&) = default;
};

/// The raw name: "christmasEve".
std::string_view toString(SpecialDay::SpecialDayType type);

/// The day with this raw name, if there is one.
std::optional<SpecialDay::SpecialDayType> specialDayTypeNamed(std::string_view name);

}  // namespace tavrine
