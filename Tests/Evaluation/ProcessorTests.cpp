#include <gtest/gtest.h>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Evaluation/TokenListEvaluator.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view want;
};

TEST(ProcessorTests, Answers) {
  for (const Case& c : rowsOf<Case>("Evaluation/ProcessorTests", "Answers"))
    EXPECT_EQ(describeResult(evaluated(c.line)), c.want) << c.line;
}

TEST(ProcessorTests, Rewritings) {
  for (const Case& c : rowsOf<Case>("Evaluation/ProcessorTests", "Rewritings"))
    EXPECT_EQ(rewritten(c.line), c.want) << c.line;
}

// A line that needs no rewriting is evaluated as it was parsed, without a copy; one that does is left alone too.
TEST(ProcessorTests, TheListStaysAsItIs) {
  const EngineCustomization customization = EngineCustomization::basic();
  for (const std::string_view line : {"1 + 2", "(1 + 2) * 3 - 20%", "1 < 2 and 3 > 2", "5 mod 3"}) {
    const TokenList list = tokensOf(line);
    EditableTokenList editable(list);
    preprocess(editable, customization);
    EXPECT_FALSE(editable.isEdited()) << line;
  }
  const TokenList list = tokensOf("3 * -2 ^ 2 (3)");
  const std::string before = describe(list);
  (void)TokenListEvaluator(customization).evaluate(list);
  EXPECT_EQ(describe(list), before);
}

TEST(ProcessorTests, BitwiseOperatorsCanBeOff) {
  EngineCustomization customization = EngineCustomization::basic();
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.bitwiseOperators = false; });
  EXPECT_EQ(describeResult(TokenListEvaluator(customization).evaluate(tokensOf("12 & 10"))), "10");
}

TEST(ProcessorTests, WithoutTheFlagALoneNumberIsNoAnswer) {
  EngineCustomization customization = EngineCustomization::basic();
  customization.changeFeatureFlags(
      [](EngineFeatureFlags& flags) { flags.inAmbiguityPreferSomethingToNothing = false; });
  EXPECT_EQ(describeResult(TokenListEvaluator(customization).evaluate(tokensOf("5"))), "none");
  EXPECT_EQ(describeResult(TokenListEvaluator(customization).evaluate(tokensOf("5 + 1"))), "6");
}

TEST(ProcessorTests, Variables) {
  const auto variableOf = [](const EvaluationResult& definition) {
    Variable variable("x", std::nullopt, Variable::VariableType::local);
    variable.definition = std::make_shared<const EvaluationResult>(definition);
    return TokenFactory::variable(variable);
  };
  const auto evaluatedWith = [](std::string_view before, const Token& variable, std::string_view after) {
    TokenList list = tokensOf(before);
    list.append(variable);
    for (const Token& token : tokensOf(after)) list.append(token);
    return describeResult(TokenListEvaluator(EngineCustomization::basic()).evaluate(list));
  };
  const Token minusTwo = variableOf(EvaluationResult::decimal(Decimal(-2)));
  EXPECT_EQ(evaluatedWith("", minusTwo, " ^ 2"), "4");
  EXPECT_EQ(evaluatedWith("12 / 3", minusTwo, ""), "-2");
  EXPECT_EQ(evaluatedWith("3 - ", minusTwo, ""), "5");
  EXPECT_EQ(evaluatedWith("", minusTwo, " 5"), "-10");
  // An error doesn't take the line with it.
  EXPECT_EQ(evaluatedWith("3 + ", variableOf(EvaluationResult::error(EvaluationError::DivideByZero)), ""), "3");
}

}  // namespace
}  // namespace tavrine::testing
