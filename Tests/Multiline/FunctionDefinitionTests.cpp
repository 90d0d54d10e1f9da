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
#include "Tests/Support/Table.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using testing::rowsOf;

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
  for (const Row& row : rowsOf<Row>("Multiline/FunctionDefinitionTests", "PhrasesAndParametersOfDefinitions")) {
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
  for (const Row& row : rowsOf<Row>("Multiline/FunctionDefinitionTests", "BodiesAnswerCalls")) {
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
