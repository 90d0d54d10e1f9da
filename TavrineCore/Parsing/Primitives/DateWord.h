#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// What a word of a calendar names.
enum class DateWordType : std::uint8_t { am, pm, month, dayOfWeek, quarter };

/// A word of a calendar: "march" is the month with index 3.
struct DateWord {
  DateWordType type = DateWordType::month;
  /// The word in lower case.
  std::string fragment;
  /// The number of the month or weekday, from 1, or of the quarter, from 0; absent for "am" and "pm".
  std::optional<int> index;

  [[nodiscard]] std::size_t hash() const { return hashOf(type, fragment, index); }
  friend bool operator==(const DateWord&, const DateWord&) = default;
};

std::string_view toString(DateWordType type);

}  // namespace tavrine
