// What the phrases about dates compute from the values at their gaps, wrong values included.

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Environment.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Parsing/Primitives/Holiday.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "Tests/Evaluation/DateTokens.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using enum FunctionIdentifier;

constexpr std::string_view kCompound = " (compound)";

struct Case {
  FunctionIdentifier function;
  std::vector<std::string_view> arguments;
  std::string_view want;
};

/// "unit weeks", "zone Asia/Tokyo", or what `timeToken` reads.
Token argumentToken(std::string_view text) {
  if (text.starts_with("unit ")) return TokenFactory::unitWith(unitWithName(text.substr(5)));
  if (text.starts_with("zone ")) return TokenFactory::timezoneWith(TimeZone(text.substr(5)));
  return timeToken(text);
}

std::string answerOf(FunctionIdentifier function, const std::vector<std::string_view>& arguments,
                     const EngineCustomization& customization) {
  std::vector<Token> tokens;
  for (const std::string_view argument : arguments) tokens.push_back(argumentToken(argument));
  std::string answer = describeTime(WordFunctionHandlers::evaluate(function, tokens, customization));
  // Whether a smaller unit may join in is a matter of formatting.
  if (answer.ends_with(kCompound)) answer.resize(answer.size() - kCompound.size());
  return answer;
}

void expectAll(std::span<const Case> cases, const EngineCustomization& customization = EngineCustomization::basic()) {
  for (const Case& row : cases) {
    std::string line(toString(row.function));
    for (const std::string_view argument : row.arguments) line.append(", ").append(argument);
    EXPECT_EQ(answerOf(row.function, row.arguments, customization), row.want) << line;
  }
}

/// Wednesday 10 June 2026, 09:30 in Greenwich.
class DateTimeFunctionTests : public ::testing::Test {
 protected:
  ScopedEnvironment scope_{worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(DateTimeFunctionTests, BetweenDates) {
  const Case cases[] = {
      {calendarUnitBetweenDates, {"unit days", "date 2024-02-28", "date 2024-03-01"}, "2 days"},
      {calendarUnitBetweenDates, {"unit days", "date 2024-03-01", "date 2024-02-28"}, "2 days"},
      {calendarUnitBetweenDates, {"date 2024-01-01", "date 2024-02-01", "unit weeks"}, "4 weeks"},
      {calendarUnitBetweenDates, {"unit months", "date 2024-01-31", "date 2024-02-28"}, "0 months"},
      {calendarUnitBetweenDates, {"unit nights", "date 2024-03-01", "date 2024-03-04"}, "3 nights"},
      // A Friday to a Tuesday: the last day isn't counted, in either order.
      {calendarUnitBetweenDates, {"unit weekdays", "date 2024-03-01", "date 2024-03-05"}, "2 weekdays"},
      {calendarUnitBetweenDates, {"unit weekdays", "date 2024-03-05", "date 2024-03-01"}, "2 weekdays"},
      {calendarUnitBetweenDates, {"unit kilometers", "date 2024-03-01", "date 2024-03-05"}, "none"},
      {calendarUnitBetweenDates, {"unit days", "date 2024-03-01"}, "none"},
      {calendarUnitBetweenDates, {"unit days", "date 2024-03-01", "5%"}, "none"},
      {inclusiveCalendarUnitBetweenDates, {"unit days", "date 2024-02-28", "date 2024-03-01"}, "3 days"},
      {inclusiveCalendarUnitBetweenDates, {"unit days", "date 2024-03-01", "date 2024-02-28"}, "3 days"},
      {inclusiveCalendarUnitBetweenDates, {"unit weekdays", "date 2024-03-01", "date 2024-03-05"}, "3 weekdays"},
      {inclusiveIntervalBetweenDates, {"date 2024-03-01T18:00", "date 2024-04-03T06:00"}, "span 1mo 3d"},
      {inclusiveIntervalBetweenDates, {"date 2024-04-03", "date 2024-03-01"}, "span 1mo 1d"},
      {halfwayBetweenDates, {"date 2024-03-01 dayAndMonth", "date 2024-03-04"}, "date 2024-03-02T12:00 dayAndMonth"},
      {halfwayBetweenDates, {"date 2024-03-01", "5%"}, "none"},
      {calendarUnitInDatespan, {"unit days", "dates 2024-04-01 2024-06-30"}, "90 days"},
      {calendarUnitInDatespan, {"unit weekdays", "dates 2024-04-01 2024-04-08"}, "5 weekdays"},
      {calendarUnitInDatespan, {"unit days", "date 2024-04-01"}, "none"},
  };
  expectAll(cases);
}

TEST_F(DateTimeFunctionTests, BetweenNowAndADate) {
  const Case cases[] = {
      {calendarUnitToDate, {"unit days", "date 2026-06-12"}, "1.6041666666666666666666666666666666667 days"},
      {calendarUnitToDate, {"unit hours", "date 2026-06-10T17:00 clockTime"}, "7.5 hours"},
      {calendarUnitToDate, {"date 2026-08-12T10:00"}, "span 2mo 2d 30m"},
      {calendarUnitToDate, {"unit weekdays", "date 2026-06-16"}, "4 weekdays"},
      {calendarUnitToDate, {"unit kilometers", "date 2026-06-12"}, "none"},
      {calendarUnitToDate, {"unit days", "date 2026-06-12", "date 2026-06-13"}, "none"},
      {calendarUnitToDate, {"unit days", "unit weeks", "date 2026-06-12"}, "none"},
      {calendarUnitToDate, {"unit days"}, "none"},
      {calendarUnitToDatespan, {"unit hours", "dates 2026-06-11 2026-06-14"}, "14.5 hours"},
      {calendarUnitToDatespan, {"dates 2026-07-11 2026-06-14"}, "span 1mo 14h 30m"},
      {calendarUnitToDatespan, {"unit hours", "date 2026-06-11"}, "none"},
      {calendarUnitSinceDate, {"unit hours", "date 2026-06-09"}, "33.5 hours"},
      {calendarUnitSinceDate, {"date 2025-05-10T08:00"}, "span 1y 1mo 1h 30m"},
      // From the last second of the month on, and from the first of the next year.
      {calendarUnitSinceDate, {"unit seconds", "date 2026-05-01 monthAndYear"}, "811801 seconds"},
      {calendarUnitSinceDate, {"unit seconds", "date 2025-01-01 nakedYear"}, "13858200 seconds"},
  };
  expectAll(cases);
}

TEST_F(DateTimeFunctionTests, WhatLiesOnTheWrongSideOfNowIsWarnedOf) {
  const Case cases[] = {
      {calendarUnitToDate, {"unit days", "date 2026-06-01"}, "none"},
      {calendarUnitToDate, {"date 2026-06-10T09:30"}, "none"},
      {calendarUnitToDatespan, {"unit days", "dates 2026-06-01 2026-06-20"}, "none"},
      {calendarUnitSinceDate, {"unit days", "date 2026-06-01 thisMonth"}, "none"},
  };
  std::vector<std::string> lines;
  auto before = setDiagnosticSink([&lines](std::string_view line) { lines.emplace_back(line); });
  expectAll(cases);
  setDiagnosticSink(std::move(before));
  EXPECT_EQ(lines, std::vector<std::string>(std::size(cases), "Warning: calender to date is not later than from date"));
}

TEST_F(DateTimeFunctionTests, InMonthsAndYears) {
  const Case cases[] = {
      {calendarUnitInDate, {"unit days", "date 2024-02-10 monthAndYear"}, "29 days"},
      {calendarUnitInDate, {"unit days", "date 2023-01-01 nakedYear"}, "365 days"},
      {calendarUnitInDate, {"unit hours", "date 2026-02-01 nakedMonth"}, "672 hours"},
      {calendarUnitInDate, {"unit nights", "date 2026-02-01 nakedMonth"}, "27 nights"},
      {calendarUnitInDate, {"unit weekdays", "date 2026-06-20 thisMonth"}, "22 weekdays"},
      {calendarUnitInDate, {"unit weekdays", "date 2024-01-01 nakedYear"}, "262 weekdays"},
      {calendarUnitInDate, {"unit days", "date 2024-02-10 dayMonthYear"}, "none"},
      {calendarUnitInDate, {"unit meters", "date 2024-02-10 monthAndYear"}, "none"},
      {calendarUnitLeftInDate, {"unit days", "date 2026-06-01 nakedMonth"}, "20 days"},
      {calendarUnitLeftInDate, {"unit months", "date 2026-01-01 nakedYear"}, "6 months"},
      {calendarUnitLeftInDate, {"date 2026-06-01 thisMonth"}, "span 2w 6d 14h 30m"},
      {calendarUnitLeftInDate, {"unit days", "unit years"}, "204 days"},
      {calendarUnitLeftInDate, {"unit hours", "date 2026-06-10 today"}, "14 hours"},
      {calendarUnitLeftInDate, {"unit days", "date 2026-07-01 nakedMonth"}, "none"},
      {calendarUnitLeftInDate, {"unit days", "date 2026-06-12 dayMonthYear"}, "none"},
  };
  expectAll(cases);
  const ScopedEnvironment december{worldAt("2026-12-30T12:00:00Z", "UTC", "en_US")};
  EXPECT_EQ(answerOf(calendarUnitLeftInDate, {"unit days", "date 2026-12-01 nakedMonth"}, EngineCustomization::basic()),
            "1 days");
}

TEST_F(DateTimeFunctionTests, AwayFromADate) {
  const Case cases[] = {
      {calendarUnitExpressionAgo, {"span 5d"}, "date 2026-06-05T09:30 dayAndMonth"},
      {calendarUnitExpressionAgo, {"span 2h"}, "date 2026-06-10T07:30 clockTime"},
      {calendarUnitExpressionAgo, {"unit years"}, "date 2025-06-10T09:30 dayMonthYear"},
      {calendarUnitExpressionAgo, {"span 2h", "zone Asia/Tokyo"}, "date 2026-06-10T16:30 clockTime Asia/Tokyo"},
      {calendarUnitExpressionAgo, {"date 2000-01-01 nakedYear", "unit years"}, "date 0026-06-10T09:30 dayMonthYear"},
      {calendarUnitExpressionAgo, {"date 2000-01-01 nakedYear", "unit days"}, "none"},
      {calendarUnitExpressionAgo, {"date 2000-01-01 dayMonthYear", "unit years"}, "none"},
      {calendarUnitExpressionAgo, {}, "none"},
      {calendarUnitExpressionAfterDate, {"span 1mo", "date 2024-01-31"}, "date 2024-02-29 dayMonthYear"},
      {calendarUnitExpressionAfterDate, {"span 2wd", "date 2024-03-01"}, "date 2024-03-05 dayMonthYear"},
      {calendarUnitExpressionAfterDate, {"unit weeks", "date 2024-03-01"}, "date 2024-03-08 dayMonthYear"},
      {calendarUnitExpressionAfterDate,
       {"span 30h", "date 2026-06-10T09:00 clockTime"},
       "date 2026-06-11T15:00 clockTime"},
      {calendarUnitExpressionAfterDate, {"span 2y", "date 2020-01-01 nakedYear"}, "date 2022-01-01 nakedYear"},
      {calendarUnitExpressionAfterDate, {"span 3w", "date 2020-01-01 nakedYear"}, "date 2020-01-22 dayMonthYear"},
      {calendarUnitExpressionAfterDate, {"span 1mo", "date 2024-03-01 nakedMonth"}, "date 2024-04-01 nakedMonth"},
      {calendarUnitExpressionAfterDate, {"span 1mo"}, "none"},
      {calendarUnitExpressionAfterDate, {"date 2024-01-31", "date 2024-01-31"}, "none"},
      {calendarUnitExpressionBeforeDate, {"span 1mo", "date 2024-03-31"}, "date 2024-02-29 dayMonthYear"},
      {calendarUnitExpressionBeforeDate, {"span -3d", "date 2024-03-31"}, "date 2024-03-31 dayMonthYear"},
      {calendarUnitExpressionBeforeDate, {"span 1y", "date 2020-01-01 nakedYear"}, "date 2019-01-01 nakedYear"},
      // The first Tuesday from 1 July on; Wednesday 24 June is one itself.
      {weekdayAfterTimespan, {"date 2026-06-16 weekDay", "span 3w"}, "date 2026-07-07 dayMonthYearAndWeekday"},
      {weekdayAfterTimespan, {"date 2026-06-17 weekDay", "span 2w"}, "date 2026-06-24 dayMonthYearAndWeekday"},
      {weekdayAfterTimespan, {"date 2026-06-10 today", "span 10d"}, "date 2026-06-20 dayMonthYearAndWeekday"},
      {weekdayAfterTimespan, {"date 2026-06-16 weekDay"}, "none"},
  };
  expectAll(cases);
}

TEST_F(DateTimeFunctionTests, HolidaysAreNoWorkdays) {
  EngineCustomization customization = EngineCustomization::basic();
  customization.setHolidays({{.day = 4, .month = 3, .year = 2024}});  // a Monday
  const Case cases[] = {
      {calendarUnitBetweenDates, {"unit weekdays", "date 2024-03-01", "date 2024-03-05"}, "1 weekdays"},
      {calendarUnitInDate, {"unit weekdays", "date 2024-03-01 monthAndYear"}, "20 weekdays"},
      {calendarUnitInDate, {"unit weekdays", "date 2025-03-01 monthAndYear"}, "21 weekdays"},
  };
  expectAll(cases, customization);
}

TEST_F(DateTimeFunctionTests, NumbersAndNamesOfDays) {
  const Case cases[] = {
      {dayNumberOnDate, {"date 2024-03-01"}, "61"},
      {dayNumberOnDate, {"date 2024-12-31"}, "366"},
      {dayNumberOnDate, {}, "none"},
      {dayOfYear, {}, "161"},
      {dayOfYear, {"date 2024-12-31"}, "none"},
      {weekNumberOnDate, {"date 2026-01-03"}, "1"},
      {weekNumberOnDate, {"date 2026-01-04"}, "2"},
      {weekOfYear, {}, "24"},
      {dayOfWeekOnDate, {"date 2024-03-05"}, "date 2024-03-05 weekDay"},
      {dayOfWeekOnDate, {"span 10d"}, "date 2026-06-20T09:30 weekDay"},
      {dayOfWeekOnDate, {"date 2024-03-05", "date 2024-03-06"}, "none"},
      {generateTimestamp, {}, "stamp 1781083800"},
      {generateTimestamp, {"date 1970-01-02"}, "stamp 86400"},
      {generateTimestamp, {"5%"}, "none"},
  };
  expectAll(cases);
}

TEST_F(DateTimeFunctionTests, Zones) {
  const Case cases[] = {
      {timeInTimezone, {"zone Asia/Tokyo"}, "date 2026-06-10T18:30 now Asia/Tokyo"},
      {timeInTimezone, {"date 2026-06-10T18:30 now Asia/Tokyo"}, "date 2026-06-10T18:30 now Asia/Tokyo"},
      {timeInTimezone, {"zone Asia/Tokyo", "zone Europe/Paris"}, "none"},
      {timeInTimezone, {"5%"}, "none"},
      {timeInTimezone, {"date 2026-06-11 tomorrow"}, "none"},
      {timeInTimezone, {"date 2026-06-11T17:00 clockTime"}, "date 2026-06-11T17:00 clockTime"},
      {dateInTimezone, {"date 2026-06-11 tomorrow"}, "date 2026-06-11 dayMonthYear"},
      {dateInTimezone, {"span 3w"}, "date 2026-07-01T09:30 dayMonthYear"},
      {dateInTimezone, {"zone Pacific/Kiritimati"}, "date 2026-06-10T23:30 dayMonthYear Pacific/Kiritimati"},
      {differenceBetweenTimezones, {"zone Europe/London", "zone Australia/Sydney"}, "9 hours"},
      {differenceBetweenTimezones, {"zone Asia/Kolkata", "zone Europe/London"}, "-4.5 hours"},
      {differenceBetweenTimezones, {"zone Asia/Kolkata"}, "none"},
  };
  expectAll(cases);
  const ScopedEnvironment winter{worldAt("2026-01-10T09:30:00Z", "UTC", "en_US")};
  EXPECT_EQ(answerOf(differenceBetweenTimezones, {"zone Europe/London", "zone Australia/Sydney"},
                     EngineCustomization::basic()),
            "11 hours");
}

// Days across the change of the clocks are days, on the clocks of here.
TEST_F(DateTimeFunctionTests, DaysOnClocksThatChange) {
  const ScopedEnvironment paris{worldAt("2026-03-28T11:00:00Z", "Europe/Paris", "fr_FR")};
  const Case cases[] = {
      {calendarUnitToDate, {"unit days", "date 2026-03-30T12:00"}, "2 days"},
      {calendarUnitToDate, {"unit hours", "date 2026-03-30T12:00"}, "47 hours"},
      {calendarUnitBetweenDates, {"unit days", "date 2026-03-28", "date 2026-03-30"}, "2 days"},
  };
  expectAll(cases);
}

}  // namespace
}  // namespace tavrine::testing
