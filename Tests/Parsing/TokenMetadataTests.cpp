#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Parsing/TokenPrinting.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

Decimal dec(std::string_view text) { return Decimal::parse(text).value_or(Decimal::nan()); }

TCUnit unitNamed(std::string symbol, UnitIdentifier identifier, UnitType type) {
  TCUnit::Record record;
  record.identifier = identifier;
  record.unitType = type;
  record.symbol = std::move(symbol);
  return TCUnit::counted(std::move(record));
}
TCUnit kilometers() { return unitNamed("km", UnitIdentifier::kilometers, UnitType::length); }
TCUnit hours() { return unitNamed("h", UnitIdentifier::hours, UnitType::duration); }

/// Collects what is diagnosed while it lives.
class DiagnosticLines {
 public:
  DiagnosticLines() : before_(setDiagnosticSink([this](std::string_view line) { lines.emplace_back(line); })) {}
  ~DiagnosticLines() { setDiagnosticSink(before_); }
  std::vector<std::string> lines;

 private:
  DiagnosticSink before_;
};

TEST(TokenTests, comparesAndOrders) {
  const Token a(TokenType::number, "1", NSRange{0, 1});
  Token b = a;
  b.subtokens = TokenList::frozen({a});
  b.metadata = std::make_shared<const NumberTokenMetadata>(1);
  EXPECT_EQ(a, b);
  EXPECT_NE(a.hash(), b.hash());
  const Token later(TokenType::number, "1", NSRange{4, 3});
  EXPECT_NE(a, later);
  EXPECT_TRUE(a < later);
  EXPECT_FALSE(later < a);
  EXPECT_FALSE(Token() < later);
  EXPECT_FALSE(later < Token());

  EXPECT_EQ(later.lengthFrom(a), 7u);
  EXPECT_EQ(a.lengthFrom(later), 0u);
  EXPECT_EQ(later.lengthFrom(later), 3u);

  const Token inner = TokenFactory::percentageWith(dec("0.2"));
  Token outer = TokenFactory::subexpressionWith({inner});
  EXPECT_EQ(outer.lastSubTokenOrSelf().stringValue, ")");
  outer.subtokens = TokenList::frozen({a, inner, Token(TokenType::whitespace, " ", NSRange::zero)});
  EXPECT_EQ(outer.lastSubTokenOrSelf().stringValue, "%");
  EXPECT_EQ(&a.lastSubTokenOrSelf(), &a);
}

TEST(TokenValueTests, readsNumbers) {
  struct Row {
    std::string_view name;
    Token token;
    std::string_view value;
    bool has;
  };
  const Row rows[] = {
      {"number", TokenFactory::numberWith(5), "5", true},
      {"thousands", TokenFactory::numberWith(5, "k"), "5000", true},
      {"binary prefix", TokenFactory::numberWith(5, "Gi"), "5000000000", true},
      {"no scalar", TokenFactory::numberWith(5, "x"), "5", true},
      {"percentage", TokenFactory::percentageWith(dec("0.2")), "0.2", true},
      {"fraction", TokenFactory::fractionWith({dec("0.75"), std::nullopt}), "0.75", true},
      {"multiplier", TokenFactory::multiplierWith(2), "2", false},
      {"binary", TokenFactory::binaryWith(5), "5", true},
      {"hex", TokenFactory::hexWith(UINT64_MAX), "18446744073709551615", true},
      {"boolean", TokenFactory::booleanWith(true), "0", true},
      {"unit expression", TokenFactory::unitExpressionWith(3, std::string("k"), kilometers()), "3000", true},
      {"rate", *TokenFactory::converterToRate({7, kilometers(), hours()}).subtokens->last(), "7", true},
      {"subexpression", TokenFactory::subexpressionWith({TokenFactory::numberWith(9)}), "9", false},
      {"timestamp", TokenFactory::timestampWith(60, CalendarEnvironment(Calendar::current())), "60", true},
      {"comment", Token(TokenType::wordComment, "a", NSRange::zero), "0", false},
  };
  const DiagnosticLines quiet;
  for (const Row& row : rows) {
    EXPECT_EQ(row.token.decimalValue(), dec(row.value)) << row.name;
    EXPECT_EQ(row.token.hasDecimalValue(), row.has) << row.name;
    EXPECT_EQ(row.token.number(), row.has ? std::optional(dec(row.value)) : std::nullopt) << row.name;
  }
  EXPECT_EQ(TokenFactory::numberWith(5, "k").unscaledDecimalValue(), 5);
  EXPECT_EQ(TokenFactory::multiplierWith(5).unscaledDecimalValue(), 0);
  EXPECT_EQ(TokenFactory::octalWith(9).octalValue(), 9u);
  EXPECT_EQ(TokenFactory::octalWith(9).hexValue(), std::nullopt);
  EXPECT_EQ(TokenFactory::numberWith(3).percentageValue().decimalValue, 3);
}

TEST(TokenValueTests, saysWhereThereIsNoNumber) {
  const DiagnosticLines diagnostics;
  EXPECT_EQ(Token(TokenType::wordComment, "apples", NSRange{3, 6}).decimalValue(), 0);
  ASSERT_EQ(diagnostics.lines.size(), 1u);
  EXPECT_EQ(diagnostics.lines[0], "Warning: No decimal value for wordComment {3, 6} \"apples\"");
  EXPECT_EQ(TokenFactory::booleanWith(false).decimalValue(), 0);
  EXPECT_EQ(diagnostics.lines.size(), 1u);
}

TEST(TokenValueTests, readsMoments) {
  const auto moment = TokenFactory::numberWith(dec("-1.5")).datestampValue();
  ASSERT_TRUE(moment);
  EXPECT_EQ(moment->date.timeIntervalSince1970(), -1.5);
  EXPECT_EQ(moment->type, DatestampType::unixTimestamp);
  EXPECT_EQ(TokenFactory::numberWith(dec("1e30")).datestampValue(), std::nullopt);
  EXPECT_EQ(TokenFactory::percentageWith(dec("0.2")).datestampValue(), std::nullopt);

  // Of what was written: a time of day tells no year. The clocks are those of the date, not of the reader.
  const auto zone = TimeZone::withSecondsFromGMT(2 * 3600);
  ASSERT_TRUE(zone);
  const CalendarEnvironment environment(Calendar::current());
  const auto componentsAs = [&](DatestampType type) {
    return TokenFactory::datestampWith({Date(1'709'596'800), type, *zone}, environment).dateComponentsValue();
  };
  EXPECT_EQ(componentsAs(DatestampType::dayMonthYear), (DateComponents{.year = 2024, .month = 3, .day = 5}));
  EXPECT_EQ(componentsAs(DatestampType::clockTime), (DateComponents{.hour = 2, .minute = 0}));
  EXPECT_EQ(TokenFactory::numberWith(5).dateComponentsValue(), std::nullopt);
}

TEST(TokenValueTests, expandsVariables) {
  Variable undefined("a", "5", Variable::VariableType::local);
  EXPECT_EQ(TokenFactory::variable(undefined).expandedVariable(), std::nullopt);
  EXPECT_EQ(TokenFactory::variable(undefined).variable()->name, "a");
  Variable tax = undefined;
  tax.definition = std::make_shared<const EvaluationResult>(EvaluationResult::percentage({dec("0.2")}));
  const Token token = TokenFactory::variable(tax);
  EXPECT_EQ(token.expandedVariable()->stringValue, "20%");
  EXPECT_EQ(TokenFactory::numberWith(1).expandedVariable(), std::nullopt);

  // What the variable holds counts as being in the line.
  TokenList list;
  list.append(TokenFactory::variable(undefined));
  EXPECT_FALSE(list.typePrecheck(TokenType::percentage));
  // ... but not what a name held before it is declared anew.
  list.append(Token(TokenType::declaredVariable, TokenSubType::notSpecified, "a", NSRange::zero, nullptr,
                    std::make_shared<const VariableTokenMetadata>(tax)));
  EXPECT_FALSE(list.typePrecheck(TokenType::percentage));
  list.append(token);
  EXPECT_TRUE(list.typePrecheck(TokenType::percentage));

  // References to lines stay alive in comments; other variables don't.
  TokenList references(
      {TokenFactory::variable(tax),
       TokenFactory::variable(Variable("\uE000", std::nullopt, Variable::VariableType::lineReference))});
  references.deidentify(references[0]);
  references.deidentify(references[1]);
  EXPECT_TRUE(references[0].is(TokenType::wordComment));
  EXPECT_TRUE(references[1].is(TokenType::variable));
}

TEST(TokenValueTests, negates) {
  const auto negatedNumber = TokenFactory::numberWith(5, "k").negated();
  EXPECT_EQ(negatedNumber.decimalValue(), -5000);
  EXPECT_EQ(negatedNumber.stringValue, "-5k");
  EXPECT_EQ(TokenFactory::fractionWith({dec("0.5"), std::nullopt}).negated().decimalValue(), dec("-0.5"));
  EXPECT_EQ(TokenFactory::percentageWith(dec("0.2")).negated().stringValue, "-20%");
  EXPECT_EQ(TokenFactory::booleanWith(true).negated().booleanValue(), false);
  EXPECT_EQ(TokenFactory::unitExpressionWith(3, kilometers()).negated().unitExpressionValue(),
            (UnitExpression{-3, kilometers(), false}));
  const auto rate = [](auto metadata) {
    return TokenFactory::rateWith(std::make_shared<decltype(metadata)>(metadata));
  };
  EXPECT_EQ(rate(UnitRateTokenMetadata({5, kilometers(), hours()})).negated().unitRateValue()->value, -5);
  EXPECT_EQ(rate(DecimalRateTokenMetadata({5, hours()})).negated().decimalRateValue()->value, 5);
  const Token comment(TokenType::wordComment, "a", NSRange{1, 1});
  EXPECT_EQ(comment.negated(), comment);
}

TEST(TokenValueTests, changesTheLocaleOfNumbers) {
  struct Row {
    std::string_view text, from, to;
    std::optional<std::string> want;
  };
  for (const Row& row : rowsOf<Row>("Parsing/TokenMetadataTests", "changesTheLocaleOfNumbers")) {
    Token token(TokenType::number, TokenSubType::positiveNumber, std::string(row.text), NSRange{2, 3}, nullptr,
                std::make_shared<const NumberTokenMetadata>(1));
    const auto converted = token.convertedFrom(Locale(row.from), Locale(row.to));
    EXPECT_EQ(converted ? std::optional(converted->stringValue) : std::nullopt, row.want) << row.text;
  }
  const Token word(TokenType::number, TokenSubType::positiveNumber, "5", NSRange{0, 1}, nullptr,
                   std::make_shared<const NumberTokenMetadata>(5, std::nullopt, true));
  EXPECT_EQ(word.convertedFrom(Locale("en_US"), Locale("de_DE")), std::nullopt);
}

}  // namespace
}  // namespace tavrine
