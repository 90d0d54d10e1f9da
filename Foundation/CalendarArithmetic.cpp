// Adding to dates and measuring between them. Both take the largest components first and work on the wall clock down to
// days, so that adding what was measured leads from the one date to the other.

#include <algorithm>
#include <utility>

#include "Foundation/Calendar.h"
#include "Foundation/CalendarDays.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

/// A date that can be moved by calendar units.
class Walker {
 public:
  Walker(const CalendarDays& days, const TimeZone& zone, Moment moment)
      : days_(days), zone_(zone), moment_(moment), wall_(wallTimeOf(moment.seconds, zone)) {}

  [[nodiscard]] Moment moment() const { return moment_; }
  [[nodiscard]] const WallTime& wall() const { return wall_; }

  /// The moment that lies so much later by the wall clock; this one where nothing is added.
  [[nodiscard]] std::optional<Moment> adding(std::int64_t years, std::int64_t months, std::int64_t days) const {
    if (years == 0 && months == 0 && days == 0) return moment_;
    std::optional<std::int64_t> day = wall_.dayNumber;
    if (years != 0 || months != 0) day = days_.system().adding(years, months, *day);
    if (!day) return std::nullopt;
    *day += days;
    if (*day < kFirstDay || *day > kLastDay) return std::nullopt;
    return Moment{momentsOf(*day * kSecondsPerDay + wall_.secondOfDay, zone_).first, moment_.nanoseconds};
  }

  void moveTo(Moment moment) {
    moment_ = moment;
    wall_ = wallTimeOf(moment.seconds, zone_);
  }

 private:
  const CalendarDays& days_;
  const TimeZone& zone_;
  Moment moment_;
  WallTime wall_;
};

/// How many units can be added without passing the target, and goes there. The estimate may be off by one: months end
/// on different days, and clocks are set; in calendars with leap months it may be off by one in three years.
template <class Add>
std::int64_t advance(Walker& walker, Moment target, std::int64_t estimate, const Add& add) {
  const bool isForward = target >= walker.moment();
  const std::int64_t step = isForward ? 1 : -1;
  const auto passes = [&](std::int64_t count) {
    const std::optional<Moment> moment = add(count);
    return !moment || (isForward ? *moment > target : *moment < target);
  };
  constexpr int mostCorrections = 400;
  std::int64_t count = estimate * step < 0 ? 0 : estimate;
  for (int i = 0; i < mostCorrections && count != 0 && passes(count); ++i) count -= step;
  for (int i = 0; i < mostCorrections && !passes(count + step); ++i) count += step;
  if (const std::optional<Moment> moment = add(count)) walker.moveTo(*moment);
  return count;
}

std::int64_t valueOr0(const std::optional<std::int64_t>& value) { return value.value_or(0); }

}  // namespace

std::optional<Date> Calendar::dateByAdding(const DateComponents& components, Date date) const {
  if (!areModest(components)) return std::nullopt;
  const CalendarDays days(*this);
  const Moment start = momentOf(date);
  const Walker walker(days, timeZone_, start);
  const auto moved = walker.adding(
      valueOr0(components.year) + valueOr0(components.yearForWeekOfYear),
      valueOr0(components.month) + valueOr0(components.quarter) * 3,
      (valueOr0(components.weekOfYear) + valueOr0(components.weekOfMonth) + valueOr0(components.weekdayOrdinal)) * 7 +
          valueOr0(components.day) + valueOr0(components.weekday));
  if (!moved) return std::nullopt;

  const std::int64_t added = valueOr0(components.nanosecond);
  const std::int64_t nanoseconds = moved->nanoseconds + floorModulo(added, kNanosecondsPerSecond);
  const std::int64_t seconds = moved->seconds + valueOr0(components.hour) * 3600 + valueOr0(components.minute) * 60 +
                               valueOr0(components.second) + floorDivide(added, kNanosecondsPerSecond) +
                               nanoseconds / kNanosecondsPerSecond;
  if (!isWithinLimits(seconds)) return std::nullopt;
  // What isn't moved comes back with the last bit of its fraction.
  if (seconds == start.seconds && added == 0) return date;
  return dateOf({seconds, static_cast<std::int32_t>(nanoseconds % kNanosecondsPerSecond)});
}

std::optional<Date> Calendar::dateByAdding(Component component, std::int64_t value, Date date) const {
  DateComponents components;
  setValueOf(components, component, value);
  return dateByAdding(components, date);
}

DateComponents Calendar::dateComponents(const ComponentSet& components, Date from, Date to) const {
  const CalendarDays days(*this);
  const Moment target = momentOf(to);
  const WallTime targetWall = wallTimeOf(target.seconds, timeZone_);
  const DayFields targetFields = days.system().fieldsOf(targetWall.dayNumber);
  Walker walker(days, timeZone_, momentOf(from));
  DateComponents result;

  if (components.contains(Component::era)) result.era = 0;
  const auto yearsApart = [&] {
    return targetFields.extendedYear - days.system().fieldsOf(walker.wall().dayNumber).extendedYear;
  };
  // All is counted from the date itself and not from where the larger components lead: 29 February and 13 months is 29
  // March, and a time that is skipped on the way there is not put off.
  const Walker start = walker;
  std::int64_t years = 0;
  if (components.contains(Component::year) || components.contains(Component::yearForWeekOfYear)) {
    years = advance(walker, target, yearsApart(), [&](std::int64_t count) { return start.adding(count, 0, 0); });
    if (components.contains(Component::year)) {
      result.year = years;
      if (components.contains(Component::yearForWeekOfYear)) result.yearForWeekOfYear = 0;
    } else {
      result.yearForWeekOfYear = years;
    }
  }
  std::int64_t months = 0;
  for (const auto& [component, length] : {std::pair{Component::quarter, 3}, std::pair{Component::month, 1}}) {
    if (!components.contains(component)) continue;
    const std::int64_t apart = yearsApart() * days.system().monthsInYearOf(walker.wall().dayNumber) +
                               targetFields.month - days.system().fieldsOf(walker.wall().dayNumber).month;
    const std::int64_t before = months;
    const std::int64_t count = advance(walker, target, apart / length, [&, size = length](std::int64_t units) {
      return start.adding(years, before + units * size, 0);
    });
    months += count * length;
    setValueOf(result, component, count);
  }

  std::int64_t daysPassed = 0;
  bool isCounted = false;
  const auto countDays = [&](Component component, std::int64_t length, std::int64_t already) {
    if (!components.contains(component)) return false;
    const std::int64_t apart = targetWall.dayNumber - walker.wall().dayNumber;
    const std::int64_t count = already != 0 ? 0 : advance(walker, target, apart / length, [&](std::int64_t units) {
      return start.adding(years, months, daysPassed + units * length);
    });
    daysPassed += count * length;
    setValueOf(result, component, count);
    return true;
  };
  for (const Component component : {Component::weekOfYear, Component::weekOfMonth, Component::weekdayOrdinal}) {
    isCounted = countDays(component, 7, isCounted ? 1 : 0) || isCounted;
  }
  isCounted = false;
  for (const Component component : {Component::day, Component::weekday}) {
    isCounted = countDays(component, 1, isCounted ? 1 : 0) || isCounted;
  }

  std::int64_t seconds = target.seconds - walker.moment().seconds;
  std::int64_t nanoseconds = target.nanoseconds - walker.moment().nanoseconds;
  // Both parts have the sign of the whole.
  if (seconds > 0 && nanoseconds < 0) {
    --seconds;
    nanoseconds += kNanosecondsPerSecond;
  } else if (seconds < 0 && nanoseconds > 0) {
    ++seconds;
    nanoseconds -= kNanosecondsPerSecond;
  }
  for (const auto& [component, length] :
       {std::pair{Component::hour, 3600}, std::pair{Component::minute, 60}, std::pair{Component::second, 1}}) {
    if (!components.contains(component)) continue;
    setValueOf(result, component, seconds / length);
    seconds %= length;
  }
  if (components.contains(Component::nanosecond)) {
    constexpr std::int64_t mostSeconds = 9'000'000'000;  // what fits as nanoseconds
    result.nanosecond = std::clamp(seconds, -mostSeconds, mostSeconds) * kNanosecondsPerSecond + nanoseconds;
  }
  return result;
}

}  // namespace tavrine::foundation
