#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"

namespace tavrine {
namespace {

using testing::contextFor;
using testing::number;

EvaluationResult variableOf(std::string name, std::shared_ptr<const EvaluationResult> definition) {
  Variable variable(std::move(name), std::nullopt, Variable::VariableType::local);
  variable.definition = std::move(definition);
  return EvaluationResult::variable(std::move(variable));
}

EvaluationResult variableOf(std::string name, EvaluationResult definition) {
  return variableOf(std::move(name), std::make_shared<const EvaluationResult>(std::move(definition)));
}

TEST(ResultDispatch, ShowsAndGivesBackTheValueOfAVariable) {
  const ResultFormatterContext context = contextFor("de_DE");
  const EvaluationResult value = EvaluationResult::decimal(number("1234.5"));

  const auto direct = ModernResultFactory::formattedResultFor(variableOf("a", value), context);
  ASSERT_TRUE(direct.has_value());
  EXPECT_EQ(direct->stringValue, "1.234,5");
  EXPECT_EQ(direct->evaluationResult, value);

  // However many names stand between.
  EvaluationResult chain = value;
  for (int i = 0; i < 100; ++i) chain = variableOf("b", std::move(chain));
  const auto chained = ModernResultFactory::formattedResultFor(chain, context);
  ASSERT_TRUE(chained.has_value());
  EXPECT_EQ(chained->evaluationResult, value);

  const EvaluationResult empty = variableOf("c", std::shared_ptr<const EvaluationResult>());
  EXPECT_FALSE(ModernResultFactory::formattedResultFor(empty, context).has_value());
}

TEST(ResultDispatch, GivesNoTextForWhatIsNeverShown) {
  EXPECT_FALSE(ModernResultFactory::formattedResultFor(EvaluationResult::none(), contextFor("en_US")).has_value());
}

TEST(CalculationResults, TellTheirState) {
  struct Case {
    std::string_view name;
    EvaluationResult result;
    std::string text;
    bool isPending, isFailed, isEmpty;
  };
  const Case cases[] = {
      {"none", EvaluationResult::none(), "", false, false, true},
      {"none with a text", EvaluationResult::none(), "Total", false, false, false},
      {"number", EvaluationResult::decimal(Decimal(3)), "3", false, false, false},
      {"silent error", EvaluationResult::error(EvaluationError::SilentError), "anything", false, false, true},
      {"other error without text", EvaluationResult::error(EvaluationError::Other), "", false, false, false},
      {"pending", EvaluationResult::pending(), "pending…", true, false, false},
      {"failed", EvaluationResult::failed(), "⚠️", false, true, false},
      {"variable, pending", variableOf("a", EvaluationResult::pending()), "", true, false, false},
      {"variable, failed", variableOf("a", EvaluationResult::failed()), "", false, true, false},
      {"variable, none", variableOf("a", EvaluationResult::none()), "", false, false, true},
      {"variable, number", variableOf("a", EvaluationResult::decimal(Decimal(3))), "", false, false, false},
      {"variable without a value", variableOf("a", std::shared_ptr<const EvaluationResult>()), "", false, false, false},
  };
  for (const Case& c : cases) {
    const CalculationResult result{c.text, c.result, nullptr};
    EXPECT_EQ(result.isPendingResult(), c.isPending) << c.name;
    EXPECT_EQ(result.isFailedResult(), c.isFailed) << c.name;
    EXPECT_EQ(result.isEmptyResult(), c.isEmpty) << c.name;
  }
  EXPECT_TRUE(EmptyResult().isEmptyResult());
}

TEST(CalculationResults, AreEqualByTextValueAndTokens) {
  const auto result = [](std::string text, int value, TokenListRef list) {
    return CalculationResult{std::move(text), EvaluationResult::decimal(Decimal(value)), std::move(list)};
  };
  const auto listOf = [](std::string text, TokenListRef subtokens) {
    return TokenList::frozen(
        {Token(TokenType::number, TokenSubType::positiveNumber, std::move(text), NSRange{0, 1}, std::move(subtokens))});
  };
  const CalculationResult three = result("3", 3, listOf("3", nullptr));
  const CalculationResult madeApart = result("3", 3, listOf("3", listOf("3", nullptr)));
  EXPECT_EQ(three, madeApart);
  EXPECT_EQ(three.hash(), madeApart.hash());
  for (const CalculationResult& other : {result("3.0", 3, listOf("3", nullptr)), result("3", 4, listOf("3", nullptr)),
                                         result("3", 3, listOf("4", nullptr)), result("3", 3, nullptr)}) {
    EXPECT_FALSE(three == other);
    EXPECT_NE(three.hash(), other.hash());
  }
  EXPECT_EQ(EmptyResult(), CalculationResult());
}

}  // namespace
}  // namespace tavrine
