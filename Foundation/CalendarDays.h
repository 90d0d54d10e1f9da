#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/CalendarSystem.h"
#include "Foundation/CivilDay.h"

namespace tavrine::foundation {

/// The weeks of a calendar.
struct WeekRule {
  /// Sunday is 1.
  int firstWeekday = 1;
  int minimumDaysInFirstWeek = 1;
};

/// A calendar's days by number, without clocks: what belongs to years, months and weeks is worked out here.
class CalendarDays {
 public:
  CalendarDays(const CalendarSystem& system, WeekRule weeks) : system_(system), weeks_(weeks) {}
  explicit CalendarDays(const Calendar& calendar)
      : CalendarDays(CalendarSystem::of(calendar.identifier()),
                     {calendar.firstWeekday(), calendar.minimumDaysInFirstWeek()}) {}

  [[nodiscard]] const CalendarSystem& system() const { return system_; }

  /// From 1: how far the day lies from the start of its week.
  [[nodiscard]] int positionInWeek(std::int64_t day) const;
  [[nodiscard]] std::int64_t startOfWeek(std::int64_t day) const { return day - positionInWeek(day) + 1; }
  [[nodiscard]] std::int64_t startOfMonth(std::int64_t day) const { return day - system_.fieldsOf(day).day + 1; }
  [[nodiscard]] std::int64_t startOfNextMonth(std::int64_t day) const;
  [[nodiscard]] std::int64_t startOfQuarter(std::int64_t day) const;
  [[nodiscard]] std::int64_t startOfNextQuarter(std::int64_t day) const;
  [[nodiscard]] std::int64_t startOfYear(std::int64_t day) const;
  [[nodiscard]] std::int64_t startOfNextYear(std::int64_t day) const;
  /// From 1.
  [[nodiscard]] std::int64_t dayOfYear(std::int64_t day) const { return day - startOfYear(day) + 1; }

  struct WeekOfYear {
    std::int64_t year = 0;
    std::int64_t week = 1;
  };
  [[nodiscard]] WeekOfYear weekOfYear(std::int64_t day) const;
  /// The first day of week 1 of an extended year; absent beyond the limits.
  [[nodiscard]] std::optional<std::int64_t> startOfWeekYear(std::int64_t year) const;
  /// 0 where the month begins with days that are no first week yet.
  [[nodiscard]] std::int64_t weekOfMonth(std::int64_t day) const;

  /// A component from era to day, and the weeks and weekdays; 0 for those of the clock.
  [[nodiscard]] std::int64_t component(Calendar::Component component, std::int64_t dayNumber) const;

  /// The day with these components; see `Calendar::dateFrom`. The amounts have to be modest.
  [[nodiscard]] std::optional<std::int64_t> dayFrom(const DateComponents& components) const;

 private:
  /// Where week 1 begins of a month or year that begins on the day.
  [[nodiscard]] std::int64_t firstWeekFrom(std::int64_t firstDay) const;

  const CalendarSystem& system_;
  WeekRule weeks_;
};

/// Whether all amounts are small enough to be multiplied without a thought of overflow.
[[nodiscard]] bool areModest(const DateComponents& components);

}  // namespace tavrine::foundation
