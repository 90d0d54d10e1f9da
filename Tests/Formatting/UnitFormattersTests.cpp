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

namespace tavrine {
namespace {

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
  constexpr AmountCase cases[] = {
      {"en_US", "1234.5", kilometers, "1,234.5 km"},
      {"en_GB", "1234.5", kilometers, "1,234.5 km"},
      {"de_DE", "1234.5", kilometers, "1.234,5 km"},
      {"fr_FR", "1234.5", kilometers, "1\u202f234,5 km"},
      {"ja_JP", "1234.5", kilometers, "1,234.5 km"},
      {"es_ES", "1234.5", kilometers, "1.234,5 km"},
      {"en_IN", "99999.5", meters, "99,999.5 m"},
      {"en_US", "1234.5", kilometers, "1234.5 km", {.groups = false}},
      {"en_US", "3.10685596118667", milesPerHour, "3.1068559612 mph"},
      {"en_US", "3.10685596118667", milesPerHour, "3.11 mph", {.dp = 2}},
      {"en_US", "5", kilometers, "5.00 km", {.minimum = 2}},
      {"en_US", "-40", celsius, "-40 °C"},
      {"en_US", "1500000", meters, "1.5M m"},
      {"en_US", "1500000", meters, "1,500,000 m", {.abbreviates = false}},
      {"en_US", "9460730472580800", meters, "9.4607304726E15 m"},
      {"en_US", "0", kilograms, "0 kg"},
      {"en_US", "not a number", kilometers, "Error: ∞"},
  };
  expectShown(cases, false);
}

TEST(UnitFormatters, WordsFollowTheirNumber) {
  constexpr AmountCase cases[] = {
      {"en_US", "1", weeks, "1 week"},
      {"en_US", "-1", days, "-1 day"},
      {"en_US", "0", days, "0 days"},
      {"en_US", "0.5", months, "0.5 months"},
      {"en_US", "30.436875", days, "30.436875 days"},
      {"en_US", "2", years, "2 years"},
      {"en_US", "3", weekdays, "3 workdays"},
      {"en_US", "1", weekdays, "1 workday"},
      {"en_US", "3", nights, "3 nights"},
      {"en_US", "7", picoseconds, "7 picoseconds"},
      // One, but for the last digits of a division.
      {"en_US", "0.99999999999999999999999999999999999999", weeks, "1 week"},
      // Abbreviations have one form.
      {"en_US", "2", hours, "2 hr"},
      {"en_US", "90", minutes, "90 min"},
      {"en_US", "100", seconds, "100 s"},
      {"en_US", "2", miles, "2 mi"},
      // The words are those of the vocabulary; the numbers follow the locale.
      {"de_DE", "2.5", days, "2,5 days"},
      {"fr_FR", "1.5", days, "1,5 days"},
  };
  expectShown(cases, false);
}

TEST(UnitFormatters, SomeSymbolsTouchTheirNumber) {
  constexpr AmountCase cases[] = {
      {"en_US", "90.5", degrees, "90.5°"},
      {"de_DE", "90.5", degrees, "90,5°"},
      {"en_US", "30", arcMinutes, "30′"},
      {"en_US", "15", arcSeconds, "15″"},
      {"en_US", "1.5707963267948966", radians, "1.5707963268 rad"},
      // Style sheets know neither groups nor commas.
      {"en_US", "12345.5", pixel, "12345.5px"},
      {"de_DE", "12345.5", pixel, "12345.5px"},
      {"fr_FR", "1.25", em, "1.25em"},
      {"es_ES", "1.25", rem, "1.25rem"},
      {"de_DE", "1.25", point, "1,25 pt"},
  };
  expectShown(cases, false);
}

TEST(UnitFormatters, PairsOfUnits) {
  constexpr AmountCase cases[] = {
      {"en_US", "5.25", feet, "5 ft 3 in"},
      {"en_US", "63", inches, "5 ft 3 in"},
      {"en_US", "5", feet, "5 ft"},
      {"en_US", "3", inches, "3 in"},
      {"en_US", "0.25", feet, "3 in"},
      {"en_US", "5.9055118110236220472440944881889763780", feet, "5 ft 10.866 in"},
      {"de_DE", "5.90551181102362204724409448818897637795", feet, "5 ft 10,866 in"},
      {"fr_FR", "1234.5", feet, "1\u202f234 ft 6 in"},
      {"en_US", "-5.25", feet, "-5 ft -3 in"},
      {"en_US", "-0.25", feet, "-3 in"},
      {"en_US", "5.25", pounds, "5 lb 4 oz"},
      {"en_US", "96", ounces, "6 lb"},
      {"en_US", "4", ounces, "4 oz"},
      // Always three places, whatever is asked of plain numbers.
      {"en_US", "1.10", feet, "1 ft 1.2 in", {.dp = 0}},
      {"en_US", "1.25", feet, "1 ft 3 in", {.minimum = 2}},
      // What rounds to a foot is a foot.
      {"en_US", "5.99999", feet, "6 ft"},
      {"en_US", "-0.99999", feet, "-1 ft"},
      {"en_US", "15.9999", ounces, "1 lb"},
      {"en_US", "0.999", feet, "11.988 in"},
      // No pair of its own.
      {"en_US", "0", feet, "0 ft"},
      {"en_US", "5.25", meters, "5.25 m"},
      {"en_US", "5.25", miles, "5.25 mi"},
      {"en_US", "not a number", feet, "Error: ∞"},
  };
  expectShown(cases, true);
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
