// Dates and durations in other forms.

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Environment.h"
#include "TavrineCore/Evaluation/PostEvaluation/AutomaticResultConverter.h"
#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Evaluation/Support/Functions/FunctionExpressionEvaluator.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "Tests/Evaluation/DateTokens.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using Sub = TokenSubType;

Token converterOf(Sub subType, std::string_view word, Sub symbol, Token target) {
  return Token(TokenType::converter, subType, std::string(word), NSRange::zero,
               TokenList::frozen({Token(TokenType::converterSymbol, symbol, std::string(word), NSRange::zero, nullptr),
                                  Token(TokenType::whitespace, " ", NSRange::zero), std::move(target)}));
}

std::string converted(std::string_view operand, const Token& converter) {
  const std::optional<Token> result = TokenConverterFactory::converted(timeToken(operand), converter);
  return result ? describeTime(*result) : "unchanged";
}

std::string convertedBy(const ResultConversionBehavior& behavior, std::string_view operand) {
  const Token token = timeToken(operand);
  const EngineCustomization customization = EngineCustomization::basic();
  const auto result = AutomaticResultConverter(behavior, token, customization).finalValue();
  return result ? describeTime(*result) : "unchanged";
}

/// Wednesday 10 June 2026, 09:30 in Greenwich.
class DateConverterTests : public ::testing::Test {
 protected:
  ScopedEnvironment scope_{worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(DateConverterTests, DurationsIntoUnits) {
  struct {
    std::string_view operand;
    std::string_view unit;
    std::string_view want;
  } const rows[] = {
      {"span 3h 20m", "seconds", "12000 seconds"},
      {"span 1w 1d", "days", "8 days"},
      {"span 3h", "kilometers", "none"},
      // By the calendar, where the duration was measured on one.
      {"between 2024-03-05 2024-04-01", "days", "27 days"},
      {"between 2024-03-05 2024-04-01", "weeks", "3 weeks"},
      {"between 2024-02-01 2024-04-15", "months", "2 months"},
      {"between 2022-02-01 2024-04-15", "years", "2 years"},
      {"between 2024-03-05 2024-03-06", "hours", "24 hours"},
      {"between 2024-03-05 2024-03-06", "seconds", "86400 seconds"},
      // From a Friday to the Tuesday.
      {"between 2024-03-01 2024-03-05", "weekdays", "2 weekdays"},
      {"dates 2024-04-01 2024-06-30", "days", "90 days"},
      {"dates 2024-06-30 2024-04-01", "days", "0 days"},
  };
  for (const auto& row : rows) {
    const Token converter =
        TokenFactory::converterToUnitWith(std::make_shared<const UnitTokenMetadata>(unitWithName(row.unit)));
    EXPECT_EQ(converted(row.operand, converter), row.want) << row.operand << " in " << row.unit;
  }
}

TEST_F(DateConverterTests, FormsWithoutATarget) {
  struct {
    std::string_view operand;
    Sub converter;
    std::string_view want;
  } const rows[] = {
      {"90 minutes", Sub::hoursAndMinutesConverter, "span 1h 30m"},
      {"lap 26:30:00", Sub::daysAndHoursConverter, "span 1d 2h"},
      {"date 2026-06-10T15:45 clockTime", Sub::hoursAndMinutesConverter, "span 15h 45m"},
      {"date 2026-06-10 today", Sub::hoursAndMinutesConverter, "none"},
      {"5 kilometers", Sub::hoursAndMinutesConverter, "none"},
      {"17 days", Sub::weeksAndDaysConverter, "span 2w 3d"},
      {"dates 2024-04-01 2024-06-30", Sub::weeksAndDaysConverter, "span 12w 6d"},
      {"between 2022-02-01 2024-04-15", Sub::yearsAndMonthsConverter, "span 2y 2mo"},
      {"between 2024-02-01 2024-04-15", Sub::monthsAndDaysConverter, "span 2mo 14d"},
      {"between 2024-02-01 2024-04-15", Sub::monthsAndWeeksConverter, "span 2mo 2w"},
      {"dates 2024-04-01 2024-06-30", Sub::monthsAndDaysConverter, "unchanged"},
      {"90 seconds", Sub::timespanConverter, "span 1m 30s"},
      {"lap 1:30:00", Sub::timespanConverter, "span 1h 30m"},
      {"code 0:00:10:12", Sub::timespanConverter, "span 10s 500000000ns"},
      {"between 2024-02-01 2024-04-15", Sub::timespanConverter, "span 10w 4d"},
      {"date 2026-06-10T15:45 clockTime", Sub::timespanConverter, "span 15h 45m"},
      {"5 kilometers", Sub::timespanConverter, "error UnitMismatch"},
      {"90 minutes", Sub::laptimeConverter, "lap 1:30:00"},
      {"span 1d 2h", Sub::laptimeConverter, "lap 26:00:00"},
      {"code 0:00:10:12", Sub::laptimeConverter, "lap 0:00:10.5"},
      {"5 kilometers", Sub::laptimeConverter, "none"},
      {"date 2024-05-01 nakedYear", Sub::numberConverter, "2024"},
      {"date 2024-05-01 dayMonthYear", Sub::numberConverter, "none"},
      {"1700000000", Sub::timestampConverter, "stamp 1700000000"},
      {"2 hours", Sub::timestampConverter, "stamp 7200"},
      {"5 kilometers", Sub::timestampConverter, "error UnitMismatch"},
      {"date 1970-01-02 dayMonthYear", Sub::timestampConverter, "stamp 86400"},
      {"iso 1970-01-02", Sub::timestampConverter, "stamp 86400"},
      {"1700000000", Sub::dateConverter, "date 2023-11-14T22:13 unixTimestamp"},
      {"stamp 0", Sub::dateConverter, "date 1970-01-01 unixTimestamp"},
      {"1e30", Sub::dateConverter, "error Infinity"},
      {"iso 2024-03-05", Sub::dateConverter, "date 2024-03-05 iso8601"},
      {"5 days", Sub::dateConverter, "date 2026-06-15T09:30 dayAndMonth"},
      {"span 3wd", Sub::dateConverter, "date 2026-06-15T09:30 unspecified"},
      {"5 kilometers", Sub::dateConverter, "none"},
      {"date 2024-03-05 dayMonthYear", Sub::iso8601Converter, "iso 2024-03-05 dayMonthYear"},
      {"stamp 0", Sub::iso8601Converter, "iso 1970-01-01 unixTimestamp"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(converted(row.operand, TokenFactory::converterWith(row.converter)), row.want)
        << row.operand << ' ' << toString(row.converter);
  }
}

TEST_F(DateConverterTests, Zones) {
  struct {
    std::string_view operand;
    Sub symbol;
    std::string_view zone;
    std::string_view want;
  } const rows[] = {
      // The clocks there are meant, unless the date is to be brought there, or has come from somewhere.
      {"date 2026-06-10T09:00 clockTime", Sub::converterSymbolIn, "Asia/Tokyo",
       "date 2026-06-10T09:00 clockTime Asia/Tokyo"},
      {"date 2026-06-10T15:00 clockTime", Sub::converterSymbolTo, "Asia/Tokyo", "date 2026-06-11 clockTime Asia/Tokyo"},
      {"date 2026-06-10T09:00 clockTime Europe/Paris", Sub::converterSymbolIn, "America/New_York",
       "date 2026-06-10T03:00 clockTime America/New_York"},
      {"date 2026-06-10T09:30 now", Sub::converterSymbolIn, "Asia/Tokyo", "date 2026-06-10T18:30 now Asia/Tokyo"},
  };
  for (const auto& row : rows) {
    const Token zone = TokenFactory::timezoneWith(TimeZone(row.zone));
    EXPECT_EQ(converted(row.operand, converterOf(Sub::timezoneConverter, "in", row.symbol, zone)), row.want)
        << row.operand << " in " << row.zone;
  }
  Token utc = TokenFactory::timezoneWith(TimeZone::gmt());
  utc.stringValue = "UTC";
  EXPECT_EQ(converted("date 2026-06-10T09:00 clockTime Europe/Paris",
                      converterOf(Sub::timezoneConverter, "in", Sub::converterSymbolIn, utc)),
            "date 2026-06-10T07:00 utcTime GMT");
  const Token word(TokenType::wordComment, "there", NSRange::zero);
  EXPECT_EQ(converted("date 2026-06-10T09:00 clockTime",
                      converterOf(Sub::timezoneConverter, "in", Sub::converterSymbolIn, word)),
            "none");
}

TEST_F(DateConverterTests, Templates) {
  const Token text(TokenType::wordComment, "dd.MM.yyyy", NSRange::zero);
  const Token converter = converterOf(Sub::dateFormatTemplateConverter, "as", Sub::converterSymbolAs, text);
  for (const std::string_view operand : {"date 2024-03-05 dayMonthYear", "stamp 1709596800"}) {
    const auto result = TokenConverterFactory::converted(timeToken(operand), converter);
    ASSERT_TRUE(result && result->datestampValue()) << operand;
    EXPECT_EQ(result->datestampValue()->dateFormatTemplate, "dd.MM.yyyy") << operand;
    EXPECT_EQ(result->datestampValue()->date.timeIntervalSince1970(), 1'709'596'800) << operand;
  }
}

TEST_F(DateConverterTests, UnixTimeAsFunction) {
  struct {
    std::string_view seconds;
    std::string_view want;
  } const rows[] = {
      {"0", "date 1970-01-01 unixTimestamp"}, {"-86400", "date 1969-12-31 unixTimestamp"}, {"-1e40", "error Infinity"}};
  for (const auto& row : rows) {
    const Token call = TokenFactory::functionExpressionWith("fromunix", timeToken(row.seconds));
    const auto result = FunctionExpressionEvaluator::evaluateFunction(call);
    EXPECT_EQ(result ? describeTime(*result) : "nothing", row.want) << row.seconds;
  }
}

TEST_F(DateConverterTests, ResultsAreConvertedByThemselves) {
  struct {
    std::string_view operand;
    std::string_view want;
  } const rows[] = {
      {"90 seconds", "span 1m 30s"},
      {"90 minutes", "span 1h 30m"},
      {"date 2026-06-10T18:00 clockTime Asia/Tokyo", "date 2026-06-10T09:00 clockTime UTC"},
      {"date 2026-06-10 dayMonthYear Asia/Tokyo", "unchanged"},
      {"date 2026-06-10T18:00 clockTime", "unchanged"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(convertedBy(ResultConversionBehavior::automatic(), row.operand), row.want) << row.operand;
  }
}

TEST_F(DateConverterTests, LoneTimesFollowTheRulesOfTheUser) {
  const auto rules = ResultConversionBehavior::customRules(
      {ResultConversionRule::convertToTimespanUnitExpressionWith(UnitIdentifier::hours),
       ResultConversionRule::timeWithTimezone(TimeZone("Asia/Tokyo"))});
  struct {
    std::string_view operand;
    std::string_view want;
  } const rows[] = {
      {"2.5 hours", "span 2h 30m"},
      {"90 minutes", "unchanged"},
      {"date 2026-06-10T09:00 clockTime Europe/Paris", "date 2026-06-10T16:00 clockTime Asia/Tokyo"},
      {"date 2026-06-10T16:00 clockTime Asia/Tokyo", "unchanged"},
      {"date 2026-06-10 dayMonthYear Europe/Paris", "unchanged"},
  };
  for (const auto& row : rows) EXPECT_EQ(convertedBy(rules, row.operand), row.want) << row.operand;
}

}  // namespace
}  // namespace tavrine::testing
