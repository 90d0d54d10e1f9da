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

}  // namespace
}  // namespace tavrine::testing
