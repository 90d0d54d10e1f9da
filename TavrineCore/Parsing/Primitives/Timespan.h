#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/DateComponents.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A duration on the calendar: 3 weeks and 2 days.
struct Timespan {
  DateComponents dateComponents;
  /// What the duration was measured from, if it was: it gives months and years an exact length.
  std::optional<DateInterval> representedInterval;

  [[nodiscard]] std::size_t hash() const { return hashOf(dateComponents, representedInterval); }
  friend bool operator==(const Timespan&, const Timespan&) = default;
};

}  // namespace tavrine
