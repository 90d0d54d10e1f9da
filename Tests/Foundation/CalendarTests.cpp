// Dates by components, arithmetic, differences, weeks and searches, by hand-checked examples. What random dates give is
// held against another implementation in CalendarOracleTests.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "Foundation/Calendar.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

using Component = Calendar::Component;
using enum Calendar::Component;

Calendar calendarIn(std::string_view zone, std::string_view locale = "en_US",
                    Calendar::Identifier identifier = Calendar::Identifier::gregorian) {
  return {identifier, Locale(locale), TimeZone(zone)};
}

/// "2024-03-10 02:30" or "2024-03-10 02:30:15" on the clocks of the calendar.
Date at(const Calendar& calendar, const std::string& text) {
  long y = 0, mo = 1, d = 1, h = 0, mi = 0, s = 0;
  std::sscanf(text.c_str(), "%ld-%ld-%ld %ld:%ld:%ld", &y, &mo, &d, &h, &mi, &s);
  const auto date = calendar.dateFrom({.year = y, .month = mo, .day = d, .hour = h, .minute = mi, .second = s});
  EXPECT_TRUE(date.has_value()) << text;
  return date.value_or(Date());
}

std::string text(const Calendar& calendar, std::optional<Date> date) {
  if (!date) return "none";
  const DateComponents c = calendar.dateComponents({era, year, month, day, hour, minute, second}, *date);
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%s%04ld-%02ld-%02ld %02ld:%02ld:%02ld", c.era == 0 ? "BC " : "",
                static_cast<long>(*c.year), static_cast<long>(*c.month), static_cast<long>(*c.day),
                static_cast<long>(*c.hour), static_cast<long>(*c.minute), static_cast<long>(*c.second));
  return buffer.data();
}

/// "1y 2m -3d" of the components that aren't 0.
std::string amounts(const DateComponents& components) {
  constexpr std::array<std::pair<Component, const char*>, 8> letters = {{{year, "y"},
                                                                         {month, "m"},
                                                                         {weekOfYear, "w"},
                                                                         {day, "d"},
                                                                         {hour, "h"},
                                                                         {minute, "min"},
                                                                         {second, "s"},
                                                                         {nanosecond, "ns"}}};
  std::string result;
  for (const auto& [component, letter] : letters) {
    const auto value = valueOf(components, component);
    if (!value || *value == 0) continue;
    if (!result.empty()) result += ' ';
    result += std::to_string(*value) + letter;
  }
  return result;
}

TEST(CalendarTests, MakesDatesOfComponents) {
  const Calendar gmt = calendarIn("GMT");
  struct Case {
    DateComponents components;
    const char* want;
    bool isValid;
  };
  for (const Case& c : rowsOf<Case>("Foundation/CalendarTests", "MakesDatesOfComponents")) {
    EXPECT_EQ(text(gmt, gmt.dateFrom(c.components)), c.want);
    EXPECT_EQ(gmt.isValidDate(c.components), c.isValid) << c.want;
  }
  EXPECT_TRUE(calendarIn("America/New_York").isValidDate({.year = 2024, .month = 3, .day = 10, .hour = 2}));
}

TEST(CalendarTests, MovesSkippedTimesForwardAndTakesTheFirstOfRepeatedOnes) {
  const Calendar newYork = calendarIn("America/New_York");
  const Calendar gmt = calendarIn("GMT");
  struct Case {
    const char* wall;
    const char* inGmt;
  };
  for (const Case& c :
       rowsOf<Case>("Foundation/CalendarTests", "MovesSkippedTimesForwardAndTakesTheFirstOfRepeatedOnes"))
    EXPECT_EQ(text(gmt, at(newYork, c.wall)), c.inGmt) << c.wall;

  // Samoa had no 30 December 2011.
  const Calendar samoa = calendarIn("Pacific/Apia");
  EXPECT_EQ(text(samoa, at(samoa, "2011-12-30 12:00")), "2011-12-31 12:00:00");
  EXPECT_EQ(amounts(samoa.dateComponents({day, hour}, at(samoa, "2011-12-29 12:00"), at(samoa, "2011-12-31 12:00"))),
            "2d");
  // Midnight was skipped in Sao Paulo; Toronto once went from 23:30 to 0:30.
  const Calendar saoPaulo = calendarIn("America/Sao_Paulo");
  EXPECT_EQ(text(saoPaulo, saoPaulo.startOfDay(at(saoPaulo, "2018-11-04 15:00"))), "2018-11-04 01:00:00");
  const Calendar toronto = calendarIn("America/Toronto");
  EXPECT_EQ(text(toronto, toronto.startOfDay(at(toronto, "1919-03-31 12:00"))), "1919-03-31 00:30:00");
}

TEST(CalendarTests, AddsComponents) {
  const Calendar newYork = calendarIn("America/New_York");
  struct Case {
    const char* start;
    DateComponents amount;
    const char* want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/CalendarTests", "AddsComponents")) {
    EXPECT_EQ(text(newYork, newYork.dateByAdding(c.amount, at(newYork, c.start))), c.want) << c.start;
  }
}

TEST(CalendarTests, MeasuresTheLargestComponentsFirst) {
  const Calendar newYork = calendarIn("America/New_York");
  const Calendar::ComponentSet all = {year, month, weekOfYear, day, weekday, hour, minute, second, nanosecond};
  struct Case {
    const char* from;
    const char* to;
    Calendar::ComponentSet components;
    const char* want;
  };
  const Case cases[] = {
      {"2025-12-20", "2025-12-25", all, "5d"},
      {"2024-01-31", "2024-03-01", {month, day}, "1m 1d"},
      {"2024-02-29", "2025-02-28", {year, day}, "1y"},
      {"2024-02-29", "2025-03-29", {year, month, day}, "1y 1m"},
      {"2020-01-01", "2024-03-05 12:30:15", all, "4y 2m 4d 12h 30min 15s"},
      {"2024-04-01", "2024-06-30", all, "2m 4w 1d"},
      {"2024-03-05", "2024-04-01", {day}, "27d"},
      {"2024-06-30", "2024-04-01", all, "-2m -4w -1d"},
      {"2024-03-31", "2024-02-29", {month, day}, "-1m"},
      {"2024-03-10", "2024-03-11", {hour}, "23h"},
      {"2024-03-10", "2024-03-11", {day, hour}, "1d"},
      {"2024-11-03", "2024-11-04", {hour}, "25h"},
      {"2024-01-01", "2024-12-31", {weekOfYear}, "52w"},
      {"2024-01-01", "2025-01-01", {second}, "31622400s"},
      {"0001-01-01", "9999-12-31", {year, day}, "9998y 364d"},
      {"2024-01-01", "2024-01-01", all, ""},
      {"2024-01-01 00:00:10", "2024-01-01 00:01:00", {minute}, ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(amounts(newYork.dateComponents(c.components, at(newYork, c.from), at(newYork, c.to))), c.want)
        << c.from << " to " << c.to;
  }
  // Zeros are there, what wasn't asked for is not.
  const DateComponents none = newYork.dateComponents({day, weekday}, Date(), Date());
  EXPECT_EQ(none, (DateComponents{.day = 0, .weekday = 0}));
  // Fractions come out as they were written.
  const Date start = at(newYork, "2024-01-01");
  EXPECT_EQ(amounts(newYork.dateComponents({second, nanosecond}, start, start.addingTimeInterval(1.1))),
            "1s 100000000ns");
  EXPECT_EQ(amounts(newYork.dateComponents({second, nanosecond}, start.addingTimeInterval(1.1), start)),
            "-1s -100000000ns");
}

TEST(CalendarTests, CountsWeeksByTheCustomsOfTheRegion) {
  struct Case {
    const char* locale;
    const char* date;
    std::int64_t week, year, weekOfMonth;
    bool isWeekend;
  };
  for (const Case& c : rowsOf<Case>("Foundation/CalendarTests", "CountsWeeksByTheCustomsOfTheRegion")) {
    const Calendar calendar = calendarIn("Europe/Berlin", c.locale);
    const Date date = at(calendar, c.date);
    EXPECT_EQ(calendar.component(weekOfYear, date), c.week) << c.locale << ' ' << c.date;
    EXPECT_EQ(calendar.component(yearForWeekOfYear, date), c.year) << c.locale << ' ' << c.date;
    EXPECT_EQ(calendar.component(weekOfMonth, date), c.weekOfMonth) << c.locale << ' ' << c.date;
    EXPECT_EQ(calendar.isDateInWeekend(date), c.isWeekend) << c.locale << ' ' << c.date;
  }
  EXPECT_EQ(calendarIn("GMT", "en_US", Calendar::Identifier::iso8601).firstWeekday(), 2);
}

TEST(CalendarTests, FindsTheNextDate) {
  using Direction = Calendar::SearchDirection;
  using Policy = Calendar::MatchingPolicy;
  const Calendar newYork = calendarIn("America/New_York");
  struct Case {
    const char* start;
    DateComponents matching;
    const char* want;
    Direction direction = Direction::forward;
    Policy policy = Policy::nextTime;
  };
  const Case cases[] = {
      {"2026-06-10 09:30", {.weekday = 6}, "2026-06-12 00:00:00"},
      {"2026-06-10 09:30", {.weekday = 4}, "2026-06-17 00:00:00"},
      {"2026-06-10 09:30", {.weekday = 4}, "2026-06-10 00:00:00", Direction::backward},
      {"2026-06-10 00:00", {.weekday = 4}, "2026-06-03 00:00:00", Direction::backward},
      {"2026-06-10 09:30", {.month = 3, .day = 5, .hour = 12}, "2027-03-05 12:00:00"},
      {"2026-06-10 09:30", {.month = 3}, "2027-03-01 00:00:00"},
      {"2026-06-10 09:30", {.day = 31}, "2026-07-31 00:00:00"},
      {"2097-06-10 09:30", {.month = 2, .day = 29}, "2104-02-29 00:00:00"},
      {"2026-06-10 09:30", {.month = 2, .day = 30}, "none"},
      {"2026-06-10 09:30", {.year = 2020}, "none"},
      {"2026-06-10 09:30", {.year = 2500, .month = 7}, "2500-07-01 00:00:00"},
      {"2026-06-10 09:30", {.hour = 9, .minute = 30}, "2026-06-11 09:30:00"},
      {"2026-06-10 09:30", {.hour = 9, .minute = 31}, "2026-06-10 09:31:00"},
      {"2026-06-10 09:30", {.minute = 15}, "2026-06-10 10:15:00"},
      {"2026-06-10 09:30", {.minute = 15}, "2026-06-10 09:15:00", Direction::backward},
      {"2026-06-10 09:30", {.hour = 25}, "none"},
      {"2026-06-10 09:30", {.month = 11, .weekday = 5, .weekdayOrdinal = 4}, "2026-11-26 00:00:00"},
      {"2026-06-10 09:30", {.weekOfYear = 1}, "2026-12-27 00:00:00"},
      {"2024-03-09 12:00", {.hour = 2, .minute = 30}, "2024-03-10 03:00:00"},
      {"2024-03-09 12:00",
       {.hour = 2, .minute = 30},
       "2024-03-10 03:30:00",
       Direction::forward,
       Policy::nextTimePreservingSmallerComponents},
      {"2024-03-09 12:00",
       {.hour = 2, .minute = 30},
       "2024-03-10 01:30:00",
       Direction::forward,
       Policy::previousTimePreservingSmallerComponents},
      {"2024-03-09 12:00", {.hour = 2, .minute = 30}, "2024-03-11 02:30:00", Direction::forward, Policy::strict},
      {"2026-06-10 09:30", {}, "none"},
  };
  for (const Case& c : cases) {
    const auto found =
        newYork.nextDate(at(newYork, c.start), c.matching, c.policy, Calendar::RepeatedTimePolicy::first, c.direction);
    EXPECT_EQ(text(newYork, found), c.want) << c.start;
  }
  const Date before = at(newYork, "2024-11-02 12:00");
  const auto first = newYork.nextDate(before, {.hour = 1});
  const auto last = newYork.nextDate(before, {.hour = 1}, Policy::nextTime, Calendar::RepeatedTimePolicy::last);
  ASSERT_TRUE(first && last);
  EXPECT_EQ(last->timeIntervalSince(*first), 3600);
}

TEST(CalendarTests, KnowsPlacesAndRanges) {
  const Calendar calendar = calendarIn("Europe/London", "en_GB");
  const Date date = at(calendar, "2024-06-10 09:30");
  struct Case {
    Component smaller, larger;
    std::optional<std::int64_t> place;
    std::optional<Calendar::Range> range;
  };
  const Case cases[] = {
      {day, year, 162, Calendar::Range{1, 367}},
      {day, month, 10, Calendar::Range{1, 31}},
      {day, quarter, 71, Calendar::Range{1, 92}},
      {day, weekOfYear, 1, Calendar::Range{1, 8}},
      {month, year, 6, Calendar::Range{1, 13}},
      {month, quarter, 3, Calendar::Range{4, 7}},
      {quarter, year, 2, Calendar::Range{1, 5}},
      {weekOfYear, year, 24, Calendar::Range{1, 53}},
      {weekOfMonth, month, 2, Calendar::Range{0, 5}},
      {weekday, month, 2, Calendar::Range{1, 8}},
      {weekday, weekOfYear, 1, Calendar::Range{1, 8}},
      {hour, day, 10, Calendar::Range{0, 24}},
      {minute, hour, 31, Calendar::Range{0, 60}},
      {second, day, 34'201, Calendar::Range{0, 86'400}},
      {year, era, 2024, std::nullopt},
      {month, day, std::nullopt, std::nullopt},
      {day, hour, std::nullopt, std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(calendar.ordinalityOf(c.smaller, c.larger, date), c.place)
        << toString(c.smaller) << " in " << toString(c.larger);
    EXPECT_EQ(calendar.rangeOf(c.smaller, c.larger, date), c.range)
        << toString(c.smaller) << " in " << toString(c.larger);
  }
  const auto week = calendar.dateIntervalOf(weekOfYear, date);
  ASSERT_TRUE(week);
  EXPECT_EQ(text(calendar, week->start()), "2024-06-10 00:00:00");
  EXPECT_EQ(text(calendar, week->end()), "2024-06-17 00:00:00");
  EXPECT_TRUE(calendar.isDateEqualTo(date, at(calendar, "2024-06-16 23:59"), weekOfYear));
  EXPECT_FALSE(calendar.isDateEqualTo(date, at(calendar, "2024-06-17"), weekOfYear));
}

TEST(CalendarTests, ReadsLunarCalendars) {
  struct Case {
    Calendar::Identifier identifier;
    const char* date;
    std::int64_t month, day;
  };
  using enum Calendar::Identifier;
  constexpr Case cases[] = {
      {chinese, "2024-02-10", 1, 1},
      {chinese, "2025-01-29", 1, 1},
      // Where the moon is within minutes of midnight.
      {chinese, "2027-02-05", 12, 29},
      {chinese, "2027-02-06", 1, 1},
      {chinese, "2027-03-07", 1, 30},
      {chinese, "2027-03-08", 2, 1},
      {chinese, "2030-02-02", 12, 30},
      {chinese, "2030-02-03", 1, 1},
      {chinese, "2030-03-03", 1, 29},
      {chinese, "2030-03-04", 2, 1},
      {islamicUmmAlQura, "2024-03-11", 9, 1},
      {islamicUmmAlQura, "2025-03-01", 9, 1},
      {islamicUmmAlQura, "2026-02-18", 9, 1},
      {buddhist, "2026-02-18", 2, 18},
  };
  const Calendar gregorianCalendar = calendarIn("Asia/Shanghai");
  for (const Case& c : cases) {
    const Calendar calendar = calendarIn("Asia/Shanghai", "en_US", c.identifier);
    const Date date = at(gregorianCalendar, c.date);
    const DateComponents fields = calendar.dateComponents({era, year, month, Component::day}, date);
    EXPECT_EQ(fields.month, c.month) << c.date;
    EXPECT_EQ(fields.day, c.day) << c.date;
    EXPECT_EQ(calendar.dateFrom(fields), date) << c.date;
    // A month there and back again.
    const auto later = calendar.dateByAdding(Component::month, 1, date);
    ASSERT_TRUE(later) << c.date;
    EXPECT_EQ(amounts(calendar.dateComponents({Component::month, Component::day}, date, *later)), "1m") << c.date;
  }
  EXPECT_EQ(calendarIn("GMT", "th_TH", buddhist).component(year, Date()), 2513);
}

TEST(CalendarTests, HoldsFarAndBrokenMomentsWithinItsLimits) {
  const Calendar calendar = calendarIn("America/New_York");
  for (const double seconds : {1e300, -1e300, 1e18, -1e18, std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    const Date date(seconds);
    EXPECT_GT(calendar.component(year, date), 0) << seconds;
    EXPECT_LE(calendar.component(year, date), 5'000'001) << seconds;
    static_cast<void>(calendar.dateComponents({year, month, day, nanosecond}, date, Date()));
    static_cast<void>(calendar.nextDate(date, {.weekday = 3}));
    static_cast<void>(calendarIn("GMT", "en_US", Calendar::Identifier::chinese).component(month, date));
  }
}

}  // namespace
}  // namespace tavrine::foundation
