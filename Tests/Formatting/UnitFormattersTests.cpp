#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::contextFor;
using testing::number;
using testing::Settings;
using enum UnitIdentifier;

std::string shown(const EvaluationResult& result, const Settings& settings = {}, std::string_view locale = "en_US") {
  const auto formatted = ModernResultFactory::formattedResultFor(result, contextFor(locale, settings.preferences()));
  return formatted ? formatted->stringValue : "no formatter";
}

EvaluationResult amount(std::string_view value, UnitIdentifier unit, bool compound = false) {
  return EvaluationResult::unitExpression({number(value), unitOf(unit), compound});
}

struct AmountCase {
  std::string_view locale, value;
  UnitIdentifier unit;
  std::string_view want;
  Settings settings = {};
};

void expectShown(std::span<const AmountCase> cases, bool compound) {
  for (const AmountCase& c : cases) {
    EXPECT_EQ(shown(amount(c.value, c.unit, compound), c.settings, c.locale), c.want)
        << c.locale << ' ' << c.value << ' ' << toString(c.unit);
  }
}

TEST(UnitFormatters, NumberBlankSymbol) {
  expectShown(rowsOf<AmountCase>("Formatting/UnitFormattersTests", "NumberBlankSymbol"), false);
}

TEST(UnitFormatters, WordsFollowTheirNumber) {
  expectShown(rowsOf<AmountCase>("Formatting/UnitFormattersTests", "WordsFollowTheirNumber"), false);
}

TEST(UnitFormatters, SomeSymbolsTouchTheirNumber) {
  expectShown(rowsOf<AmountCase>("Formatting/UnitFormattersTests", "SomeSymbolsTouchTheirNumber"), false);
}

TEST(UnitFormatters, PairsOfUnits) {
  expectShown(rowsOf<AmountCase>("Formatting/UnitFormattersTests", "PairsOfUnits"), true);
  EXPECT_EQ(shown(amount("5.25", feet)), "5.25 ft");
}

TEST(UnitFormatters, UnitsOfTheVocabulary) {
  const auto unitWith = [](UnitIdentifier identifier, UnitType type, bool custom) {
    UnitDescription description{"described", {}, identifier};
    description.representsCustomUnit = custom;
    return TCUnit::counted({identifier, type, "own", {}, std::make_shared<const UnitDescription>(description)});
  };
  const auto shownIn = [](const TCUnit& unit) { return shown(EvaluationResult::unitExpression({number("2"), unit})); };
  EXPECT_EQ(shownIn(unitWith(cups, UnitType::volume, false)), "2 described");
  EXPECT_EQ(shownIn(unitWith(miles, UnitType::length, false)), "2 own");
  // A unit of money that the user made isn't shown as money.
  EXPECT_EQ(shownIn(unitWith(currencyUSD, UnitType::currency, true)), "2 described");
}

TEST(UnitFormatters, AnAmountOfADeclaredUnitIsItsName) {
  const UnitExpression quantity{number("3"), genericUnit()};
  const Token declaration(TokenType::unitDeclaration, TokenSubType::notSpecified, "2 foo = 3", {0, 9}, nullptr,
                          std::make_shared<const UnitDeclarationTokenMetadata>("foo", Decimal(2), quantity));
  ResultFormatterContext context = contextFor("en_US");
  context.originalTokenList = std::make_shared<const TokenList>(std::vector<Token>{declaration});
  const auto shownOf = [&context](const UnitExpression& expression) {
    return ModernResultFactory::formattedResultFor(EvaluationResult::unitExpression(expression), context)->stringValue;
  };
  EXPECT_EQ(shownOf(quantity), "foo");
  EXPECT_EQ(shownOf({number("3"), unitOf(kilometers)}), "3 km");
}

TEST(UnitFormatters, Ranges) {
  const auto range = [](std::string_view lower, std::string_view upper, UnitIdentifier unit) {
    return EvaluationResult::unitRange({number(lower), number(upper), unitOf(unit)});
  };
  EXPECT_EQ(shown(range("5", "10", kilometers)), "5 - 10 km");
  EXPECT_EQ(shown(range("-1.5", "1.5", celsius), {}, "de_DE"), "-1,5 - 1,5 °C");
  EXPECT_EQ(shown(range("0", "1", days)), "0 - 1 day");
  EXPECT_EQ(shown(range("1", "not a number", kilometers)), "");
}

TEST(UnitFormatters, Rates) {
  const auto rate = [](std::string_view value, std::optional<UnitIdentifier> of, UnitIdentifier per) {
    UnitRate result{number(value), std::nullopt, unitOf(per), true};
    if (of) result.ofUnit = unitOf(*of);
    return EvaluationResult::unitRate(result);
  };
  EXPECT_EQ(shown(rate("20.5", kilometers, days)), "20.5 km/day");
  EXPECT_EQ(shown(rate("20.5", kilometers, days), {}, "de_DE"), "20,5 km/day");
  EXPECT_EQ(shown(rate("5", days, weeks)), "5 days/week");
  EXPECT_EQ(shown(rate("5.25", feet, hours)), "5 ft 3 in/hr");
  EXPECT_EQ(shown(rate("60", std::nullopt, minutes)), "60/min");
  EXPECT_EQ(shown(rate("not a number", kilometers, days)), "");

  EXPECT_EQ(shown(EvaluationResult::decimalRate({number("1234.5"), unitOf(months)})), "1,234.5/month");
  EXPECT_EQ(shown(EvaluationResult::decimalRate({number("not a number"), unitOf(days)})), "");
  EXPECT_EQ(shown(EvaluationResult::percentageRate({{number("0.055")}, unitOf(years)})), "5.5% / year");
  EXPECT_EQ(shown(EvaluationResult::percentageRate({{number("0.055")}, unitOf(years)}), {}, "fr_FR"),
            "5,5\u00a0% / year");
  EXPECT_EQ(shown(EvaluationResult::percentageRate({{number("not a number")}, unitOf(years)})), "");
}

}  // namespace
}  // namespace tavrine
