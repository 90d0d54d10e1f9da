// Two dates of which one may lack its year, as an interval.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Helpers/AmbiguousDatestampIntervalResolver.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using Type = DatestampType;

struct Day {
  Type type;
  std::int64_t year, month, day, hour;
};

/// On Wednesday 10 June 2026, 09:30 UTC.
class DatestampIntervals : public ::testing::Test {
 protected:
  static Datestamp stampOf(const Day& day) {
    const Calendar calendar = Calendar::current();
    const auto date =
        calendar.dateFrom({.year = day.year, .month = day.month, .day = day.day, .hour = day.hour}).value_or(Date());
    return {.date = date, .type = day.type, .timezone = calendar.timeZone()};
  }
  /// "2026-06-10 12:00".
  static std::string text(Date date) {
    using Component = Calendar::Component;
    const Calendar calendar = Calendar::current();
    const auto part = [&](Component component) {
      const std::string digits = std::to_string(calendar.component(component, date));
      return digits.size() < 2 ? "0" + digits : digits;
    };
    return part(Component::year) + "-" + part(Component::month) + "-" + part(Component::day) + " " +
           part(Component::hour) + ":" + part(Component::minute);
  }

  foundation::ScopedEnvironment world{worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(DatestampIntervals, OneOfTheTwoMoves) {
  constexpr Day friday{Type::weekDay, 2026, 6, 12, 12};
  constexpr Day monday{Type::weekDay, 2026, 6, 15, 12};
  constexpr Day thirdOfMarch{Type::dayAndMonth, 2026, 3, 3, 12};
  constexpr Day tenthOfMarch{Type::dayAndMonth, 2026, 3, 10, 12};
  constexpr Day christmasDay{Type::dayAndMonth, 2026, 12, 25, 12};
  constexpr Day thirdOfJanuary{Type::dayAndMonth, 2026, 1, 3, 12};
  constexpr Day wholeDate{Type::dayMonthYear, 2026, 4, 1, 12};
  constexpr Day today{Type::today, 2026, 6, 10, 12};
  constexpr Day threePm{Type::clockTime, 2026, 6, 10, 15};
  constexpr Day yesterday{Type::yesterday, 2026, 6, 9, 12};
  constexpr Day now{Type::now, 2026, 6, 10, 9};
  constexpr Day tomorrow{Type::tomorrow, 2026, 6, 11, 12};
  struct Case {
    Day first;
    Day second;
    std::string_view expected;
  };
  const Case cases[] = {
      {friday, monday, "2026-06-12 00:00 to 2026-06-15 00:00"},
      {monday, friday, "2026-06-15 00:00 to 2026-06-19 00:00"},
      {christmasDay, thirdOfJanuary, "2026-12-25 00:00 to 2027-01-03 00:00"},
      {thirdOfMarch, tenthOfMarch, "2026-03-03 00:00 to 2026-03-10 00:00"},
      {tenthOfMarch, thirdOfMarch, "2025-03-10 00:00 to 2026-03-03 00:00"},
      {tenthOfMarch, tenthOfMarch, "2026-03-10 00:00 to 2027-03-10 00:00"},
      {christmasDay, wholeDate, "2025-12-25 00:00 to 2026-04-01 00:00"},
      {monday, today, "2026-06-08 00:00 to 2026-06-10 00:00"},
      {today, friday, "2026-06-10 00:00 to 2026-06-12 00:00"},
      {tomorrow, threePm, "2026-06-11 00:00 to 2026-06-11 15:00"},
      {yesterday, friday, "2026-06-09 23:59 to 2026-06-12 00:00"},
      {now, tomorrow, "2026-06-10 09:00 to 2026-06-11 00:00"},
      {today, tomorrow, ""},
      {wholeDate, today, ""},
  };
  for (const auto& [first, second, expected] : cases) {
    const auto resolved = AmbiguousDatestampIntervalResolver(stampOf(first), stampOf(second),
                                                             {DatestampTimeConstrait::Kind::pullToDayStart})
                              .resolvedDatestamps();
    EXPECT_EQ(resolved ? text(resolved->from.date) + " to " + text(resolved->to.date) : "", expected);
  }
}

TEST_F(DatestampIntervals, TheTimeOfDayOfADateWithoutOne) {
  using Kind = DatestampTimeConstrait::Kind;
  const Date halfPastTwo = Date::now().addingTimeInterval(5 * 3600);
  struct Case {
    Day day;
    Kind kind;
    std::string_view expected;
  };
  const Case cases[] = {
      {{Type::dayMonthYear, 2024, 3, 5, 12}, Kind::matchTimeOf, "2024-03-05 14:30"},
      {{Type::dayMonthYear, 2024, 3, 5, 12}, Kind::pushToDayEnd, "2024-03-05 23:59"},
      {{Type::tomorrow, 2026, 6, 11, 12}, Kind::pushToDayEnd, "2026-06-11 00:00"},
      {{Type::clockTime, 2026, 6, 10, 15}, Kind::matchTimeOf, "2026-06-10 15:00"},
      {{Type::weekDay, 2026, 6, 12, 12}, Kind::none, "2026-06-12 12:00"},
  };
  for (const auto& [day, kind, expected] : cases) {
    EXPECT_EQ(text(resolve(stampOf(day), {kind, halfPastTwo}, {}).date), expected);
  }
}

}  // namespace
}  // namespace tavrine::testing
