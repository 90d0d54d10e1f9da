// Arithmetic of dates, durations, stopwatch readings and time codes.

#include <gtest/gtest.h>

#include <string>

#include "Foundation/Environment.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using namespace foundation::literals;

/// Wednesday 10 June 2026, 09:30 in Greenwich.
class DateValueTests : public ::testing::Test {
 protected:
  static Environment environmentOfTests() {
    Environment::Parts parts;
    parts.clock = std::make_shared<FixedClock>(Date(1'781'083'800));
    parts.timeZoneIdentifier = "GMT";
    parts.locale = Locale("en_US");
    return Environment(std::move(parts));
  }
  static Date on(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour = 0) {
    return Calendar::current().dateFrom({.year = year, .month = month, .day = day, .hour = hour}).value_or(Date());
  }
  static CalendarEnvironment workweek(std::vector<Holiday> holidays = {}) {
    return CalendarEnvironment(Calendar::current(), std::move(holidays));
  }

  ScopedEnvironment scope_{environmentOfTests()};
};

TEST_F(DateValueTests, SplitsQuantitiesOfTime) {
  using enum UnitIdentifier;
  struct Case {
    Decimal value;
    UnitIdentifier unit;
    bool single;
    DateComponents want;
  };
  const Case cases[] = {
      {1, months, true, {.month = 1}},
      {90, minutes, true, {.minute = 90}},
      {-2, weeks, true, {.weekOfYear = -2}},
      {90, minutes, false, {.day = 0, .hour = 1, .minute = 30, .second = 0, .nanosecond = 0, .weekOfYear = 0}},
      {Decimal(10) / 3,
       hours,
       true,
       {.day = 0, .hour = 3, .minute = 20, .second = 0, .nanosecond = 0, .weekOfYear = 0}},
      {"-1.5"_dec,
       seconds,
       true,
       {.day = 0, .hour = 0, .minute = 0, .second = -1, .nanosecond = -500'000'000, .weekOfYear = 0}},
      {5, meters, true, {}},
      {"1e40"_dec, seconds, true, {}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(dateComponentsIn(with(c.unit, c.value), c.single, timespanCalendarComponets), c.want)
        << c.value << ' ' << static_cast<int>(c.unit);
  }
  EXPECT_FALSE(timespanOf(with(meters, 5)));
}

TEST_F(DateValueTests, AddsUpDurations) {
  struct Case {
    DateComponents components;
    Decimal want;
    UnitIdentifier unit;
  };
  for (const Case& c : rowsOf<Case>("Parsing/DateValueTests", "AddsUpDurations")) {
    const UnitExpression sum = unitExpressionValue({c.components, std::nullopt});
    EXPECT_EQ(sum.value, c.want);
    EXPECT_EQ(sum.unit, unitOf(c.unit)) << c.want;
  }
  const Timespan month{{.month = 1}, DateInterval(on(2026, 2, 1), on(2026, 3, 1))};
  EXPECT_EQ(unitExpressionValue(month).value, 28 * 86'400);
}

TEST_F(DateValueTests, TellsHowADateWasWritten) {
  using enum DatestampType;
  struct Case {
    DateComponents components;
    DatestampType read, led;
  };
  for (const Case& c : rowsOf<Case>("Parsing/DateValueTests", "TellsHowADateWasWritten")) {
    EXPECT_EQ(toString(datestampTypeOf(c.components)), toString(c.read));
    EXPECT_EQ(toString(appropriateDatestampType({c.components, std::nullopt})), toString(c.led)) << toString(c.read);
  }
}

TEST_F(DateValueTests, SubtractsDates) {
  const auto stamp = [](Date date, DatestampType type, const char* zone = "GMT") {
    return Datestamp{date, type, TimeZone(zone), std::string(zone) != "GMT", false};
  };
  const Datestamp tokyo = stamp(on(2026, 6, 10, 6), DatestampType::clockTime, "Asia/Tokyo");
  const Datestamp london = stamp(on(2026, 6, 10, 14), DatestampType::clockTime, "Europe/London");
  EXPECT_EQ(std::get<UnitExpression>(tokyo - london), with(UnitIdentifier::hours, -8));

  const Datestamp day = stamp(on(2025, 12, 25), DatestampType::dayMonthYear);
  EXPECT_EQ(std::get<UnitExpression>(day - day), with(UnitIdentifier::years, 0));
  const Datestamp earlier = stamp(on(2025, 12, 20), DatestampType::dayMonthYear);
  const auto forward = std::get<Timespan>(day - earlier);
  EXPECT_EQ(forward.dateComponents.day, 5);
  EXPECT_EQ(forward, std::get<Timespan>(earlier - day));
  const auto years = std::get<Timespan>(day - stamp(on(2020, 1, 1), DatestampType::nakedYear));
  EXPECT_EQ(years.dateComponents, (DateComponents{.year = 5}));

  const Datestamp nine = stamp(on(2026, 6, 10, 9), DatestampType::clockTime);
  EXPECT_EQ((nine + nine).dateComponents.second, 18 * 3600);
  EXPECT_EQ(timespanOf(tokyo)->dateComponents, (DateComponents{.hour = 15, .minute = 0, .second = 0}));
  EXPECT_FALSE(timespanOf(day));
}

TEST_F(DateValueTests, BoundsMonthsQuartersAndDays) {
  const Date date = on(2024, 2, 10, 9);
  EXPECT_EQ(startOfMonth(date), on(2024, 2, 1));
  EXPECT_EQ(endOfMonth(date), on(2024, 3, 1).addingTimeInterval(-1));
  EXPECT_EQ(endOfDay(date), on(2024, 2, 11).addingTimeInterval(-1));
  EXPECT_EQ(startOfFollowingYear(date), on(2025, 1, 1));
  EXPECT_EQ(sameTimeAs(on(2020, 1, 1, 17), date), on(2024, 2, 10, 17));
  const auto quarter = datespanFor(Calendar::current(), 1, 2024);
  ASSERT_TRUE(quarter);
  EXPECT_EQ(*quarter,
            (Datespan{on(2024, 4, 1), on(2024, 6, 30), DatespanType::quarter, DatespanSubtype::secondQuarter}));
  EXPECT_EQ(timespanIn(Calendar::current(), *quarter)->dateComponents.weekOfYear, 4);
  EXPECT_FALSE(datespanFor(Calendar::current(), 4, 2024));
  EXPECT_TRUE(isWithinADayOfNow(on(2026, 6, 11, 23)));
  EXPECT_FALSE(isWithinADayOfNow(on(2026, 6, 12)));
}

TEST_F(DateValueTests, WalksWorkdays) {
  const Date friday = on(2026, 6, 5);
  EXPECT_EQ(dateByAddingWorkdays(workweek(), 2, friday), on(2026, 6, 9));
  EXPECT_EQ(dateByAddingWorkdays(workweek({{.day = 8, .month = 6, .year = 2026}}), 2, friday), on(2026, 6, 10));
  EXPECT_EQ(dateBySubtractingWorkdays(workweek(), 2, on(2026, 6, 10)), on(2026, 6, 8));
  EXPECT_EQ(workdaysBetween(workweek(), friday, on(2026, 6, 9)), 2);
  EXPECT_EQ(workdaysBetween(workweek(), friday, friday), 0);
  EXPECT_GT(dateByAddingWorkdays(workweek(), INT64_MAX, friday), friday);
  EXPECT_EQ(dateSubtracting(workweek(), {.month = 1}, on(2026, 3, 31)), on(2026, 2, 28));
  EXPECT_EQ(dateSubtracting(workweek(), {.month = -1}, friday), friday);

  const TCUnit& days = unitOf(UnitIdentifier::days);
  EXPECT_EQ(calculateInterval(workweek(), friday, on(2026, 6, 7, 12), days, true)->value, 2);
  EXPECT_EQ(calculateInterval(workweek(), friday, on(2026, 6, 7, 12), days, false)->value, "2.5"_dec);
  EXPECT_EQ(calculateInterval(workweek(), friday, on(2026, 6, 5, 12), days, true)->value, "0.5"_dec);
  EXPECT_FALSE(calculateInterval(workweek(), friday, friday, unitOf(UnitIdentifier::meters), true));

  EXPECT_EQ(dayThisWeek(Calendar::current(), 1), on(2026, 6, 7));
  EXPECT_EQ(dayThisWeek(Calendar::current(), 7), on(2026, 6, 13));
  EXPECT_EQ(dayLastWeek(Calendar::current(), 3), on(2026, 6, 2));
  EXPECT_EQ(dayNextWeek(Calendar::current(), 3), on(2026, 6, 16));
}

TEST_F(DateValueTests, CalculatesWithLaptimes) {
  EXPECT_EQ(laptimeFrom({.minute = 75}), (Laptime{1, 15, Decimal(0)}));
  const Laptime lap{std::nullopt, 59, "30.5"_dec};
  EXPECT_EQ(lap + lap, (Laptime{1, 59, Decimal(1)}));
  EXPECT_EQ(lap - lap, (Laptime{0, 0, Decimal(0)}));
  EXPECT_EQ(lap * 2, (Laptime{1, 59, Decimal(1)}));
  EXPECT_EQ(lap / lap, 1);
  EXPECT_TRUE(isNegative(Laptime{0, 0, Decimal(1)} - lap));
  EXPECT_EQ(frametimeValueAt(24, {1, 2, "3.5"_dec}), (Frametime{24, 1, 2, 3, 12}));
}

TEST_F(DateValueTests, CalculatesWithTimeCodes) {
  EXPECT_EQ(frametimeFrom(0, 24), (Frametime{24, 0, 0, 0, 0}));
  EXPECT_EQ(frametimeFrom(-5, 24), (Frametime{24, 0, 0, 0, 0}));
  const Frametime code{24, 1, 30, 15, 10};
  EXPECT_EQ(totalFramesOf(code), 5415 * 24 + 10);
  EXPECT_EQ(code + (Frametime{24, 0, 0, 0, 14}), (Frametime{24, 1, 30, 16, 0}));
  EXPECT_EQ((code + Frametime{30, 0, 0, 0, 25}), (Frametime{30, 1, 30, 16, 5}));
  EXPECT_EQ(code / code, 1);
  EXPECT_EQ(code * 2 / 2, code);
}

}  // namespace
}  // namespace tavrine
