#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"
#include "Tests/Support/Table.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using testing::rowsOf;

class HostFunctionTest : public ::testing::Test {
 protected:
  static EngineCustomization with(CustomFunction::Fields fields) {
    EngineCustomization customization = EngineCustomization::standardWith(Locale("en_US"));
    customization.setCustomFunctions({CustomFunction(std::move(fields))});
    return customization;
  }

  static EvaluationResult sumOf(const std::vector<EvaluationResult>& arguments) {
    Decimal sum;
    for (const EvaluationResult& argument : arguments) sum = sum + argument.decimalValue().value_or(Decimal());
    return EvaluationResult::decimal(sum);
  }

  foundation::ScopedEnvironment world_{testing::worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(HostFunctionTest, PhrasesAliasesAndTypesOfTheirOwn) {
  const CustomType planet("__planet", {"Mars", "planet nine"}, std::string("a planet"));
  CustomFunction::Fields fields;
  fields.prototypeExpression = "zorb 10 on __planet";
  fields.aliases = {"zorb of __planet with 10"};
  fields.customTypes = {planet};
  fields.handler = sumOf;
  Calculator calculator(with(fields));
  EXPECT_EQ(calculator.calculate("zorb 7 on Mars").stringValue, "7");
  EXPECT_EQ(calculator.calculate("please ZORB 7 on mars").stringValue, "7");
  EXPECT_EQ(calculator.calculate("zorb of Mars with 8").stringValue, "8");
  EXPECT_EQ(calculator.calculate("zorb 7 on Mars + 1").stringValue, "8");
  EXPECT_EQ(calculator.calculate("zorb (3 + 4) on planet nine").stringValue, "7");
}

TEST_F(HostFunctionTest, PrerequisiteTypesSpareOtherLines) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = "zorb 10";
  fields.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::decimal(Decimal(77)); };
  struct Row {
    TokenTypeSet types;
    std::string_view line;
    std::string_view answer;
  };
  for (const Row& row : {
           Row{{}, "zorb 5", "77"},
           Row{{TokenType::percentage}, "zorb 5", "5"},
           Row{{TokenType::percentage}, "zorb 5%", "77"},
           Row{{TokenType::percentage}, "zorb 5 + 20%", "92.4"},
           Row{{TokenType::percentage, TokenType::unitExpression}, "zorb 5%", "5%"},
           Row{{TokenType::percentage, TokenType::unitExpression}, "5% of zorb 5 km", "3.85"},
       }) {
    fields.prerequisiteTypes = std::make_shared<const TokenTypeSet>(row.types);
    EXPECT_EQ(Calculator(with(fields)).calculate(row.line).stringValue, row.answer) << row.line;
  }
}

TEST_F(HostFunctionTest, BackgroundBlocks) {
  const auto answering = [](CustomFunction::Handler atOnce, CustomFunction::BackgroundHandler later) {
    CustomFunction::Fields fields;
    fields.prototypeExpression = "zorb 10";
    fields.handler = std::move(atOnce);
    fields.backgroundHandler = std::move(later);
    return std::make_unique<Calculator>(with(std::move(fields)));
  };
  const auto leave = [](const std::vector<EvaluationResult>&) { return EvaluationResult::pending(); };
  const auto add = [](const std::vector<EvaluationResult>& arguments, std::stop_token) { return sumOf(arguments); };
  const auto fail = [](const std::vector<EvaluationResult>&, std::stop_token) -> EvaluationResult {
    throw std::runtime_error("no connection");
  };

  const auto patient = answering(leave, add);
  EXPECT_TRUE(patient->calculate("zorb 7").isPendingResult());
  EXPECT_EQ(patient->calculateInBackground("zorb 7").get().stringValue, "7");
  EXPECT_EQ(patient->calculateInBackground("zorb 7 * 2").get().stringValue, "14");
  // One that answers at once needs no other.
  EXPECT_EQ(answering(sumOf, fail)->calculateInBackground("zorb 7").get().stringValue, "7");
  EXPECT_TRUE(answering(leave, fail)->calculateInBackground("zorb 7").get().isFailedResult());
  EXPECT_TRUE(answering(leave, {})->calculateInBackground("zorb 7").get().isPendingResult());
}

TEST_F(HostFunctionTest, WhatNeedsACallWaitsForIt) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = "zorb 10";
  fields.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::pending(); };
  fields.backgroundHandler = [](const std::vector<EvaluationResult>& arguments, std::stop_token) {
    return arguments.empty() ? EvaluationResult::failed() : sumOf(arguments);
  };
  Calculator calculator(with(fields));
  fields.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::failed(); };
  Calculator failing(with(fields));
  struct Row {
    std::string line;
    std::string_view answer;
  };
  for (const Row& row : rowsOf<Row>("Engine/HostFunctionTests", "WhatNeedsACallWaitsForIt")) {
    EXPECT_TRUE(calculator.calculate(row.line).isPendingResult()) << row.line;
    EXPECT_EQ(calculator.calculateInBackground(row.line).get().stringValue, row.answer) << row.line;
    EXPECT_TRUE(failing.calculate(row.line).isFailedResult()) << row.line;
  }
}

TEST_F(HostFunctionTest, BracketsAtGapsHoldPhrases) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = "zorb 10 and 10";
  fields.handler = sumOf;
  Calculator calculator(with(fields));
  EXPECT_EQ(calculator.calculate("zorb (half of 10) and (half of 20)").stringValue, "15");
  EXPECT_EQ(calculator.calculate("zorb (zorb 1 and 2) and 3").stringValue, "6");
  EXPECT_EQ(calculator.calculate("zorb sqrt(half of 8) and 3").stringValue, "5");
}

TEST_F(HostFunctionTest, ParametersOfPhrases) {
  const EngineCustomization customization = EngineCustomization::standardWith(Locale("en_US"));
  const auto numbersIn = [&](std::string_view line, std::vector<std::string> phrases) {
    std::string text;
    const auto found = Calculator::functionParametersIn(line, std::move(phrases), customization);
    if (!found) return std::string("absent");
    for (const EvaluationResult& result : *found) {
      text += result.decimalValue().value_or(Decimal(-1)).description() + ";";
    }
    return text;
  };
  const std::vector<std::string> kMoves{"move __length_expression to __length_expression", "move by 10"};
  EXPECT_EQ(numbersIn("move 5 km to 7 km", kMoves), "5;7;");
  EXPECT_EQ(numbersIn("now move by 3", kMoves), "3;");
  EXPECT_EQ(numbersIn("move along", kMoves), "absent");
  EXPECT_EQ(numbersIn("half of 3", kMoves), "absent");
  EXPECT_EQ(numbersIn("move by 3", {}), "absent");
  // Built-in phrases go first, unless there is more to the host's.
  EXPECT_EQ(numbersIn("zorb half of 3", {"zorb half of 10"}), "3;");
  EXPECT_EQ(numbersIn("area of 5 m by 3 m", {"area of __length_expression by __length_expression"}), "5;3;");
  EXPECT_EQ(numbersIn("stand still 5", {"stand still"}), "");
  EXPECT_EQ(numbersIn("now please stand still", {"stand still"}), "");
}

}  // namespace
}  // namespace tavrine
