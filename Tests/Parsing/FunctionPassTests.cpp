#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
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
  const auto cases = std::to_array<ShapeCase>({
      {"sqrt(16)", "call{sqrt arg{( 16 )}}"},
      {"sqrt (16) + 1", "call{sqrt arg{( 16 )}} + 1"},
      {"sqrt 16 + 9", "call{sqrt arg{16}} + 9"},
      {"2 * sqrt(2 * (3 + 4)) * 5", "2 * call{sqrt arg{( 2 * arg{( 3 + 4 )} )}} * 5"},
      {"(1 + abs(2))", "arg{( 1 + call{abs arg{( 2 )}} )}"},
      {"sqrt(abs(1)) abs(2)", "call{sqrt arg{( call{abs arg{( 1 )}} )}} call{abs arg{( 2 )}}"},
      {"sqrt abs 16", "call{sqrt arg{call{abs arg{16}}}}"},
      {"sqrt abs (16)", "call{sqrt arg{call{abs arg{( 16 )}}}}"},
      // Nothing to apply the function to.
      {"sqrt", "sqrt"},
      {"sqrt + 5", "sqrt + 5"},
      {"log = 5", "log = 5"},
      {"round the 5", "round the 5"},
      {"sqrt(16", "sqrt ( 16"},
      {"sqrt(1) abs(2", "call{sqrt arg{( 1 )}} abs ( 2"},
      {"abs(sqrt(2)", "abs ( call{sqrt arg{( 2 )}}"},
      {"sqrt 2)", "call{sqrt arg{2}} )"},
  });
  for (const ShapeCase& c : cases) EXPECT_EQ(shapeOf(c.line, EngineCustomization::usStandard()), c.want) << c.line;
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
  const auto cases = std::to_array<ShapeCase>({
      // The argument of a script stays as it is.
      {"1 + tripled(4)", "1 + call{tripled ( 4 )}"},
      {"sqrt(tripled(4))", "call{sqrt arg{( call{tripled ( 4 )} )}}"},
      // A name that ends in a scalar scales what stands before it.
      {"12 boxM", "call{arg{12} boxM}"},
      {"(12) boxM", "call{arg{( 12 )} boxM}"},
      {"boxM (12)", "boxM ( 12 )"},
  });
  for (const ShapeCase& c : cases) EXPECT_EQ(shapeOf(c.line, customization), c.want) << c.line;
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
  const auto cases = std::to_array<ShapeCase>({
      {"round 44.5 to nearest 10", "round 44.5 to nearest 10"},
      {"1 + log 8 base 2", "1 + log 8 base 2"},
      {"round (40 + 4.5) to nearest 10", "round arg{( 40 + 4.5 )} to nearest 10"},
      {"log(sqrt(16)) base 2", "log arg{( call{sqrt arg{( 16 )}} )} base 2"},
      // Half a phrase, or one that stands elsewhere, leaves the name a function.
      {"round 44.5 to 10", "call{round arg{44.5}} to 10"},
      {"abs 4 + round 44.5 to nearest 10", "call{abs arg{4}} + round 44.5 to nearest 10"},
  });
  for (const ShapeCase& c : cases) EXPECT_EQ(shapeOf(c.line, EngineCustomization::usStandard()), c.want) << c.line;
}

}  // namespace
}  // namespace tavrine::testing
