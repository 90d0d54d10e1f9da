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
#include "Tests/Support/Table.h"
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
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "BetweenDates"));
}

TEST_F(DateTimeFunctionTests, BetweenNowAndADate) {
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "BetweenNowAndADate"));
}

TEST_F(DateTimeFunctionTests, WhatLiesOnTheWrongSideOfNowIsWarnedOf) {
  const std::vector<Case> cases =
      rowsOf<Case>("Evaluation/DateTimeFunctionTests", "WhatLiesOnTheWrongSideOfNowIsWarnedOf");
  std::vector<std::string> lines;
  auto before = setDiagnosticSink([&lines](std::string_view line) { lines.emplace_back(line); });
  expectAll(cases);
  setDiagnosticSink(std::move(before));
  EXPECT_EQ(lines, std::vector<std::string>(std::size(cases), "Warning: calender to date is not later than from date"));
}

TEST_F(DateTimeFunctionTests, InMonthsAndYears) {
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "InMonthsAndYears"));
  const ScopedEnvironment december{worldAt("2026-12-30T12:00:00Z", "UTC", "en_US")};
  EXPECT_EQ(answerOf(calendarUnitLeftInDate, {"unit days", "date 2026-12-01 nakedMonth"}, EngineCustomization::basic()),
            "1 days");
}

TEST_F(DateTimeFunctionTests, AwayFromADate) {
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "AwayFromADate"));
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
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "NumbersAndNamesOfDays"));
}

TEST_F(DateTimeFunctionTests, Zones) {
  expectAll(rowsOf<Case>("Evaluation/DateTimeFunctionTests", "Zones"));
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
