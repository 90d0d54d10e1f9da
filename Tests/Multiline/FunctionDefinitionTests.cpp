#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/SingleCharacterUIDGenerator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Multiline/Utilities/LineFunctionDefinition.h"
#include "TavrineCore/Parsing/Primitives/SubsheetList.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using Utility = CustomFunctionDefinitionUtility;
using Lines = std::vector<std::string>;

/// Lines stand for a sheet, which nobody but this source of sheets looks into.
std::shared_ptr<const LineSheet> sheetOf(Lines lines) {
  const auto held = std::make_shared<const Lines>(std::move(lines));
  return {held, reinterpret_cast<const LineSheet*>(held.get())};
}
const Lines& linesOf(const LineSheet& sheet) { return reinterpret_cast<const Lines&>(sheet); }

EngineCustomization customization() {
  EngineCustomization result = EngineCustomization::standardWith(Locale("en_US"));
  result.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
  return result;
}

std::optional<CalculationResult> lastResult(const Lines& lines, const EngineCustomization& customization,
                                            const std::shared_ptr<VariableList>& variables) {
  Calculator calculator(customization);
  std::optional<CalculationResult> last;
  for (const std::string& line : lines) {
    const CalculationResult result = calculator.calculate(line, variables);
    if (!result.isEmptyResult()) last = result;
  }
  return last;
}

class Bodies final : public FunctionBodies {
 public:
  std::shared_ptr<const LineSheet> sheetWith(std::string_view text) const override {
    return sheetOf({std::string(text)});
  }
  std::optional<CalculationResult> lastResultOf(const LineSheet& body, const EngineCustomization& customization,
                                                std::shared_ptr<const VariableList> variables) const override {
    return lastResult(linesOf(body), customization, variables->copy());
  }
};

Utility utility() { return {customization(), std::make_shared<const Bodies>()}; }

/// One subsheet, named by the first private-use character.
class OneSubsheet final : public SubsheetList {
 public:
  explicit OneSubsheet(Lines lines) : lines_(std::move(lines)) {}
  bool knows(std::string_view identifier) const override { return identifier == "\uE000"; }
  std::optional<Subsheet> evaluatedSubsheetWith(const LineReference& identifier,
                                                const VariableList& variables) override {
    if (!knows(identifier.UID)) return std::nullopt;
    Subsheet subsheet;
    subsheet.lineSheet = sheetOf(lines_);
    subsheet.identifier = identifier;
    if (const auto result = lastResult(lines_, customization(), variables.copy())) {
      subsheet.result = std::make_shared<const CalculationResult>(*result);
    }
    return subsheet;
  }
  std::optional<Subsheet> evaluateSubsheetInBackground(const LineReference&, const VariableList&,
                                                       std::stop_token) override {
    return std::nullopt;
  }

 private:
  Lines lines_;
};

class FunctionDefinitionTest : public ::testing::Test {
 protected:
  foundation::ScopedEnvironment world_{testing::worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

TEST_F(FunctionDefinitionTest, PhrasesAndParametersOfDefinitions) {
  struct Row {
    std::string_view definition;
    std::string_view prototype;  // "" for no definition
    std::string_view parameters = "";
  };
  for (const Row& row : std::vector<Row>{
           {"area of 5 m by 3 m", "area of __length_expression by __length_expression", "5 m;3 m;"},
           {"  tip on $50 ", "tip on __currency_expression", "$50;"},
           {"tip on 50 dollars", "tip on __currency_expression", "50 dollars;"},
           {"tip on 50 CHF for 3 people", "tip on __currency_expression for 3 people", "50 CHF;3;"},
           {"stretch 5 km to 7 by 20%", "stretch __length_expression to 7 by __percentage", "5 km;7;20%;"},
           {"drive 5 km in 3 hours", "drive __length_expression in __timespan", "5 km;3 hours;"},
           {"zorb from 25 December 2026 to 3 weeks", "zorb from __datestamp to __timespan",
            "25 December 2026;3 weeks;"},
           {"zorb at $3 per km", "zorb at __rate", "$3 per km;"},
           {"blend 5 kg and 7 kg", "blend __mass_expression and __mass_expression", "5 kg;7 kg;"},
           {"blend (5 kg and 7)", "blend (__mass_expression and 7)", "5 kg;7;"},
           {"average zorb of 5 km", "average zorb of __length_expression", "5 km;"},
           {"20% 30%", ""},
           {"plain words", ""},
           {"zorb of sqrt(4)", ""},
           {"", ""},
       }) {
    EXPECT_EQ(Utility::prototypeOf(row.definition).value_or(""), row.prototype) << row.definition;
    const auto parameters = utility().parametersIn(row.definition);
    EXPECT_EQ(parameters.has_value(), !row.prototype.empty()) << row.definition;
    std::string texts;
    for (std::size_t i = 0; parameters && i < parameters->size(); ++i) {
      const CustomFunctionParameter& parameter = (*parameters)[i];
      texts += parameter.matchedToken.stringValue + ";";
      EXPECT_EQ(parameter.subsheet.identifier.UID, SingleCharacterUIDGenerator::parameterSymbol(i + 1));
      EXPECT_EQ(linesOf(*parameter.subsheet.lineSheet).front(), "# TV_FUNCTION_PARAMETER\n");
    }
    EXPECT_EQ(texts, row.parameters) << row.definition;
  }
}

TEST_F(FunctionDefinitionTest, BodiesAnswerCalls) {
  struct Row {
    std::string_view definition;
    Lines body;
    std::string_view line;
    std::string_view answer;
  };
  for (const Row& row : std::vector<Row>{
           {"area of 5 m by 3 m", {"① * ②"}, "area of 4 m by 2 m", "8 m²"},
           {"tip on 50 dollars", {"rate = 10%", "", "① * rate", "that is all"}, "tip on $80", "$8.00"},
           {"tip on $50 for 3", {"share = ① / ②", "share + 10%"}, "1 + tip on $30 for (1 + 2)", "$12.00"},
           {"stretch 5 km by 2", {"①", "② - 1"}, "stretch 5 km by 2", "1"},
           {"zorb 5 km", {"nothing to see"}, "zorb 5 km", ""},
           {"zorb 5 km", {"② + 1"}, "zorb 5 km", "1"},
           {"zorb 5 km", {"zorb 3 km"}, "zorb 5 km", "3 km"},
       }) {
    const auto function = utility().customFunctionFrom(row.definition, sheetOf(row.body));
    ASSERT_TRUE(function) << row.definition;
    EngineCustomization withFunction = customization();
    withFunction.setCustomFunctions({*function});
    EXPECT_EQ(Calculator(withFunction).calculate(row.line).stringValue, row.answer) << row.line;
  }
  EXPECT_FALSE(utility().customFunctionFrom("plain words", sheetOf({"1"})));
  EXPECT_FALSE(utility().customFunctionFrom("area of 5 m", nullptr));
}

TEST_F(FunctionDefinitionTest, FiftyValuesReachABody) {
  std::vector<EvaluationResult> values;
  for (int i = 1; i <= 60; ++i) values.push_back(EvaluationResult::decimal(Decimal(i)));
  VariableList variables;
  Utility::setParameters(values, variables);
  EXPECT_EQ(variables.count(), 50u);
  ASSERT_NE(variables.find("㊿"), nullptr);
  EXPECT_EQ(variables.find("㊿")->definition->decimalValue(), Decimal(50));
}

TEST_F(FunctionDefinitionTest, DefiningLinesAnswerForTheirExample) {
  const auto answerOf = [](std::string_view expression, Lines body, std::optional<std::string> reference = "\uE000") {
    FunctionDefiningLine line;
    line.expression = expression;
    if (reference) line.lineReference = LineReference{*reference};
    auto environment = std::make_shared<VariableList>();
    Variable outside("height", "2 m", Variable::VariableType::local);
    outside.definition =
        std::make_shared<const EvaluationResult>(Calculator(customization()).calculate("2 m").evaluationResult);
    environment->setVariable(outside);
    line.variableEnvironment = environment;
    return LineFunctionDefinition(line, utility(), std::make_shared<OneSubsheet>(std::move(body))).getResult();
  };
  EXPECT_EQ(answerOf("area of 5 m by 3 m", {"① * ②"}).stringValue, "15 m²");
  EXPECT_EQ(answerOf("volume of 5 m by 3 m", {"① * ② * height"}).stringValue, "30 m³");
  EXPECT_EQ(answerOf("tip on 50 dollars", {"10% of ①"}).stringValue, "$5.00");
  EXPECT_EQ(answerOf("area of 5 m by 3 m", {"nothing to see"}), EmptyResult());
  EXPECT_EQ(answerOf("plain words", {"1 + 2"}), EmptyResult());
  EXPECT_EQ(answerOf("area of 5 m by 3 m", {"①"}, "\uE001"), EmptyResult()) << "no such subsheet";
  EXPECT_EQ(answerOf("area of 5 m by 3 m", {"①"}, std::nullopt), EmptyResult());
}

}  // namespace
}  // namespace tavrine
