// Dates and durations in other forms.

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

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
#include "Tests/Support/Table.h"
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
  struct Row {
    std::string_view operand;
    std::string_view unit;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DateConverterTests", "DurationsIntoUnits")) {
    const Token converter =
        TokenFactory::converterToUnitWith(std::make_shared<const UnitTokenMetadata>(unitWithName(row.unit)));
    EXPECT_EQ(converted(row.operand, converter), row.want) << row.operand << " in " << row.unit;
  }
}

TEST_F(DateConverterTests, FormsWithoutATarget) {
  struct Row {
    std::string_view operand;
    Sub converter;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DateConverterTests", "FormsWithoutATarget")) {
    EXPECT_EQ(converted(row.operand, TokenFactory::converterWith(row.converter)), row.want)
        << row.operand << ' ' << toString(row.converter);
  }
}

TEST_F(DateConverterTests, Zones) {
  struct Row {
    std::string_view operand;
    Sub symbol;
    std::string_view zone;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DateConverterTests", "Zones")) {
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
  struct Row {
    std::string_view operand;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DateConverterTests", "ResultsAreConvertedByThemselves")) {
    EXPECT_EQ(convertedBy(ResultConversionBehavior::automatic(), row.operand), row.want) << row.operand;
  }
}

TEST_F(DateConverterTests, LoneTimesFollowTheRulesOfTheUser) {
  const auto rules = ResultConversionBehavior::customRules(
      {ResultConversionRule::convertToTimespanUnitExpressionWith(UnitIdentifier::hours),
       ResultConversionRule::timeWithTimezone(TimeZone("Asia/Tokyo"))});
  struct Row {
    std::string_view operand;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/DateConverterTests", "LoneTimesFollowTheRulesOfTheUser"))
    EXPECT_EQ(convertedBy(rules, row.operand), row.want) << row.operand;
}

}  // namespace
}  // namespace tavrine::testing
