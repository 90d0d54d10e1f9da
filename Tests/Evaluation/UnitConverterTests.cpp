#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view operand;
  std::string_view target;
  std::string_view want;
};

Token converterTo(TokenSubType subType, std::vector<Token> targets) {
  std::vector<Token> parts{Token(TokenType::converterSymbol, "in", NSRange::zero)};
  for (Token& target : targets) {
    parts.emplace_back(TokenType::whitespace, " ", NSRange::zero);
    parts.push_back(std::move(target));
  }
  return Token(TokenType::converter, subType, "in", NSRange::zero, TokenList::frozen(std::move(parts)));
}

Token converterToUnit(std::string_view name) {
  return TokenFactory::converterToUnitWith(std::make_shared<const UnitTokenMetadata>(unitWithName(name)));
}

std::string converted(const Token& operand, const Token& converter) {
  const std::optional<Token> result = TokenConverterFactory::converted(operand, converter);
  return result ? describeValue(*result) : "unchanged";
}

TEST(UnitConverterTests, IntoUnits) {
  for (const Case& row : rowsOf<Case>("Evaluation/UnitConverterTests", "IntoUnits")) {
    EXPECT_EQ(converted(valueToken(row.operand), converterToUnit(row.target)), row.want)
        << row.operand << " in " << row.target;
  }
}

TEST(UnitConverterTests, TimesAndAnglesIntoUnits) {
  const Token laptime = TokenFactory::laptimeWith(Laptime{1, 20, *Decimal::parse("30.5")});
  const Token frametime = TokenFactory::frametimeWith(Frametime{Decimal(24), 0, 1, 2, 12});
  const Token timestamp = TokenFactory::timestampWith(Decimal(7200), CalendarEnvironment(Calendar::current()));
  const Token angle = TokenFactory::dmsWith(DegreesMinutesSeconds{10, 30, 36, std::nullopt});
  struct {
    const Token& operand;
    std::string_view target;
    std::string_view want;
  } const rows[] = {
      {laptime, "seconds", "4830.5 seconds"}, {laptime, "meters", "error UnitMismatch"},
      {frametime, "seconds", "62.5 seconds"}, {frametime, "frames", "1500 frames"},
      {timestamp, "hours", "2 hours"},        {timestamp, "meters", "error UnitMismatch"},
      {angle, "degrees", "10.51 degrees"},    {angle, "meters", "error UnitMismatch"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(converted(row.operand, converterToUnit(row.target)), row.want)
        << describe(row.operand) << " in " << row.target;
  }
}

TEST(UnitConverterTests, AtASpecifiedRate) {
  for (const auto& [operand, target, rate, want] :
       rowsOf<std::array<std::string_view, 4>>("Evaluation/UnitConverterTests", "AtASpecifiedRate")) {
    const Token converter = converterTo(TokenSubType::unitConverterWithExplicitRate,
                                        {TokenFactory::unitWith(unitWithName(target)), valueToken(rate)});
    EXPECT_EQ(converted(valueToken(operand), converter), want) << operand << " in " << target << " at " << rate;
  }
}

TEST(UnitConverterTests, IntoAQuantity) {
  for (const Case& row : rowsOf<Case>("Evaluation/UnitConverterTests", "IntoAQuantity")) {
    const Token converter = converterTo(TokenSubType::unitExpressionConverter, {valueToken(row.target)});
    EXPECT_EQ(converted(valueToken(row.operand), converter), row.want) << row.operand << " in " << row.target;
  }
}

TEST(UnitConverterTests, RatesIntoUnits) {
  for (const Case& row : rowsOf<Case>("Evaluation/UnitConverterTests", "RatesIntoUnits")) {
    EXPECT_EQ(converted(valueToken(row.operand), converterToUnit(row.target)), row.want)
        << row.operand << " in " << row.target;
  }
}

TEST(UnitConverterTests, IntoRates) {
  for (const Case& row : rowsOf<Case>("Evaluation/UnitConverterTests", "IntoRates")) {
    EXPECT_EQ(converted(valueToken(row.operand), converterTo(TokenSubType::rateConverter, {valueToken(row.target)})),
              row.want)
        << row.operand << " in " << row.target;
  }
  const Token stroke(TokenType::operator_, TokenSubType::divisionOperator, "/", NSRange::zero);
  const Token perMinute =
      converterTo(TokenSubType::rateConverter, {stroke, TokenFactory::unitWith(unitWithName("minutes"))});
  EXPECT_EQ(converted(valueToken("60 kilometers / hours"), perMinute), "1 kilometers / minutes");
  const Token metersPerMinute = converterTo(
      TokenSubType::rateConverter,
      {TokenFactory::unitWith(unitWithName("meters")), stroke, TokenFactory::unitWith(unitWithName("minutes"))});
  EXPECT_EQ(converted(valueToken("60 kilometers / hours"), metersPerMinute), "1000 meters / minutes");
  EXPECT_EQ(converted(valueToken("2 hertz"), TokenFactory::converterWith(TokenSubType::frequencyRateConverter)),
            "2 cycles / seconds");
}

TEST(UnitConverterTests, RatesComeToSomethingSimplerWhereTheyCan) {
  for (const auto& [rate, want] : rowsOf<std::array<std::string_view, 2>>("Evaluation/UnitConverterTests",
                                                                          "RatesComeToSomethingSimplerWhereTheyCan"))
    EXPECT_EQ(describeValue(valueToken(rate).evaluated()), want) << rate;
}

TEST(UnitConverterTests, TextIsReadAsALine) {
  const Token text(TokenType::literal, "2 + 3", NSRange::zero);
  EXPECT_EQ(converted(text, converterToUnit("kilometers")), "5 kilometers");
}

TEST(UnitConverterTests, IntoForms) {
  struct Row {
    std::string_view operand;
    TokenSubType form;
    std::string_view want;
  };
  for (const auto& row : rowsOf<Row>("Evaluation/UnitConverterTests", "IntoForms")) {
    EXPECT_EQ(converted(valueToken(row.operand), TokenFactory::converterWith(row.form)), row.want)
        << row.operand << " in " << toString(row.form);
  }
}

}  // namespace
}  // namespace tavrine::testing
