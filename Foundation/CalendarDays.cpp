#include "Foundation/CalendarDays.h"

#include <algorithm>
#include <array>

namespace tavrine::foundation {

namespace {

/// The bounds keep every product of an amount and its seconds within 64 bits.
constexpr std::int64_t kMostAmount = 100'000'000'000'000;

}  // namespace

bool areModest(const DateComponents& components) {
  // Nanoseconds may be as many as a whole number holds, since they are never multiplied.
  const std::array amounts = {components.era,
                              components.year,
                              components.month,
                              components.day,
                              components.hour,
                              components.minute,
                              components.second,
                              components.weekday,
                              components.weekdayOrdinal,
                              components.quarter,
                              components.weekOfMonth,
                              components.weekOfYear,
                              components.yearForWeekOfYear};
  return std::ranges::all_of(amounts, [](const std::optional<std::int64_t>& amount) {
    return !amount || (*amount >= -kMostAmount && *amount <= kMostAmount);
  });
}

int CalendarDays::positionInWeek(std::int64_t day) const {
  return static_cast<int>(floorModulo(weekdayOf(day) - weeks_.firstWeekday, 7)) + 1;
}

std::int64_t CalendarDays::startOfNextMonth(std::int64_t day) const {
  return startOfMonth(day) + system_.daysInMonthOf(day);
}

std::int64_t CalendarDays::startOfQuarter(std::int64_t day) const {
  const DayFields fields = system_.fieldsOf(day);
  const std::int64_t month = (fields.month - 1) / 3 * 3 + 1;
  return system_.firstDayOf(std::nullopt, fields.extendedYear, month).value_or(startOfMonth(day));
}

std::int64_t CalendarDays::startOfNextQuarter(std::int64_t day) const {
  const DayFields fields = system_.fieldsOf(day);
  const std::int64_t month = (fields.month - 1) / 3 * 3 + 4;
  return system_.firstDayOf(std::nullopt, fields.extendedYear, month).value_or(startOfNextMonth(day));
}

std::int64_t CalendarDays::startOfYear(std::int64_t day) const {
  return system_.firstDayOf(std::nullopt, system_.fieldsOf(day).extendedYear, 1).value_or(startOfMonth(day));
}

std::int64_t CalendarDays::startOfNextYear(std::int64_t day) const {
  return system_.firstDayOf(std::nullopt, system_.fieldsOf(day).extendedYear + 1, 1).value_or(startOfNextMonth(day));
}

std::int64_t CalendarDays::firstWeekFrom(std::int64_t firstDay) const {
  const std::int64_t start = startOfWeek(firstDay);
  return start + 7 - firstDay >= weeks_.minimumDaysInFirstWeek ? start : start + 7;
}

std::optional<std::int64_t> CalendarDays::startOfWeekYear(std::int64_t year) const {
  const auto first = system_.firstDayOf(std::nullopt, year, 1);
  if (!first) return std::nullopt;
  return firstWeekFrom(*first);
}

CalendarDays::WeekOfYear CalendarDays::weekOfYear(std::int64_t day) const {
  std::int64_t year = system_.fieldsOf(day).extendedYear;
  if (const auto next = startOfWeekYear(year + 1); next && day >= *next) return {year + 1, (day - *next) / 7 + 1};
  auto start = startOfWeekYear(year);
  if (start && day < *start) start = startOfWeekYear(--year);
  if (!start) return {year, 1};
  return {year, (day - *start) / 7 + 1};
}

std::int64_t CalendarDays::weekOfMonth(std::int64_t day) const {
  return floorDivide(day - firstWeekFrom(startOfMonth(day)), 7) + 1;
}

std::int64_t CalendarDays::component(Calendar::Component component, std::int64_t dayNumber) const {
  using enum Calendar::Component;
  switch (component) {
    case era:
      return system_.fieldsOf(dayNumber).era;
    case year:
      return system_.fieldsOf(dayNumber).year;
    case month:
      return system_.fieldsOf(dayNumber).month;
    case Calendar::Component::day:
      return system_.fieldsOf(dayNumber).day;
    case weekday:
      return weekdayOf(dayNumber);
    case weekdayOrdinal:
      return (system_.fieldsOf(dayNumber).day - 1) / 7 + 1;
    case quarter:
      return std::min<std::int64_t>((system_.fieldsOf(dayNumber).month - 1) / 3 + 1, 4);
    case weekOfMonth:
      return this->weekOfMonth(dayNumber);
    case weekOfYear:
      return this->weekOfYear(dayNumber).week;
    case yearForWeekOfYear:
      return this->weekOfYear(dayNumber).year;
    case hour:
    case minute:
    case second:
    case nanosecond:
    case calendar:
    case timeZone:
      return 0;
  }
  return 0;
}

std::optional<std::int64_t> CalendarDays::dayFrom(const DateComponents& components) const {
  const auto positionOfWeekday = [&] {
    return components.weekday ? floorModulo(*components.weekday - weeks_.firstWeekday, 7) : 0;
  };
  const bool hasMonthDay = components.day || (components.weekday && components.weekdayOrdinal) ||
                           components.weekOfMonth || components.month || components.quarter;
  if ((components.weekOfYear || components.yearForWeekOfYear) && !hasMonthDay) {
    const auto start = startOfWeekYear(components.yearForWeekOfYear.value_or(components.year.value_or(1)));
    if (!start) return std::nullopt;
    return *start + (components.weekOfYear.value_or(1) - 1) * 7 + positionOfWeekday();
  }

  const std::int64_t quarterMonth = (components.quarter.value_or(1) - 1) * 3 + 1;
  const auto first =
      system_.firstDayOf(components.era, components.year.value_or(1), components.month.value_or(quarterMonth));
  if (!first) return std::nullopt;
  if (components.day) return *first + *components.day - 1;
  if (components.weekday && !components.weekOfMonth) {
    const std::int64_t firstSuch = *first + floorModulo(*components.weekday - weekdayOf(*first), 7);
    const std::int64_t ordinal = components.weekdayOrdinal.value_or(1);
    if (ordinal > 0) return firstSuch + (ordinal - 1) * 7;
    // The last such weekday is number -1.
    const std::int64_t next = startOfNextMonth(*first);
    return firstSuch + (floorDivide(next - 1 - firstSuch, 7) + 1 + ordinal) * 7;
  }
  if (components.weekOfMonth) {
    return firstWeekFrom(*first) + (*components.weekOfMonth - 1) * 7 + positionOfWeekday();
  }
  return first;
}

}  // namespace tavrine::foundation
