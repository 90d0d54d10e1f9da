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
#include "Tests/Support/Table.h"
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

TEST_F(DatePairTests, DatesAndDurations) { expectAll(rowsOf<Case>("Evaluation/DatePairTests", "DatesAndDurations")); }

TEST_F(DatePairTests, Workdays) { expectAll(rowsOf<Case>("Evaluation/DatePairTests", "Workdays")); }

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
  expectAll(rowsOf<Case>("Evaluation/DatePairTests", "DatesAmongThemselves"));
}

TEST_F(DatePairTests, Durations) { expectAll(rowsOf<Case>("Evaluation/DatePairTests", "Durations")); }

TEST_F(DatePairTests, ReadingsAndTimeCodes) {
  expectAll(rowsOf<Case>("Evaluation/DatePairTests", "ReadingsAndTimeCodes"));
}

TEST_F(DatePairTests, Timestamps) { expectAll(rowsOf<Case>("Evaluation/DatePairTests", "Timestamps")); }

// Whatever the size, there is an answer at once, and no wrong one.
TEST_F(DatePairTests, FarBeyondTheCalendar) {
  expectAll(rowsOf<Case>("Evaluation/DatePairTests", "FarBeyondTheCalendar"));
}

TEST_F(DatePairTests, TotalsOfLines) {
  struct Row {
    std::string_view left;
    std::string_view right;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DatePairTests", "TotalsOfLines")) {
    const EvaluationResult sum =
        ResultsPairResolver::resultFor(timeToken(row.left).evaluationResult(), timeToken(row.right).evaluationResult());
    const std::string got = describeTime(sum.tokenized());
    EXPECT_EQ(got.substr(0, got.find(" (")), row.want) << row.left << " and " << row.right;
  }
}

}  // namespace
}  // namespace tavrine::testing
