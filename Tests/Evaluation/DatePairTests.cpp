// What operators mean between dates, durations, stopwatch readings, time codes and timestamps.

#include <gtest/gtest.h>

#include <map>
#include <span>
#include <string_view>

#include "Foundation/Environment.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Multiline/Utilities/ResultsPairResolver.h"
#include "Tests/Evaluation/DateTokens.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view left;
  std::string_view operation;
  std::string_view right;
  std::string_view want;
};

TokenSubType operationOf(std::string_view sign) {
  static const std::map<std::string_view, TokenSubType> operations = {
      {"+", TokenSubType::additionOperator},
      {"-", TokenSubType::subtractionOperator},
      {"*", TokenSubType::multiplicationOperator},
      {"/", TokenSubType::divisionOperator},
      {"r-", TokenSubType::reverseSubtractionOperator},
      {"<", TokenSubType::lessThan},
      {"=", TokenSubType::equalTo},
      {"max", TokenSubType::greaterOf},
  };
  return operations.at(sign);
}

/// Wednesday 10 June 2026, 09:30 in Greenwich.
class DatePairTests : public ::testing::Test {
 protected:
  static void expectAll(std::span<const Case> cases) {
    for (const Case& row : cases) {
      const Token answer =
          evaluatedPair(timeToken(row.left), timeToken(row.right), operatorToken(operationOf(row.operation), ""));
      EXPECT_EQ(describeTime(answer), row.want) << row.left << ' ' << row.operation << ' ' << row.right;
    }
  }

  ScopedEnvironment scope_{worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(DatePairTests, DatesAndDurations) {
  const Case cases[] = {
      {"date 2024-01-31 dayMonthYear", "+", "1 months", "date 2024-02-29 dayMonthYear"},
      {"date 2024-03-31 dayMonthYear", "-", "1 months", "date 2024-02-29 dayMonthYear"},
      {"date 2026-06-10 today", "+", "3 weeks", "date 2026-07-01 today"},
      {"3 weeks", "+", "date 2026-06-10 today", "date 2026-07-01 today"},
      {"date 2024-03-05 dayMonthYear", "+", "span 1mo 10d", "date 2024-04-15 dayMonthYear"},
      {"date 2024-03-05 dayMonthYear", "+", "1.5 days", "date 2024-03-06T12:00 clockTime"},
      // A time shows only once the duration has one.
      {"date 2026-06-10 today", "+", "3 hours", "date 2026-06-10T03:00 clockTime"},
      {"date 2026-06-10 today", "+", "30 seconds", "date 2026-06-10 dayMonthYearWithClockTimeDownToSeconds"},
      {"date 2026-06-10T15:45 clockTime", "+", "2 hours", "date 2026-06-10T17:45 clockTime"},
      {"date 2026-06-10T15:45 clockTime", "+", "5 days",
       "date 2026-06-15T15:45 dayMonthYearWithClockTimeDownToMinutes"},
      // A weekday is told alone only in this week, and subtraction doesn't ask.
      {"date 2026-06-11 weekDay", "+", "1 days", "date 2026-06-12 weekDay"},
      {"date 2026-06-11 weekDay", "+", "5 days", "date 2026-06-16 dayMonthYearAndWeekday"},
      {"date 2026-06-11 weekDay", "-", "9 days", "date 2026-06-02 weekDay"},
      // Holidays and special days are no longer what they were.
      {"date 2025-12-25 specialDay", "+", "0 days", "date 2025-12-25 specialDay"},
      // Only what leads back is taken off.
      {"date 2024-03-05 dayMonthYear", "-", "-3 days", "none"},
      {"date 2024-03-05 dayMonthYear", "*", "3 days", "none"},
      {"date 2024-03-05 dayMonthYear", "+", "5 kilometers", "5 kilometers"},
      // The time of day behind a duration counts as one.
      {"span 2h", "+", "date 2026-06-10T15:45 clockTime", "span 17h 45m"},
      {"span 20h", "-", "date 2026-06-10T15:45 clockTime", "span 4h 15m"},
      {"span 2h", "+", "date 2026-06-10 today", "none"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, Workdays) {
  const Case cases[] = {
      {"date 2026-06-12 dayMonthYear", "+", "2 weekdays", "date 2026-06-16 dayMonthYear"},
      {"date 2026-06-10 today", "-", "2 weekdays", "date 2026-06-08 today"},
      {"date 2026-06-10 today", "+", "span 3wd", "date 2026-06-15 today"},
      // The zeros of a measured duration are no workdays.
      {"date 2024-04-01 dayMonthYear", "+", "between 2024-03-05 2024-03-08", "date 2024-04-04 dayMonthYear"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, TheDaysOfTheZoneCount) {
  const Case cases[] = {
      // The clocks of Paris go forward on 31 March.
      {"date 2024-03-30T09:00 dayMonthYear Europe/Paris", "+", "1 days",
       "date 2024-03-31T09:00 dayMonthYear Europe/Paris"},
      {"date 2024-03-30T09:00 dayMonthYear Europe/Paris", "+", "24 hours",
       "date 2024-03-31T10:00 clockTime Europe/Paris"},
      // In Greenwich it is the first of the month already.
      {"date 2024-01-31T23:00 dayMonthYear America/New_York", "+", "1 months",
       "date 2024-02-29T23:00 dayMonthYear America/New_York"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, DatesAmongThemselves) {
  const Case cases[] = {
      {"date 2025-12-25 dayMonthYear", "-", "date 2025-12-20 dayMonthYear", "span 5d"},
      {"date 2025-12-20 dayMonthYear", "-", "date 2025-12-25 dayMonthYear", "span 5d"},
      {"date 2024-03-05 dayMonthYear", "-", "date 2024-03-05 dayMonthYear", "0 years (compound)"},
      {"date 2026-01-01 nakedYear", "-", "date 2024-05-01 nakedYear", "span 1y"},
      {"date 2026-06-10T15:00 clockTime", "-", "date 2026-06-10T09:30 clockTime", "span 5h 30m"},
      {"date 2026-06-10T15:00 clockTime Asia/Tokyo", "-", "date 2026-06-10T15:00 clockTime Europe/London",
       "-8 hours (compound)"},
      {"date 2026-06-10T02:30 clockTime", "+", "date 2026-06-10T03:45 clockTime", "span 22500s"},
      {"date 2024-03-05 dayMonthYear", "<", "date 2024-03-06 dayMonthYear", "boolean true"},
      {"date 2024-03-05 dayMonthYear", "=", "date 2024-03-06 dayMonthYear", "boolean false"},
      {"date 2024-03-05 dayMonthYear", "*", "date 2024-03-06 dayMonthYear", "none"},
      {"date 2024-03-05 dayMonthYear", "+", "5", "5"},
      {"iso 2024-03-05T14:30", "-", "iso 2024-03-05T12:00", "span 2h 30m"},
      {"iso 2024-03-05T14:30", "+", "90 minutes", "iso 2024-03-05T16:00 iso8601"},
      {"iso 2024-03-05T14:30", "+", "5 kilometers", "none"},
      {"iso 2024-03-05T14:30", "-", "span 1d", "iso 2024-03-04T14:30 iso8601"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, Durations) {
  const Case cases[] = {
      {"3 hours", "+", "20 minutes", "span 3h 20m"},
      {"3 hours", "+", "2 hours", "5 hours (compound)"},
      {"60 seconds", "+", "1 milliseconds", "60.001 seconds (compound)"},
      {"1 weeks", "-", "2 days", "span 5d"},
      {"3 hours", "/", "2", "span 1h 30m"},
      {"4 hours", "/", "2", "span 2h"},
      {"3 seconds", "/", "2", "1.5 seconds (compound)"},
      {"span 3h 20m", "+", "span 50m", "span 4h 10m"},
      {"span 50m", "r-", "span 3h 20m", "span 2h 30m"},
      {"span 3h 20m", "/", "span 20m", "10"},
      {"span 3h 20m", "max", "span 5h", "span 5h"},
      {"span 3h 20m", "<", "span 5h", "boolean true"},
      {"span 3h 20m", "*", "2", "span 6h 40m"},
      {"span 3h 30m", "*", "2", "7 hours (compound)"},
      {"span 3h 20m", "/", "0", "error DivideByZero"},
      {"span 3h 20m", "+", "10%", "span 3h 40m"},
      {"10%", "/", "span 2h", "5% / hours"},
      {"span 1h 30m", "+", "30 minutes", "span 2h"},
      {"span 1h 30m", "+", "5 kilograms", "error UnitMismatch"},
      {"20 currencyUSD / hours", "*", "span 1h 30m", "30 currencyUSD (compound)"},
      {"20 currencyUSD / hours", "*", "lap 1:30:00", "30 currencyUSD (compound)"},
      {"1 currencyUSD / days", "*", "dates 2024-04-01 2024-04-11", "10 currencyUSD (compound)"},
      // No calendar reaches so far.
      {"1e30 hours", "+", "1 minutes", "1000000000000000000000000000000.0166667 hours (compound)"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, ReadingsAndTimeCodes) {
  const Case cases[] = {
      {"lap 1:20:30.5", "+", "lap 0:50:00", "lap 2:10:30.5"},
      {"lap 0:10:00", "r-", "lap 0:30:00", "lap 0:20:00"},
      {"lap 1:00:00", "/", "lap 0:15:00", "4"},
      {"lap 1:00:00", "/", "lap 0:00:00", "error DivideByZero"},
      {"lap 1:00:00", "*", "lap 0:15:00", "none"},
      {"2", "*", "lap 1:20:00", "lap 2:40:00"},
      {"lap 1:20:00", "/", "0", "error DivideByZero"},
      {"2", "/", "lap 1:20:00", "lap 1:20:00"},
      {"lap 1:20:00", "+", "2", "lap 1:20:00"},
      {"lap 1:20:00", "*", "1e30", "error Infinity"},
      {"lap 1:20:00", "+", "10 minutes", "lap 1:30:00"},
      {"1 days", "-", "lap 1:00:00", "lap 23:00:00"},
      {"span 1d 2h", "+", "lap 1:00:00", "lap 27:00:00"},
      {"lap 1:00:00", "+", "5 kilometers", "none"},
      {"date 2026-06-10T15:00 clockTime", "+", "lap 1:30:00", "date 2026-06-10T16:30 clockTime"},
      {"lap 1:30:00", "-", "date 2026-06-10T15:00 clockTime", "date 2026-06-10T13:30 clockTime"},
      {"lap 1:30:00", "+", "date 2026-06-10T23:00 clockTime", "lap 24:30:00"},
      {"code 1:30:15:10", "+", "14 frames", "code 1:30:16:00@24"},
      {"code 0:00:01:00", "-", "1 frames", "code 0:00:00:23@24"},
      {"1 frames", "-", "code 0:00:01:00", "none"},
      {"code 0:00:01:00", "-", "code 0:00:02:00", "code 0:00:00:00@24"},
      {"code 0:00:00:20", "+", "code 0:00:00:20@30", "code 0:00:01:10@30"},
      {"code 0:00:10:00", "/", "code 0:00:02:00", "5"},
      {"code 0:00:10:00", "*", "0.25", "code 0:00:02:12@24"},
      {"code 0:00:10:00", "/", "0", "error DivideByZero"},
      {"code 0:00:10:00", "*", "1e40", "error Infinity"},
      {"code 0:00:10:00", "+", "5 seconds", "code 0:00:15:00@24"},
      {"code 0:00:10:00", "+", "lap 0:01:00.5", "code 0:01:10:12@24"},
      {"span 1m", "+", "code 0:00:10:00", "code 0:01:10:00@24"},
      {"date 2026-06-10T15:00 clockTime", "+", "code 0:30:00:00", "code 15:30:00:00@24"},
      {"date 2026-06-10 today", "+", "code 0:30:00:00", "none"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, Timestamps) {
  const Case cases[] = {
      {"stamp 1700000000", "-", "stamp 1699999000", "1000 seconds (compound)"},
      {"stamp 1700000000", "+", "60", "stamp 1700000060"},
      {"stamp 1700000000", "<", "60", "boolean false"},
      {"stamp 1700000000", "/", "0", "error DivideByZero"},
      {"stamp 1700000000", "+", "3 hours", "stamp 1700010800"},
      {"1 days", "+", "stamp 0", "stamp 86400"},
      {"stamp 1700000000", "+", "3 kilograms", "error UnitMismatch"},
      {"stamp 0", "+", "span 1mo 1d", "stamp 2764800"},
      {"span 1d", "+", "stamp 0", "stamp 86400"},
  };
  expectAll(cases);
}

// Whatever the size, there is an answer at once, and no wrong one.
TEST_F(DatePairTests, FarBeyondTheCalendar) {
  const Case cases[] = {
      {"date 2026-06-10 today", "+", "1e12 years", "none"},
      {"date 2026-06-10 today", "+", "1e25 years", "none"},
      {"date 2026-06-10 today", "-", "1e12 years", "none"},
      {"date 2026-06-10 today", "+", "9e18 days", "none"},
      {"date 2026-06-10 today", "+", "lap 9000000000000000000:00:00", "none"},
      {"date 2026-06-10 today", "+", "10000 years", "date 12026-06-10 today"},
      {"date 2026-06-10 today", "+", "1e14 weekdays", "none"},
      {"date 2026-06-10 today", "+", "26088 weekdays", "date 2126-06-10 today"},
      {"date 2126-06-10 today", "-", "26088 weekdays", "date 2026-06-10 today"},
      {"stamp 1e30", "+", "span 1d", "none"},
  };
  expectAll(cases);
}

TEST_F(DatePairTests, TotalsOfLines) {
  struct {
    std::string_view left;
    std::string_view right;
    std::string_view want;
  } const rows[] = {
      {"date 2026-06-10T02:00 clockTime", "date 2026-06-10T03:30 clockTime", "span 19800s"},
      {"date 2026-06-10 dayMonthYear", "date 2026-06-15 dayMonthYear", "span 5d"},
      {"date 2026-06-10 dayMonthYear", "date 2026-06-10 dayMonthYear", "none"},
      {"3 hours", "20 minutes", "span 3h 20m"},
      {"span 3h 20m", "span 40m", "span 4h"},
      {"lap 0:50:00", "lap 0:20:00", "lap 1:10:00"},
      {"code 0:00:00:20", "code 0:00:00:10", "code 0:00:01:06@24"},
      {"span 20m", "lap 1:00:00", "lap 1:20:00"},
      {"code 0:00:10:00", "span 20s", "code 0:00:30:00@24"},
      {"90 minutes", "span 20m", "span 110m"},
      {"span 20m", "5 kilometers", "5 kilometers"},
      {"lap 1:00:00", "90 minutes", "lap 2:30:00"},
      {"date 2026-06-10T02:00 clockTime", "span 90m", "span 3h 30m"},
      {"date 2026-06-10 dayMonthYear", "span 90m", "none"},
      {"date 2026-06-10T02:00 clockTime", "5 kilometers", "5 kilometers"},
      {"5", "date 2026-06-10 dayMonthYear", "5"},
  };
  for (const auto& row : rows) {
    const EvaluationResult sum =
        ResultsPairResolver::resultFor(timeToken(row.left).evaluationResult(), timeToken(row.right).evaluationResult());
    const std::string got = describeTime(sum.tokenized());
    EXPECT_EQ(got.substr(0, got.find(" (")), row.want) << row.left << " and " << row.right;
  }
}

}  // namespace
}  // namespace tavrine::testing
