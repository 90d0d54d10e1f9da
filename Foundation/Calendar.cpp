#include "Foundation/Calendar.h"

#include <algorithm>
#include <array>

#include "Foundation/CalendarDays.h"
#include "Foundation/Environment.h"
#include "Foundation/Hashing.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

constexpr auto kIdentifierNames = std::to_array<std::string_view>({
    "gregorian",
    "buddhist",
    "chinese",
    "coptic",
    "ethiopicAmeteMihret",
    "ethiopicAmeteAlem",
    "hebrew",
    "iso8601",
    "indian",
    "islamic",
    "islamicCivil",
    "japanese",
    "persian",
    "republicOfChina",
    "islamicTabular",
    "islamicUmmAlQura",
});
static_assert(kIdentifierNames.size() == static_cast<std::size_t>(Calendar::Identifier::islamicUmmAlQura) + 1);

constexpr auto kComponentNames = std::to_array<std::string_view>({
    "era",
    "year",
    "month",
    "day",
    "hour",
    "minute",
    "second",
    "weekday",
    "weekdayOrdinal",
    "quarter",
    "weekOfMonth",
    "weekOfYear",
    "yearForWeekOfYear",
    "nanosecond",
    "calendar",
    "timeZone",
});
static_assert(kComponentNames.size() == static_cast<std::size_t>(Calendar::Component::timeZone) + 1);

}  // namespace

Calendar::Calendar(Identifier identifier) : Calendar(identifier, Locale::current(), TimeZone::current()) {}

Calendar Calendar::current() {
  const Environment environment = Environment::current();
  return {environment.calendarIdentifier(), environment.locale(), environment.timeZone()};
}

int Calendar::firstWeekday() const {
  if (identifier_ == Identifier::iso8601) return 2;
  return locale_.weekCustoms().firstWeekday;
}

int Calendar::minimumDaysInFirstWeek() const {
  if (identifier_ == Identifier::iso8601) return 4;
  return locale_.weekCustoms().minimumDaysInFirstWeek;
}

std::int64_t Calendar::component(Component component, Date date) const {
  const Moment moment = momentOf(date);
  const WallTime wall = wallTimeOf(moment.seconds, timeZone_);
  switch (component) {
    case Component::hour:
      return wall.secondOfDay / 3600;
    case Component::minute:
      return wall.secondOfDay / 60 % 60;
    case Component::second:
      return wall.secondOfDay % 60;
    case Component::nanosecond:
      return moment.nanoseconds;
    default:
      return CalendarDays(*this).component(component, wall.dayNumber);
  }
}

DateComponents Calendar::dateComponents(const ComponentSet& components, Date date) const {
  const Moment moment = momentOf(date);
  const WallTime wall = wallTimeOf(moment.seconds, timeZone_);
  const CalendarDays days(*this);
  const DayFields fields = days.system().fieldsOf(wall.dayNumber);
  DateComponents result;
  const auto set = [&](Component component, std::optional<std::int64_t> DateComponents::*field, std::int64_t value) {
    if (components.contains(component)) result.*field = value;
  };
  set(Component::era, &DateComponents::era, fields.era);
  set(Component::year, &DateComponents::year, fields.year);
  set(Component::month, &DateComponents::month, fields.month);
  set(Component::day, &DateComponents::day, fields.day);
  set(Component::hour, &DateComponents::hour, wall.secondOfDay / 3600);
  set(Component::minute, &DateComponents::minute, wall.secondOfDay / 60 % 60);
  set(Component::second, &DateComponents::second, wall.secondOfDay % 60);
  set(Component::nanosecond, &DateComponents::nanosecond, moment.nanoseconds);
  for (const Component component : {Component::weekday, Component::weekdayOrdinal, Component::quarter,
                                    Component::weekOfMonth, Component::weekOfYear, Component::yearForWeekOfYear}) {
    if (components.contains(component)) setValueOf(result, component, days.component(component, wall.dayNumber));
  }
  return result;
}

std::optional<Date> Calendar::dateFrom(const DateComponents& components) const {
  if (!areModest(components)) return std::nullopt;
  const auto day = CalendarDays(*this).dayFrom(components);
  if (!day || *day < kFirstDay || *day > kLastDay) return std::nullopt;
  const std::int64_t nanoseconds = components.nanosecond.value_or(0);
  const std::int64_t wallSeconds = *day * kSecondsPerDay + components.hour.value_or(0) * 3600 +
                                   components.minute.value_or(0) * 60 + components.second.value_or(0) +
                                   floorDivide(nanoseconds, kNanosecondsPerSecond);
  if (!isWithinLimits(wallSeconds)) return std::nullopt;
  return dateOf({momentsOf(wallSeconds, timeZone_).first,
                 static_cast<std::int32_t>(floorModulo(nanoseconds, kNanosecondsPerSecond))});
}

bool Calendar::isValidDate(const DateComponents& components) const {
  const std::int64_t nanosecond = components.nanosecond.value_or(0);
  if (nanosecond < 0 || nanosecond >= kNanosecondsPerSecond) return false;
  const Calendar onGmt = in(TimeZone::gmt());
  const auto date = onGmt.dateFrom(components);
  if (!date) return false;
  for (std::size_t i = 0; i < static_cast<std::size_t>(Component::nanosecond); ++i) {
    const auto component = static_cast<Component>(i);
    auto given = valueOf(components, component);
    // Years before 1 count backwards in their era; without one they go on as numbers.
    if (component == Component::year && given && *given <= 0 && !components.era) given = 1 - *given;
    if (given && *given != onGmt.component(component, *date)) return false;
  }
  return true;
}

Date Calendar::startOfDay(Date date) const {
  const WallTime wall = wallTimeOf(momentOf(date).seconds, timeZone_);
  return dateOf({startOfDayNumber(wall.dayNumber, timeZone_), 0});
}

bool Calendar::isDateInWeekend(Date date) const {
  return locale_.weekCustoms().isWeekend(weekdayOf(wallTimeOf(momentOf(date).seconds, timeZone_).dayNumber));
}

bool Calendar::isDateInToday(Date date) const { return areInSameDay(date, Date::now()); }

bool Calendar::areInSameDay(Date one, Date other) const {
  return wallTimeOf(momentOf(one).seconds, timeZone_).dayNumber ==
         wallTimeOf(momentOf(other).seconds, timeZone_).dayNumber;
}

namespace {

/// The fields in the order of the components.
constexpr std::array<std::optional<std::int64_t> DateComponents::*, 14> kFields = {
    &DateComponents::era,
    &DateComponents::year,
    &DateComponents::month,
    &DateComponents::day,
    &DateComponents::hour,
    &DateComponents::minute,
    &DateComponents::second,
    &DateComponents::weekday,
    &DateComponents::weekdayOrdinal,
    &DateComponents::quarter,
    &DateComponents::weekOfMonth,
    &DateComponents::weekOfYear,
    &DateComponents::yearForWeekOfYear,
    &DateComponents::nanosecond,
};
static_assert(kFields.size() == static_cast<std::size_t>(Calendar::Component::calendar));

}  // namespace

std::optional<std::int64_t> valueOf(const DateComponents& components, Calendar::Component component) {
  const auto index = static_cast<std::size_t>(component);
  return index < kFields.size() ? components.*kFields[index] : std::nullopt;
}

void setValueOf(DateComponents& components, Calendar::Component component, std::optional<std::int64_t> value) {
  const auto index = static_cast<std::size_t>(component);
  if (index < kFields.size()) components.*kFields[index] = value;
}

std::string_view toString(Calendar::Identifier identifier) noexcept {
  return kIdentifierNames[static_cast<std::size_t>(identifier)];
}

std::optional<Calendar::Identifier> calendarIdentifierFrom(std::string_view name) noexcept {
  const auto found = std::ranges::find(kIdentifierNames, name);
  if (found == kIdentifierNames.end()) return std::nullopt;
  return static_cast<Calendar::Identifier>(found - kIdentifierNames.begin());
}

std::string_view toString(Calendar::Component component) noexcept {
  return kComponentNames[static_cast<std::size_t>(component)];
}

}  // namespace tavrine::foundation

std::size_t std::hash<tavrine::foundation::Calendar>::operator()(
    const tavrine::foundation::Calendar& calendar) const noexcept {
  return tavrine::foundation::hashOf(static_cast<std::size_t>(calendar.identifier()), calendar.locale(),
                                     calendar.timeZone());
}
