#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/Calendar.h"

namespace tavrine::foundation {

/// A day as a calendar names it.
struct DayFields {
  std::int64_t era = 1;
  /// Within the era, from 1.
  std::int64_t year = 1970;
  /// Goes on through all eras: the year before 1 is 0.
  std::int64_t extendedYear = 1970;
  /// From 1.
  std::int64_t month = 1;
  std::int64_t day = 1;
};

/// The way in which a calendar makes months and years of days. Days go by number, day 0 being 1970-01-01 in every
/// calendar. Any thread may use the one object that there is of each system.
class CalendarSystem {
 public:
  virtual ~CalendarSystem() = default;
  [[nodiscard]] static const CalendarSystem& of(Calendar::Identifier identifier);

  /// Of a day within the limits of the system; those beyond are read as the limit.
  [[nodiscard]] virtual DayFields fieldsOf(std::int64_t dayNumber) const = 0;
  /// The first day of a month. A month below 1 or above the last one runs over into other years; without an era the
  /// year is an extended one. Absent beyond the limits of the system.
  [[nodiscard]] virtual std::optional<std::int64_t> firstDayOf(std::optional<std::int64_t> era, std::int64_t year,
                                                               std::int64_t month) const = 0;
  /// Moves by years, then by months; a day that the month reached lacks becomes its last.
  [[nodiscard]] virtual std::optional<std::int64_t> adding(std::int64_t years, std::int64_t months,
                                                           std::int64_t dayNumber) const = 0;
  /// How many months the year of the day has.
  [[nodiscard]] virtual std::int64_t monthsInYearOf(std::int64_t dayNumber) const = 0;
  /// How many days the month of the day has.
  [[nodiscard]] virtual std::int64_t daysInMonthOf(std::int64_t dayNumber) const = 0;
};

}  // namespace tavrine::foundation
