#include <gtest/gtest.h>

#include <atomic>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/DefinedVariablesList.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using VariableType = Variable::VariableType;

class CalculatorTest : public ::testing::Test {
 protected:
  static EngineCustomization declaring() {
    EngineCustomization result = EngineCustomization::standardWith(Locale("en_US"));
    result.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
    return result;
  }

  static std::shared_ptr<VariableList> variables(std::string name, std::string value) {
    auto list = std::make_shared<VariableList>();
    list->setVariable(Variable(std::move(name), std::move(value), VariableType::global));
    return list;
  }

  foundation::ScopedEnvironment world_{testing::worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(CalculatorTest, TheAnswerKeepsTheLine) {
  Calculator calculator(EngineCustomization::standard());
  const CalculationResult result = calculator.calculate("1 + 2");
  EXPECT_EQ(result.stringValue, "3");
  EXPECT_EQ(result.evaluationResult, EvaluationResult::decimal(Decimal(3)));
  ASSERT_NE(result.parsedExpression, nullptr);
  EXPECT_EQ(result.parsedExpression->rebuiltExpression(), "1 + 2");
  EXPECT_FALSE(result.isEmptyResult());
}

/// A second later each time that it is asked.
class TickingClock final : public foundation::Clock {
 public:
  [[nodiscard]] Date now() const override { return Date(static_cast<double>(++seconds_)); }

 private:
  mutable std::atomic<int> seconds_ = 0;
};

TEST_F(CalculatorTest, ALineIsCalculatedAtOneMoment) {
  foundation::Environment::Parts parts = foundation::Environment::current().parts();
  parts.clock = std::make_shared<TickingClock>();
  const foundation::ScopedEnvironment world{foundation::Environment(parts)};
  Calculator calculator(EngineCustomization::standard());
  EXPECT_EQ(calculator.calculate("now - now").stringValue, "0 s");
  EXPECT_EQ(calculator.calculate("time in Tokyo - time in London").stringValue, "0 s");
  const Date before = Date::now();
  EXPECT_NE(before, Date::now()) << "between lines time goes on";
}

TEST_F(CalculatorTest, WordsAndErrorsAreEmptyOrNot) {
  Calculator calculator(EngineCustomization::standard());
  EXPECT_TRUE(calculator.calculate("").isEmptyResult());
  EXPECT_TRUE(calculator.calculate("hello world").isEmptyResult());
  EXPECT_TRUE(calculator.calculate("+").isEmptyResult());
  EXPECT_FALSE(calculator.calculate("1 / 0").isEmptyResult());
}

TEST_F(CalculatorTest, PreferencesShapeTheTextAndOnRequestTheValue) {
  Calculator calculator(EngineCustomization::standard());
  calculator.formattingPreferences.emplace().dp = 2;
  const CalculationResult shown = calculator.calculate("1/3");
  EXPECT_EQ(shown.stringValue, "0.33");
  EXPECT_NE(shown.evaluationResult.decimalValue(), Decimal::parse("0.33"));

  calculator.formattingPreferences->referencesTakeFormattedValue = true;
  EXPECT_EQ(calculator.calculate("1/3").evaluationResult.decimalValue(), Decimal::parse("0.33"));
}

TEST_F(CalculatorTest, PassedVariablesAreCalculatedOnceAndKept) {
  Calculator calculator(EngineCustomization::standard());
  const std::shared_ptr<VariableList> list = variables("rent", "10 * 50");
  EXPECT_EQ(calculator.calculate("rent + 1", list).stringValue, "501");
  ASSERT_NE(list->find("rent"), nullptr);
  ASSERT_NE(list->find("rent")->definition, nullptr);
  EXPECT_EQ(list->find("rent")->definition->decimalValue(), Decimal(500));
}

TEST_F(CalculatorTest, VariablesStandInTheGapsOfPhrases) {
  Calculator calculator(EngineCustomization::standard());
  const auto list = variables("price", "$30 + $20");
  list->setVariable(Variable("n", "25", VariableType::global));
  list->setVariable(Variable("cut", "10%", VariableType::global));
  Variable rent("monthly rent", "800", VariableType::global);
  rent.isPhrase = true;
  list->setVariable(rent);
  for (const auto& [line, want] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
           {"20% of price", "$10.00"},
           {"half of (price + $10)", "$30.00"},
           {"n is what % of 200", "12.5%"},
           {"half of 20% of price", "$5.00"},
           {"20% off monthly rent", "640"},
           {"half of cut", "5%"},
           {"cut of 50", "5"},
           {"cut off price", "$45.00"},
       }) {
    EXPECT_EQ(calculator.calculate(line, list).stringValue, want) << line;
  }
}

TEST_F(CalculatorTest, VariablesThatNameThemselvesEnd) {
  Calculator calculator(EngineCustomization::standard());
  const auto list = variables("a", "b + 1");
  list->setVariable(Variable("b", "a + 1", VariableType::global));
  list->setVariable(Variable("c", "c + 1", VariableType::global));
  EXPECT_EQ(calculator.calculate("a + b + c", list).stringValue, "3");
}

TEST_F(CalculatorTest, DefinedVariablesKnowTheirValuesAndWhetherTheyArePhrases) {
  const auto given = [](std::string name, std::optional<std::string> value = std::nullopt) {
    return Variable(std::move(name), std::move(value), VariableType::global);
  };
  Variable known = given("a b", "1");
  known.isPhrase = false;
  const auto list = makeDefinedVariablesList({given("größe", "2 * 3"), given("Capital", "größe + 1"),
                                              given("monthly rent", "10 * 50"), given("rent2.", "4"), given("bare"),
                                              std::move(known)});
  for (const auto& [name, isPhrase] : std::initializer_list<std::pair<std::string_view, bool>>{
           {"größe", false}, {"Capital", false}, {"monthly rent", true}, {"rent2.", true}, {"a b", false}}) {
    ASSERT_NE(list->find(name), nullptr) << name;
    EXPECT_EQ(list->find(name)->isPhrase, isPhrase) << name;
    EXPECT_NE(list->find(name)->definition, nullptr) << name;
  }
  EXPECT_EQ(list->find("bare")->definition, nullptr);

  Calculator calculator(EngineCustomization::standard());
  EXPECT_EQ(calculator.calculate("Monthly rent + größe", list).stringValue, "506");
  // Each value is calculated by itself.
  EXPECT_EQ(calculator.calculate("Capital * 2", list).stringValue, "2");
}

// A calculator remembers by the variable, and shows the value.
TEST_F(CalculatorTest, ADeclarationComesToAVariableAndIsShownAsItsValue) {
  using Assignment = VariableDeclarationTokenMetadata::VariableAssignmentOperatorType;
  const EvaluationController controller(declaring(), nullptr);
  const auto list = std::make_shared<const TokenList>(std::vector<Token>{
      Token(TokenType::variableDeclaration, TokenSubType::notSpecified, "rent=5", {0, 6},
            TokenList::frozen({Token(TokenType::declaredVariable, "rent", {0, 4}),
                               Token(TokenType::variableAssignmentOperator, "=", {4, 1}), TokenFactory::numberWith(5)}),
            std::make_shared<const VariableDeclarationTokenMetadata>(Assignment::vanilla, "rent", "5", true))});

  const EvaluationResult result = controller.evaluationResultFor(*list, std::nullopt);
  ASSERT_NE(result.variableValue(), nullptr);
  EXPECT_EQ(result.variableValue()->name, "rent");
  const CalculationResult answer = controller.resultFor(list, std::nullopt);
  EXPECT_EQ(answer.stringValue, "5");
  EXPECT_EQ(answer.evaluationResult, EvaluationResult::decimal(Decimal(5)));
}

TEST_F(CalculatorTest, AnotherCalculatorThanTheOneThatStandsByDefault) {
  EXPECT_NE(Calculator::basic(), Calculator::basic());
  EXPECT_EQ(Calculator::basic()->calculate("2 * 3").stringValue, "6");
}

TEST_F(CalculatorTest, ABackgroundCalculationTakesTheWorldAlong) {
  Calculator calculator(EngineCustomization::standardWith(Locale("de_DE")));
  EXPECT_EQ(calculator.calculateInBackground("1000,5 + 1").get().stringValue, "1.001,5");
  EXPECT_EQ(calculator.calculateInBackground("\xFF 1 + 1").get().stringValue, "2");
}

TEST_F(CalculatorTest, ADateIsFoundOnlyWhereThereIsOne) {
  Calculator calculator(EngineCustomization::standard());
  EXPECT_FALSE(calculator.dateFor("3 + 4").has_value());
}

// Runs under the thread sanitizer: parser, content cache, queues and formatters serve all threads of a calculator.
TEST_F(CalculatorTest, ThreadsShareACalculator) {
  Calculator calculator(declaring());
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&calculator, i] {
      for (int n = 0; n < 50; ++n) {
        const std::string line = std::to_string(n) + " * " + std::to_string(i) + " + apples";
        EXPECT_EQ(calculator.calculate(line).stringValue, std::to_string(n * i)) << line;
        calculator.calculate("v" + std::to_string(i) + " = " + std::to_string(n));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace tavrine
