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
  const auto cases = std::to_array<Case>({
      {"100 celsius", "fahrenheit", "212 fahrenheit"},
      {"5 feet", "feet", "5 feet"},
      {"180 centimeters", "meters", "1.8 meters"},
      {"1 newtonMeters", "joules", "1 joules"},
      {"5", "kilometers", "5 kilometers"},
      {"5%", "kilometers", "unchanged"},
      {"5 kilometers", "kilograms", "error UnitMismatch"},
      {"2 seconds", "hertz", "0.5 hertz"},
      {"A4", "hertz", "440 hertz"},
      {"A4", "kilohertz", "0.44 kilohertz"},
      {"A4", "meters", "error UnitMismatch"},
  });
  for (const Case& row : cases) {
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
  const auto cases = std::to_array<std::array<std::string_view, 4>>({
      {"10 currencyUSD", "currencyEUR", "0.9", "9 currencyEUR"},
      {"10 currencyUSD", "currencyEUR", "0.9 currencyEUR", "9 currencyEUR"},
      {"10 currencyUSD", "currencyEUR", "1.25 currencyUSD", "8 currencyEUR"},
      {"10 currencyUSD", "currencyEUR", "0.9 currencyEUR / currencyUSD", "9 currencyEUR"},
      {"10 currencyUSD", "currencyEUR", "1.25 currencyUSD / currencyEUR", "8 currencyEUR"},
      {"10 currencyUSD", "currencyEUR", "0 currencyUSD", "error UnsupportedRate"},
      {"10 currencyUSD", "currencyEUR", "2 kilometers", "error UnsupportedRate"},
      {"10 currencyUSD", "currencyEUR", "2 kilometers / hours", "error UnsupportedRate"},
      {"10 currencyUSD", "kilometers", "0.9", "error UnitMismatch"},
      {"5 weekdays", "weeks", "0.5", "2.5 weeks"},
  });
  for (const auto& [operand, target, rate, want] : cases) {
    const Token converter = converterTo(TokenSubType::unitConverterWithExplicitRate,
                                        {TokenFactory::unitWith(unitWithName(target)), valueToken(rate)});
    EXPECT_EQ(converted(valueToken(operand), converter), want) << operand << " in " << target << " at " << rate;
  }
}

TEST(UnitConverterTests, IntoAQuantity) {
  const auto cases = std::to_array<Case>({
      {"5", "2 kilometers", "5 kilometers"},
      {"5 kilometers", "2 kilometers", "5 kilometers"},
      {"1 kilometers", "200 meters", "5 meters"},
      {"1 kilometers", "5 kilograms", "error UnitMismatch"},
  });
  for (const Case& row : cases) {
    const Token converter = converterTo(TokenSubType::unitExpressionConverter, {valueToken(row.target)});
    EXPECT_EQ(converted(valueToken(row.operand), converter), row.want) << row.operand << " in " << row.target;
  }
}

TEST(UnitConverterTests, RatesIntoUnits) {
  const auto cases = std::to_array<Case>({
      {"60 kilometers / hours", "metersPerSecond", "16.666666666666666666666666666666666667 metersPerSecond"},
      {"60 kilometers / hours", "minutes", "1 kilometers / minutes"},
      {"60 kilometers / hours", "meters", "60000 meters / hours"},
      {"5 / days", "weeks", "35 / weeks"},
      {"5 / days", "kilometers", "5 kilometers / days"},
      {"10 / seconds", "hertz", "10 hertz"},
      {"12% / years", "months", "1% / months"},
      {"12% / years", "meters", "error UnitMismatch"},
      {"5 kilometers / days", "kilograms", "error UnitMismatch"},
  });
  for (const Case& row : cases) {
    EXPECT_EQ(converted(valueToken(row.operand), converterToUnit(row.target)), row.want)
        << row.operand << " in " << row.target;
  }
}

TEST(UnitConverterTests, IntoRates) {
  const auto cases = std::to_array<Case>({
      {"10 metersPerSecond", "1 kilometers / hours", "36 kilometers / hours"},
      {"60 kilometers / hours", "1 meters / minutes", "1000 meters / minutes"},
      {"60 kilometers / hours", "60 kilometers / hours", "60 kilometers / hours"},
      {"12% / years", "1% / months", "1% / months"},
      {"5 / days", "1 / weeks", "35 / weeks"},
      {"5 kilometers", "1 kilometers / hours", "error UnitMismatch"},
      {"60 kilometers / hours", "1 kilograms / hours", "error UnitMismatch"},
  });
  for (const Case& row : cases) {
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
  const auto cases = std::to_array<std::array<std::string_view, 2>>({
      {"500 meters / kilometers", "0.5"},
      {"5 kilometers / hours", "5 kilometers / hours"},
      {"5 / hertz", "5 seconds (compound)"},
      {"5 / kilohertz", "0.005 seconds (compound)"},
      {"5 / days", "5 / days"},
      {"5% / years", "5% / years"},
  });
  for (const auto& [rate, want] : cases) EXPECT_EQ(describeValue(valueToken(rate).evaluated()), want) << rate;
}

TEST(UnitConverterTests, TextIsReadAsALine) {
  const Token text(TokenType::literal, "2 + 3", NSRange::zero);
  EXPECT_EQ(converted(text, converterToUnit("kilometers")), "5 kilometers");
}

TEST(UnitConverterTests, IntoForms) {
  struct {
    std::string_view operand;
    TokenSubType form;
    std::string_view want;
  } const rows[] = {
      {"24 inches", TokenSubType::feetAndInchesConverter, "2 feet (compound)"},
      {"24 inches", TokenSubType::poundsAndOuncesConverter, "none"},
      {"8 ounces", TokenSubType::poundsAndOuncesConverter, "0.5 pounds (compound)"},
      {"440 hertz", TokenSubType::midiConverter, "69"},
      {"A4", TokenSubType::midiConverter, "69"},
      {"5 hertz", TokenSubType::midiConverter, "none"},
      {"5 kilometers", TokenSubType::midiConverter, "none"},
      {"440 hertz", TokenSubType::pitchConverter, "A4"},
      {"69", TokenSubType::pitchConverter, "A4"},
      {"20", TokenSubType::pitchConverter, "none"},
      {"128", TokenSubType::pitchConverter, "none"},
      {"48.5", TokenSubType::dmsConverter, "48° 30′ 0″"},
      {"48.5 degrees", TokenSubType::dmsConverter, "48° 30′ 0″"},
      {"0.5 revolutions", TokenSubType::dmsConverter, "180° 0′ 0″"},
      {"5 kilometers", TokenSubType::dmsConverter, "none"},
      {"3.7 kilometers", TokenSubType::roundingConverter, "4 kilometers"},
      {"3.2 kilometers / hours", TokenSubType::roundingUpConverter, "4 kilometers / hours"},
      {"3.2 kilometers", TokenSubType::numberConverter, "3.2"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(converted(valueToken(row.operand), TokenFactory::converterWith(row.form)), row.want)
        << row.operand << " in " << toString(row.form);
  }
}

}  // namespace
}  // namespace tavrine::testing
