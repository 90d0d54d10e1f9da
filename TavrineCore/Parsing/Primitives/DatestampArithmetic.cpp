#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"

namespace tavrine {

namespace {

using namespace foundation::literals;
using Component = Calendar::Component;

/// Where the calendar ends.
constexpr Decimal kMostSecondsFrom1970 = "1.5e14"_dec;

Decimal secondsOfDay(const Datestamp& datestamp) {
  const Calendar calendar = Calendar::current();
  return Decimal::fromDouble(datestamp.date.timeIntervalSince(calendar.startOfDay(datestamp.date)));
}

Date startOf(Component component, Date date) {
  const auto interval = Calendar::current().dateIntervalOf(component, date);
  return interval ? interval->start() : date;
}

Timespan measured(const Calendar& calendar, const CalendarComponentSet& components, Date start, Date end) {
  return {calendar.dateComponents(components, start, end), DateInterval(start, end)};
}

}  // namespace

std::optional<Datestamp> datestampOfUnixTime(const Decimal& seconds) {
  if (seconds.isNaN() || seconds.magnitude() > kMostSecondsFrom1970) return std::nullopt;
  return Datestamp{Date(seconds.doubleValue()), DatestampType::unixTimestamp, Calendar::current().timeZone()};
}

std::optional<Timespan> timespanOf(const Datestamp& datestamp) {
  if (!calendarComponentsRepresentedBy(datestamp.type).contains(Component::hour)) return std::nullopt;
  const Calendar calendar = Calendar::current().in(datestamp.timezone);
  return Timespan{calendar.dateComponents(timespanComponents, datestamp.date), std::nullopt};
}

Timespan operator+(const Datestamp& left, const Datestamp& right) {
  const UnitExpression sum = with(UnitIdentifier::seconds, secondsOfDay(left) + secondsOfDay(right));
  return {dateComponentsIn(sum, true, timespanCalendarComponets), std::nullopt};
}

DatestampDifference operator-(const Datestamp& left, const Datestamp& right) {
  const bool measuresZones = left.hasExplicitTimeZone && right.hasExplicitTimeZone && left.timezone != right.timezone &&
                             left.type == DatestampType::clockTime && right.type == DatestampType::clockTime;
  if (measuresZones) {
    const Date now = Date::now();
    const Decimal seconds = right.timezone.secondsFromGMT(now) - left.timezone.secondsFromGMT(now);
    return with(UnitIdentifier::hours, seconds / 60 / 60);
  }
  if (left.date == right.date) return with(largestUnitOf(right.type), 0);

  const bool isYears = left.type == DatestampType::nakedYear || right.type == DatestampType::nakedYear;
  const CalendarComponentSet components = isYears ? CalendarComponentSet{Component::year} : tavrineSupportedComponents;
  const auto [start, end] = std::minmax(left.date, right.date);
  return measured(Calendar::current(), components, start, end);
}

DateInterval dateIntervalValue(const Datespan& datespan) { return {datespan.startDate, datespan.endDate}; }

std::optional<Timespan> timespanIn(const Calendar& calendar, const Datespan& datespan) {
  if (datespan.endDate < datespan.startDate) {
    std::puts("The end of the date span lies before its start");
    return std::nullopt;
  }
  return measured(calendar, tavrineSupportedComponents, datespan.startDate, datespan.endDate);
}

std::optional<Datespan> datespanFor(const Calendar& calendar, std::int64_t quarterIndex, std::int64_t year) {
  constexpr std::array quarters = {DatespanSubtype::firstQuarter, DatespanSubtype::secondQuarter,
                                   DatespanSubtype::thirdQuarter, DatespanSubtype::fourthQuarter};
  if (quarterIndex < 0 || quarterIndex >= static_cast<std::int64_t>(quarters.size())) return std::nullopt;
  const auto start = calendar.dateFrom({.year = year, .month = quarterIndex * 3 + 1, .day = 1});
  const auto end = calendar.dateFrom({.year = year, .month = quarterIndex * 3 + 4, .day = 0});
  if (!start || !end) return std::nullopt;
  return Datespan{*start, *end, DatespanType::quarter, quarters[static_cast<std::size_t>(quarterIndex)]};
}

bool isWithinADayOfNow(Date date) {
  const Calendar calendar = Calendar::current();
  const Date now = Date::now();
  return std::ranges::any_of(std::array{-1, 0, 1}, [&](int days) {
    const auto day = calendar.dateByAdding(Component::day, days, now);
    return day && calendar.areInSameDay(date, *day);
  });
}

Date startOfFollowingYear(Date date) {
  const auto year = Calendar::current().dateIntervalOf(Component::year, date);
  return year ? year->end() : date;
}

Date startOfMonth(Date date) { return startOf(Component::month, date); }

Date endOfMonth(Date date) {
  const Date start = startOfMonth(date);
  return Calendar::current().dateByAdding(Component::month, 1, start).value_or(start).addingTimeInterval(-1);
}

Date endOfDay(Date date) {
  const Date start = Calendar::current().startOfDay(date);
  return Calendar::current().dateByAdding(Component::day, 1, start).value_or(start).addingTimeInterval(-1);
}

bool isInTodayIn(const TimeZone& timezone, Date date) {
  return Calendar::current().in(timezone).areInSameDay(date, Date::now());
}

std::optional<Date> sameTimeAs(Date other, Date date) {
  const Calendar calendar = Calendar::current();
  DateComponents components =
      calendar.dateComponents({Component::era, Component::year, Component::month, Component::day}, date);
  const DateComponents time =
      calendar.dateComponents({Component::hour, Component::minute, Component::second, Component::nanosecond}, other);
  components.hour = time.hour;
  components.minute = time.minute;
  components.second = time.second;
  components.nanosecond = time.nanosecond;
  return calendar.dateFrom(components);
}

}  // namespace tavrine
