#pragma once

#include <string>
#include <utility>

#include "Foundation/Date.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// Writes moments for machines: "2024-03-05T14:30:00Z", "2024-03-05T09:30:00-05:00". Whole seconds; the rest is cut.
class ISO8601DateFormatter {
 public:
  explicit ISO8601DateFormatter(TimeZone timeZone) : timeZone_(std::move(timeZone)) {}

  /// On the clocks of the zone, with its distance from GMT in whole minutes. Years have four digits at least; the year
  /// before 1 is "0000", those before have a minus sign. A moment beyond the calendar reads as the nearest one within.
  [[nodiscard]] std::string string(Date date) const;

 private:
  TimeZone timeZone_;
};

}  // namespace tavrine::foundation
