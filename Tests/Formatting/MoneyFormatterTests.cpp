#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/CurrencyUnitResultFormatter.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::contextFor;
using testing::number;
using enum UnitIdentifier;

TCUnit money(std::string_view code) {
  return TCUnit::counted({unitIdentifierNamed("currency" + std::string(code)).value_or(UnitIdentifier::undefined),
                          UnitType::currency,
                          std::string(code),
                          {Decimal(1), Decimal(0)},
                          nullptr});
}

std::string shown(const UnitExpression& amount, const ResultFormatterContext& context) {
  return ModernResultFactory::formattedResultFor(EvaluationResult::unitExpression(amount), context)->stringValue;
}

/// The preferences of money as a row of a table: what it doesn't name keeps its default.
struct MoneySettings {
  int dp = 10;
  bool symbols = true;
  bool rounds = true;
  bool zeros = true;
  bool abbreviates = true;
  int minimum = 0;

  [[nodiscard]] FormattingPreferences preferences() const {
    FormattingPreferences result =
        testing::Settings{.dp = dp, .minimum = minimum, .abbreviates = abbreviates}.preferences();
    result.currencyFormattingPreferences = {symbols, rounds, zeros};
    return result;
  }
};

void readCell(std::string_view text, MoneySettings& settings) {
  testing::eachMember(text, [&settings](std::string_view name, const testing::Cell& value) {
    if (name == "dp") settings.dp = value;
    if (name == "minimum") settings.minimum = value;
    if (name == "symbols") settings.symbols = value;
    if (name == "rounds") settings.rounds = value;
    if (name == "zeros") settings.zeros = value;
    if (name == "abbreviates") settings.abbreviates = value;
  });
}

struct MoneyCase {
  std::string_view locale, value, code, want;
  MoneySettings settings = {};
};

TEST(MoneyFormatter, DecimalsOfACurrency) {
  for (const MoneyCase& c : rowsOf<MoneyCase>("Formatting/MoneyFormatterTests", "DecimalsOfACurrency")) {
    EXPECT_EQ(shown({number(c.value), money(c.code)}, contextFor(c.locale, c.settings.preferences())), c.want)
        << c.locale << ' ' << c.value << ' ' << c.code;
  }
}

TEST(MoneyFormatter, SignsOfALocale) {
  for (const MoneyCase& c : rowsOf<MoneyCase>("Formatting/MoneyFormatterTests", "SignsOfALocale")) {
    EXPECT_EQ(shown({number(c.value), money(c.code)}, contextFor(c.locale)), c.want)
        << c.locale << ' ' << c.value << ' ' << c.code;
  }
}

TEST(MoneyFormatter, SignsStandWhereTheHostWantsThem) {
  using enum UnitSymbolReplacementPosition;
  ResultFormatterContext context = contextFor("en_US");
  context.currencySymbolSettings = CurrencySymbolSettings::manualWith({{"USD", "NULL", before},
                                                                       {"USD", "US$", before},
                                                                       {"USD", "dollars", afterWithSpace},
                                                                       {"EUR", "EU", beforeWithSpace},
                                                                       {"GBP", "£", after},
                                                                       {"PLN", "zł", afterWithSpace},
                                                                       {"JPY", "NULL", before}});
  const auto shownAs = [&context](std::string_view value, std::string_view code) {
    return shown({number(value), money(code)}, context);
  };
  EXPECT_EQ(shownAs("-5", "USD"), "-US$5.00");
  EXPECT_EQ(shownAs("-5", "EUR"), "EU -5.00");
  EXPECT_EQ(shownAs("-5", "GBP"), "-5.00£");
  EXPECT_EQ(shownAs("5", "PLN"), "5.00 zł");
  EXPECT_EQ(shownAs("5", "JPY"), "5 JPY");
  EXPECT_EQ(shownAs("5", "AUD"), "5.00 AUD");

  // Below the stroke the first row counts, whatever it says.
  const auto per = [&context](std::string_view code) {
    return ModernResultFactory::formattedResultFor(EvaluationResult::decimalRate({number("5"), money(code)}), context)
        ->stringValue;
  };
  EXPECT_EQ(per("GBP"), "5/£");
  EXPECT_EQ(per("USD"), "5/NULL");
  EXPECT_EQ(per("AUD"), "5/AUD");
}

TokenListRef listOf(std::vector<Token> tokens) { return std::make_shared<const TokenList>(std::move(tokens)); }

/// "<text> EUR" as the parser leaves it, the number below the amount.
Token typedAmount(std::string text, std::string_view value) {
  Token digits = TokenFactory::numberWith(number(value));
  digits.stringValue = std::move(text);
  const Token whole = TokenFactory::unitExpressionWith(number(value), money("EUR"));
  return Token(whole.type, whole.subType, digits.stringValue + " EUR", {0, 1}, listOf({digits}), whole.metadata);
}

TEST(MoneyFormatter, TheLineMayAskForMoreDecimals) {
  const UnitExpression amount{number("12.5"), money("EUR")};
  const auto places = [&amount](std::string_view locale, const std::vector<Token>& tokens, int dp = 10) {
    FormattingPreferences preferences;
    preferences.dp = dp;
    const TokenList list(tokens);
    return CurrencyUnitResultFormatter::decimalPointsToDisplayFor(&list, amount, preferences, Locale(locale));
  };
  const Token three = typedAmount("1,234", "1.234");
  const Token two = typedAmount("1,25", "1.25");
  EXPECT_EQ(places("de_DE", {three}), 3);
  EXPECT_EQ(places("fr_FR", {two, three, two}), 3);
  EXPECT_EQ(places("de_DE", {two}), 2);
  EXPECT_EQ(places("de_DE", {three, typedAmount("1,2345", "1.2345")}), 2);
  EXPECT_EQ(places("de_DE", {typedAmount("1,000", "1")}), 2);
  EXPECT_EQ(places("de_DE", {three}, 2), 2);
  EXPECT_EQ(places("en_US", {typedAmount("1.234", "1.234")}), 2);
  EXPECT_EQ(places("de_DE", {TokenFactory::unitExpressionWith(number("1.234"), unitOf(liters))}), 2);

  const Token declaration(TokenType::variableDeclaration, "a = 12.5 EUR", {0, 12});
  EXPECT_EQ(places("en_US", {declaration}, 7), 7);
  ResultFormatterContext context = contextFor("en_US");
  context.originalTokenList = listOf({declaration});
  EXPECT_EQ(shown(amount, context), "€12.50");
  EXPECT_EQ(shown({number("12.3456"), money("EUR")}, context), "€12.3456");
}

TEST(MoneyFormatter, WhatIsKeptIsRoundedAsItIsShown) {
  const TokenList line;
  const auto kept = [&line](const EvaluationResult& result, const FormattingPreferences& preferences) {
    return roundResultIfNecessary(line, result, preferences, Locale("en_US")).decimalValue();
  };
  const EvaluationResult dollars = EvaluationResult::unitExpression({number("12.34567"), money("USD")});
  const EvaluationResult yen = EvaluationResult::unitExpression({number("12.5"), money("JPY")});
  const EvaluationResult wage = EvaluationResult::unitRate({number("12.34567"), money("USD"), unitOf(hours)});
  const EvaluationResult price = EvaluationResult::unitRate({number("12.34567"), unitOf(liters), money("USD")});
  const EvaluationResult length = EvaluationResult::unitExpression({number("12.34567"), unitOf(meters)});

  FormattingPreferences preferences;
  EXPECT_EQ(kept(dollars, preferences), number("12.35"));
  EXPECT_EQ(kept(yen, preferences), number("13"));
  EXPECT_EQ(kept(wage, preferences), number("12.35"));
  EXPECT_EQ(kept(price, preferences), number("12.34567"));
  EXPECT_EQ(kept(length, preferences), number("12.34567"));

  preferences.dp = 3;
  preferences.referencesTakeFormattedValue = true;
  EXPECT_EQ(kept(dollars, preferences), number("12.35"));
  EXPECT_EQ(kept(length, preferences), number("12.346"));

  preferences.setCurrencyFormattingDisabled(true);
  EXPECT_EQ(kept(dollars, preferences), number("12.346"));
}

}  // namespace
}  // namespace tavrine
