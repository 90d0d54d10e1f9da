// The search for the next date with given components. The days are walked one by one, since any mix of month, week and
// weekday may be asked for; months that can't hold the day are passed in one step, and the walk ends after some years.

#include <algorithm>
#include <array>

#include "Foundation/Calendar.h"
#include "Foundation/CalendarDays.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

using Component = Calendar::Component;

/// 29 February may be eight years away.
constexpr std::int64_t kYearsSearched = 12;
constexpr std::int64_t kDaysSearched = kYearsSearched * 366;

constexpr std::array kDayComponents = {Component::era,
                                       Component::year,
                                       Component::quarter,
                                       Component::month,
                                       Component::weekOfMonth,
                                       Component::weekOfYear,
                                       Component::yearForWeekOfYear,
                                       Component::day,
                                       Component::weekdayOrdinal,
                                       Component::weekday};

/// The time of day that is looked for, where some of its fields may be any.
struct TimeOfDay {
  std::optional<std::int64_t> hour;
  std::optional<std::int64_t> minute;
  std::int64_t second = 0;
  std::int32_t nanosecond = 0;
};

class Search {
 public:
  Search(const Calendar& calendar, const DateComponents& matching, Calendar::MatchingPolicy matchingPolicy,
         Calendar::RepeatedTimePolicy repeatedTimePolicy, bool isForward)
      : days_(calendar),
        zone_(calendar.timeZone()),
        matching_(withFirsts(matching)),
        matchingPolicy_(matchingPolicy),
        repeatedTimePolicy_(repeatedTimePolicy),
        isForward_(isForward) {
    for (const Component component : kDayComponents) {
      if (valueOf(matching_, component)) hasDay_ = true;
    }
    time_.second = matching.second.value_or(0);
    time_.nanosecond = static_cast<std::int32_t>(matching.nanosecond.value_or(0));
    const bool hasSecond = matching.second || matching.nanosecond;
    if (hasDay_ || matching.hour) {
      time_.hour = matching.hour.value_or(0);
      time_.minute = matching.minute.value_or(0);
    } else if (matching.minute || !hasSecond) {
      time_.minute = matching.minute.value_or(0);
    }
  }

  [[nodiscard]] std::optional<Moment> after(Moment start) const {
    if (!isTimeOfDay()) return std::nullopt;
    if (!time_.hour) return nextTimeAfter(start);

    // A time that is skipped may come out on the day after or before its own.
    const std::int64_t firstDay = firstDaySearched(wallTimeOf(start.seconds, zone_).dayNumber - step());
    for (std::int64_t day = firstDay; std::abs(day - firstDay) <= kDaysSearched;) {
      if (day < kFirstDay || day > kLastDay) return std::nullopt;
      if (const std::int64_t skipped = daysToSkipAt(day); skipped > 0) {
        day += skipped * step();
        continue;
      }
      if (matchesDay(day)) {
        const auto found = momentOn(day);
        if (found && (isForward_ ? *found > start : *found < start)) return found;
      }
      day += step();
    }
    return std::nullopt;
  }

 private:
  [[nodiscard]] std::int64_t step() const { return isForward_ ? 1 : -1; }

  /// A month alone means its first day, a week its first one.
  static DateComponents withFirsts(DateComponents matching) {
    const bool hasWeek = matching.weekOfYear || matching.weekOfMonth;
    const bool hasDayOfWeek = matching.weekday || matching.weekdayOrdinal;
    if (matching.day || hasDayOfWeek || hasWeek) return matching;
    if (matching.month || matching.quarter || matching.year || matching.era) {
      matching.day = 1;
      if (!matching.month && !matching.quarter) matching.month = 1;
    }
    return matching;
  }

  [[nodiscard]] bool isTimeOfDay() const {
    return time_.hour.value_or(0) >= 0 && time_.hour.value_or(0) < 24 && time_.minute.value_or(0) >= 0 &&
           time_.minute.value_or(0) < 60 && time_.second >= 0 && time_.second < 60 &&
           matching_.nanosecond.value_or(0) >= 0 && matching_.nanosecond.value_or(0) < kNanosecondsPerSecond;
  }

  /// The day itself, or the end of the wanted year that the search meets first.
  [[nodiscard]] std::int64_t firstDaySearched(std::int64_t day) const {
    if (!matching_.year) return day;
    const std::int64_t year = *matching_.year + (isForward_ ? 0 : 1);
    const auto limit = days_.system().firstDayOf(matching_.era, year, 1);
    if (!limit) return day;
    return isForward_ ? std::max(day, *limit) : std::min(day, *limit - 1);
  }

  /// The next moment with the minute or second, at whatever hour.
  [[nodiscard]] std::optional<Moment> nextTimeAfter(Moment start) const {
    const std::int64_t period = time_.minute ? 3600 : 60;
    const std::int64_t wanted = time_.minute.value_or(0) * 60 + time_.second;
    const WallTime wall = wallTimeOf(start.seconds, zone_);
    Moment found{start.seconds - floorModulo(wall.secondOfDay - wanted, period), time_.nanosecond};
    if (isForward_ && found <= start) found.seconds += period;
    if (!isForward_ && found >= start) found.seconds -= period;
    if (!isWithinLimits(found.seconds)) return std::nullopt;
    return found;
  }

  /// How many days from here can't match because of their month; 0 where the day has to be looked at.
  [[nodiscard]] std::int64_t daysToSkipAt(std::int64_t day) const {
    if (!matching_.month && !matching_.year) return 0;
    const DayFields fields = days_.system().fieldsOf(day);
    const bool isMonth = !matching_.month || *matching_.month == fields.month;
    const bool isYear = !matching_.year || *matching_.year == fields.year;
    if (isMonth && isYear) return 0;
    return isForward_ ? days_.system().daysInMonthOf(day) - fields.day + 1 : fields.day;
  }

  [[nodiscard]] bool matchesDay(std::int64_t day) const {
    const bool isStartOfWeekMeant = (matching_.weekOfYear || matching_.weekOfMonth) && !matching_.day &&
                                    !matching_.weekday && !matching_.weekdayOrdinal;
    if (isStartOfWeekMeant && days_.positionInWeek(day) != 1) return false;
    return std::ranges::all_of(kDayComponents, [&](Component component) {
      const auto wanted = valueOf(matching_, component);
      return !wanted || *wanted == days_.component(component, day);
    });
  }

  [[nodiscard]] std::optional<Moment> momentOn(std::int64_t day) const {
    const std::int64_t secondOfDay = *time_.hour * 3600 + *time_.minute * 60 + time_.second;
    const WallTimeMoments moments = momentsOf(day * kSecondsPerDay + secondOfDay, zone_);
    if (moments.skippedAt) {
      switch (matchingPolicy_) {
        case Calendar::MatchingPolicy::nextTime:
          return Moment{*moments.skippedAt, 0};
        case Calendar::MatchingPolicy::nextTimePreservingSmallerComponents:
          return Moment{moments.first, time_.nanosecond};
        case Calendar::MatchingPolicy::previousTimePreservingSmallerComponents:
          return Moment{moments.first - moments.skippedSeconds, time_.nanosecond};
        case Calendar::MatchingPolicy::strict:
          return std::nullopt;
      }
    }
    const bool takesLast = repeatedTimePolicy_ == Calendar::RepeatedTimePolicy::last;
    return Moment{takesLast ? moments.last : moments.first, time_.nanosecond};
  }

  CalendarDays days_;
  const TimeZone& zone_;
  DateComponents matching_;
  Calendar::MatchingPolicy matchingPolicy_;
  Calendar::RepeatedTimePolicy repeatedTimePolicy_;
  bool isForward_;
  bool hasDay_ = false;
  TimeOfDay time_;
};

}  // namespace

std::optional<Date> Calendar::nextDate(Date after, const DateComponents& matching, MatchingPolicy matchingPolicy,
                                       RepeatedTimePolicy repeatedTimePolicy, SearchDirection direction) const {
  if (matching == DateComponents{}) return std::nullopt;
  const Search search(*this, matching, matchingPolicy, repeatedTimePolicy, direction == SearchDirection::forward);
  const auto found = search.after(momentOf(after));
  if (!found) return std::nullopt;
  return dateOf(*found);
}

}  // namespace tavrine::foundation
