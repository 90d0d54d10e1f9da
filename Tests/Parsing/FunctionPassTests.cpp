#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Table.h"
#include "Tests/Support/Tiling.h"

namespace tavrine::testing {
namespace {

/// The line with what was fused in braces: "call{sqrt arg{( 16 )}}". White space is left out.
std::string shapeOf(const TokenList& list) {
  std::string shape;
  for (const Token& token : list) {
    if (token.is(TokenType::whitespace)) continue;
    if (!shape.empty()) shape += ' ';
    const bool isCall = token.is(TokenType::functionExpression);
    if (isCall || token.is(TokenType::subexpression)) {
      shape += (isCall ? "call{" : "arg{") + shapeOf(*token.subtokens) + '}';
    } else {
      shape += token.stringValue;
    }
  }
  return shape;
}

/// The shape behind the passes of functions, with a look at the tiling behind every stage.
std::string shapeOf(std::string_view line, const EngineCustomization& customization) {
  std::optional<std::string> fault;
  std::string shape;
  const StageObserver observer = [&](const Stage& stage, const TokenList& list, bool) {
    if (!fault) fault = tilingFault(list, line, stage);
    if (stage.pass == "identifyJavascriptFunctionsIn") shape = shapeOf(list);
  };
  Parser(customization).tokensFor(line, VariableList(), observer);
  return fault.value_or(shape);
}

struct ShapeCase {
  std::string_view line;
  std::string_view want;
};

TEST(FunctionPass, TakesBracketsOrTheOneValueBehindTheName) {
  for (const ShapeCase& c : rowsOf<ShapeCase>("Parsing/FunctionPassTests", "TakesBracketsOrTheOneValueBehindTheName"))
    EXPECT_EQ(shapeOf(c.line, EngineCustomization::usStandard()), c.want) << c.line;
}

TEST(FunctionPass, WantsBracketsWhereTheHostAsksForThem) {
  EngineCustomization customization = EngineCustomization::usStandard();
  EngineFeatureFlags flags = customization.featureFlags();
  flags.functionsRequireParentheses = true;
  customization.setFeatureFlags(flags);
  EXPECT_EQ(shapeOf("sqrt 16 + sqrt (9)", customization), "sqrt 16 + call{sqrt arg{( 9 )}}");
}

TEST(FunctionPass, ReadsFunctionsOfTheHost) {
  EngineCustomization customization = EngineCustomization::usStandard();
  customization.setJavaScriptFunctions(
      {TraditionalFunction{.name = "tripled", .implementation = "x => 3 * x"}, TraditionalFunction{.name = "boxM"}});
  for (const ShapeCase& c : rowsOf<ShapeCase>("Parsing/FunctionPassTests", "ReadsFunctionsOfTheHost"))
    EXPECT_EQ(shapeOf(c.line, customization), c.want) << c.line;
}

std::size_t nestingOf(const TokenList& list) {
  std::size_t deepest = 0;
  for (const Token& token : list) {
    if (token.subtokens) deepest = std::max(deepest, 1 + nestingOf(*token.subtokens));
  }
  return deepest;
}

TEST(FunctionPass, BoundsTheNestingOfCalls) {
  std::string words, brackets;
  for (int i = 0; i < 1000; ++i) words += "sqrt ";
  for (std::size_t i = 0; i < kMaximumNesting; ++i) brackets += "abs(";
  const Parser parser(EngineCustomization::usStandard());
  for (const std::string& line : {words + "16", brackets + "1" + std::string(kMaximumNesting, ')')}) {
    const TokenList list = parser.tokensFor(line, VariableList());
    EXPECT_LE(nestingOf(list), kMaximumNesting + 1);
    EXPECT_GE(nestingOf(list), kMaximumNesting - 2);
    EXPECT_EQ(list.rebuiltExpression(), line);
  }
}

TEST(FunctionPass, ReadsANameThatHasNothingToScaleAsAPlace) {
  EngineCustomization customization = EngineCustomization::usStandard();
  customization.setJavaScriptFunctions({TraditionalFunction{.name = "JFK"}, TraditionalFunction{.name = "boxM"}});
  const auto typesOf = [&](std::string_view line) {
    std::string types;
    const StageObserver observer = [&](const Stage& stage, const TokenList& list, bool) {
      if (stage.pass != "identifyFunctionExpressionsIn") return;
      for (const Token& token : list) types += std::string(toString(token.type)) + ' ';
    };
    Parser(customization).tokensFor(line, VariableList(), observer);
    return types;
  };
  EXPECT_EQ(typesOf("5 km JFK"), "functionExpression ");
  EXPECT_EQ(typesOf("5 in JFK"), "number whitespace converterSymbol whitespace timezone ");
  EXPECT_EQ(typesOf("5 in boxM"), "number whitespace converterSymbol whitespace functionName ");
}

TEST(FunctionPass, LeavesTheValueToAPhraseThatBeginsWithTheName) {
  for (const ShapeCase& c :
       rowsOf<ShapeCase>("Parsing/FunctionPassTests", "LeavesTheValueToAPhraseThatBeginsWithTheName"))
    EXPECT_EQ(shapeOf(c.line, EngineCustomization::usStandard()), c.want) << c.line;
}

}  // namespace
}  // namespace tavrine::testing
