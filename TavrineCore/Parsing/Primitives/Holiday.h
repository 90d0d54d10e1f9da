#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A day on which nobody works, in one year.
struct Holiday {
  int day = 0;
  int month = 0;
  int year = 0;
  std::optional<std::string> description = std::nullopt;

  [[nodiscard]] std::size_t hash() const { return hashOf(day, month, year, description); }
  friend auto operator<=>(const Holiday&, const Holiday&) = default;
};

}  // namespace tavrine
