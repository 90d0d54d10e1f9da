#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/PostEvaluation/AmbiguousAnswerDeterminer.h"
#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"
#include "TavrineCore/Evaluation/TokenListEvaluator.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"
#include "Tests/Evaluation/UnitTokens.h"

namespace tavrine::testing {
namespace {

Token amount(int value, UnitType type) {
  TCUnit::Record record;
  record.unitType = type;
  record.symbol = std::string(toString(type));
  return TokenFactory::unitExpressionWith(Decimal(value), TCUnit::counted(std::move(record)));
}

TEST(PostEvaluationTests, OneAnswerOutOfSeveral) {
  const Token number = TokenFactory::numberWith(Decimal(500));
  const Token length = amount(3, UnitType::length);
  const Token longer = amount(4, UnitType::length);
  const Token money = amount(20, UnitType::currency);
  const Token word(TokenType::wordComment, "rent", NSRange::zero);
  struct {
    std::vector<Token> line;
    int want;
  } const rows[] = {
      {{word, number, length, money}, 20}, {{money, length, number}, 20}, {{length, number}, 3},
      {{length, word, longer}, 4},         {{number, word}, 500},
  };
  for (const auto& row : rows) {
    const TokenList list(row.line);
    EXPECT_EQ(AmbiguousAnswerDeterminer(list).finalValue().decimalValue(), Decimal(row.want)) << describe(list);
  }
  EXPECT_EQ(AmbiguousAnswerDeterminer(TokenList({word})).finalValue(), Token());
}

TEST(PostEvaluationTests, LoneValuesAreConverted) {
  const TokenListEvaluator evaluator(EngineCustomization::basic());
  FormattingPreferences automatic;
  automatic.resultConversionBehavior = ResultConversionBehavior::automatic();
  FormattingPreferences custom;
  // A rule without a conversion passes to the next one.
  custom.resultConversionBehavior = ResultConversionBehavior::customRules(
      {ResultConversionRule::tokenOf(TokenType::number, TokenType::wordComment),
       ResultConversionRule::tokenOf(TokenType::percentage, TokenType::number),
       ResultConversionRule::tokenOf(TokenType::number, TokenType::hexadecimalNumber)});
  const FormattingPreferences none;
  struct {
    std::string_view line;
    const FormattingPreferences& preferences;
    std::string_view want;
  } const rows[] = {
      {"0xFF", automatic, "255"},         {"0o17", automatic, "15"},  {"0b11", automatic, "3"},
      {"0xFF", none, "hex 255"},          {"255", custom, "hex 255"}, {"20%", custom, "0.2"},
      {"0xFF + 1", automatic, "hex 256"}, {"5", automatic, "5"},      {"words", automatic, "none"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(describeResult(evaluator.evaluate(tokensOf(row.line), &row.preferences)), row.want) << row.line;
  }
}

TEST(PostEvaluationTests, LoneQuantitiesAreConverted) {
  const TokenListEvaluator evaluator(EngineCustomization::basic());
  FormattingPreferences automatic;
  automatic.resultConversionBehavior = ResultConversionBehavior::automatic();
  FormattingPreferences custom;
  custom.resultConversionBehavior = ResultConversionBehavior::customRules(
      {ResultConversionRule::unitExpressionWith(UnitIdentifier::meters, UnitIdentifier::centimeters),
       ResultConversionRule::unitExpressionOf(UnitType::length, UnitIdentifier::kilometers),
       ResultConversionRule::convertToFeetAndInchesUnitExpressionWith(UnitIdentifier::kilometers)});
  const FormattingPreferences none;
  struct {
    std::string_view line;
    const FormattingPreferences& preferences;
    std::string_view want;
  } const rows[] = {
      {"2.54 centimeters", automatic, "1 inches"},
      {"2 feet", automatic, "0.6096 meters"},
      {"300 kelvin", automatic, "26.85 celsius"},
      // Feet and inches come before yards.
      {"3.048 meters", automatic, "10 feet (compound)"},
      {"5 kilometers", none, "5 kilometers"},
      {"5 meters", custom, "500 centimeters"},
      {"500 centimeters", custom, "0.005 kilometers"},
      {"0.003048 kilometers", custom, "10 feet (compound)"},
      {"5 kilograms", custom, "5 kilograms"},
  };
  for (const auto& row : rows) {
    const TokenList line({valueToken(row.line)});
    EXPECT_EQ(describeValue(evaluator.evaluate(line, &row.preferences).tokenized()), row.want) << row.line;
  }
}

}  // namespace
}  // namespace tavrine::testing
