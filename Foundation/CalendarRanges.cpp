// Where a date lies in its year, month, week or day, and how much there is of each.

#include <algorithm>

#include "Foundation/Calendar.h"
#include "Foundation/CalendarDays.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

using Component = Calendar::Component;

/// From a first day up to the first day behind the last one.
struct DayRange {
  std::int64_t first = 0;
  std::int64_t end = 0;
};

/// The days of the year, month, week... of the day; absent for what is shorter than a day or no stretch of days.
std::optional<DayRange> daysOf(Component component, const CalendarDays& days, std::int64_t day) {
  switch (component) {
    case Component::year:
      return DayRange{days.startOfYear(day), days.startOfNextYear(day)};
    case Component::quarter:
      return DayRange{days.startOfQuarter(day), days.startOfNextQuarter(day)};
    case Component::month:
      return DayRange{days.startOfMonth(day), days.startOfNextMonth(day)};
    case Component::weekOfMonth:
    case Component::weekOfYear:
      return DayRange{days.startOfWeek(day), days.startOfWeek(day) + 7};
    case Component::yearForWeekOfYear: {
      const std::int64_t year = days.weekOfYear(day).year;
      const auto first = days.startOfWeekYear(year);
      const auto end = days.startOfWeekYear(year + 1);
      if (!first || !end) return std::nullopt;
      return DayRange{*first, *end};
    }
    case Component::day:
    case Component::weekday:
    case Component::weekdayOrdinal:
      return DayRange{day, day + 1};
    default:
      return std::nullopt;
  }
}

/// The length of a component of the clock; absent for the others.
std::optional<std::int64_t> secondsOf(Component component) {
  switch (component) {
    case Component::hour:
      return 3600;
    case Component::minute:
      return 60;
    case Component::second:
      return 1;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<DateInterval> Calendar::dateIntervalOf(Component component, Date date) const {
  const Moment moment = momentOf(date);
  const WallTime wall = wallTimeOf(moment.seconds, timeZone_);
  if (const auto length = secondsOf(component)) {
    const std::int64_t start = moment.seconds - wall.secondOfDay % *length;
    return DateInterval(dateOf({start, 0}), dateOf({start + *length, 0}));
  }
  const auto range = daysOf(component, CalendarDays(*this), wall.dayNumber);
  if (!range) return std::nullopt;
  return DateInterval(dateOf({startOfDayNumber(range->first, timeZone_), 0}),
                      dateOf({startOfDayNumber(range->end, timeZone_), 0}));
}

bool Calendar::isDateEqualTo(Date one, Date other, Component granularity) const {
  if (granularity == Component::nanosecond) return momentOf(one) == momentOf(other);
  const auto interval = dateIntervalOf(granularity, one);
  return interval && interval->start() <= other && other < interval->end();
}

std::optional<std::int64_t> Calendar::ordinalityOf(Component smaller, Component larger, Date date) const {
  const WallTime wall = wallTimeOf(momentOf(date).seconds, timeZone_);
  const CalendarDays days(*this);
  const std::int64_t day = wall.dayNumber;
  const auto largerDays = daysOf(larger, days, day);

  if (const auto length = secondsOf(smaller)) {
    if (largerDays) return ((day - largerDays->first) * kSecondsPerDay + wall.secondOfDay) / *length + 1;
    const auto largerLength = secondsOf(larger);
    if (!largerLength || *largerLength <= *length) return std::nullopt;
    return wall.secondOfDay % *largerLength / *length + 1;
  }
  if (smaller == Component::year && larger == Component::era) return days.component(Component::year, day);
  if (!largerDays) return std::nullopt;

  const std::int64_t position = day - largerDays->first;
  const bool isYear = larger == Component::year || larger == Component::yearForWeekOfYear;
  switch (smaller) {
    case Component::day:
      return larger == Component::day ? std::nullopt : std::optional(position + 1);
    case Component::weekday:
    case Component::weekdayOrdinal:
      // Within a week the place of the day; within more the number of such weekdays so far.
      if (larger == Component::weekOfYear || larger == Component::weekOfMonth) return position + 1;
      if (isYear || larger == Component::quarter || larger == Component::month) return position / 7 + 1;
      return std::nullopt;
    case Component::weekOfYear:
    case Component::weekOfMonth:
      if (isYear) return days.weekOfYear(day).week;
      if (larger == Component::month) return days.weekOfMonth(day);
      return std::nullopt;
    case Component::month:
      if (larger == Component::year) return days.component(Component::month, day);
      if (larger == Component::quarter) return (days.component(Component::month, day) - 1) % 3 + 1;
      return std::nullopt;
    case Component::quarter:
      return larger == Component::year ? std::optional(days.component(Component::quarter, day)) : std::nullopt;
    default:
      return std::nullopt;
  }
}

std::optional<Calendar::Range> Calendar::rangeOf(Component smaller, Component larger, Date date) const {
  const std::int64_t day = wallTimeOf(momentOf(date).seconds, timeZone_).dayNumber;
  const CalendarDays days(*this);

  if (const auto length = secondsOf(smaller)) {
    const std::int64_t largerLength = larger == Component::day ? kSecondsPerDay : secondsOf(larger).value_or(0);
    if (largerLength <= *length) return std::nullopt;
    return Range{0, largerLength / *length};
  }
  const auto largerDays = daysOf(larger, days, day);
  if (!largerDays || larger == Component::day) return std::nullopt;
  const bool isWeek = larger == Component::weekOfYear || larger == Component::weekOfMonth;
  switch (smaller) {
    case Component::day:
      return Range{1, largerDays->end - largerDays->first + 1};
    case Component::weekday:
      return Range{1, 8};
    case Component::weekdayOrdinal:
      if (isWeek) return std::nullopt;
      return Range{1, (largerDays->end - largerDays->first - 1) / 7 + 2};
    case Component::weekOfMonth:
    case Component::weekOfYear:
      if (larger == Component::month) {
        return Range{days.weekOfMonth(largerDays->first), days.weekOfMonth(largerDays->end - 1) + 1};
      }
      if (larger == Component::year || larger == Component::yearForWeekOfYear) {
        const std::int64_t year = days.system().fieldsOf(day).extendedYear;
        const std::int64_t weekYear = larger == Component::year ? year : days.weekOfYear(day).year;
        const auto first = days.startOfWeekYear(weekYear);
        const auto end = days.startOfWeekYear(weekYear + 1);
        if (!first || !end) return std::nullopt;
        return Range{1, (*end - *first) / 7 + 1};
      }
      return std::nullopt;
    case Component::month:
      if (larger == Component::year) return Range{1, days.system().monthsInYearOf(day) + 1};
      if (larger == Component::quarter) {
        const std::int64_t first = days.component(Component::month, largerDays->first);
        return Range{first, first + 3};
      }
      return std::nullopt;
    case Component::quarter:
      return larger == Component::year ? std::optional(Range{1, 5}) : std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace tavrine::foundation
