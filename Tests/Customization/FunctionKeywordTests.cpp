#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/FunctionVendor.h"
#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

using enum FunctionIdentifier;

/// The line's tokens, none of them a call yet.
TokenList tokensOf(std::string_view line) {
  EngineCustomization customization = EngineCustomization::usStandard();
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.wordFunctions = false; });
  return Parser(customization).tokensFor(line, VariableList());
}

std::vector<std::string> worthScanning(const NumericalFunctionKeywords& keywords, std::string_view line) {
  std::vector<std::string> phrases;
  for (const Function* function : keywords.wordFunctionsWorthScanningForIn(tokensOf(line), EngineFeatureFlags())) {
    phrases.push_back(function->prototypeExpression.string());
  }
  return phrases;
}

TEST(FunctionKeywords, ChooseThePhrasesWhoseEveryWordStandsInTheLine) {
  const NumericalFunctionKeywords keywords({{"half of 10", halfOf},
                                            {"Half the 10", halfOf},
                                            {"10th root of 10", nthRoot},
                                            {"10 : 10", xToY},
                                            {"__percentage of __any_word", percentOf},
                                            {"what's 10 of 10", percentOf},
                                            {"10 的一半", halfOf}});
  struct Case {
    std::string_view line;
    std::vector<std::string> want;
  };
  for (const Case& c :
       rowsOf<Case>("Customization/FunctionKeywordTests", "ChooseThePhrasesWhoseEveryWordStandsInTheLine"))
    EXPECT_EQ(worthScanning(keywords, c.line), c.want) << c.line;

  EngineFeatureFlags off;
  off.wordFunctions = false;
  EXPECT_TRUE(keywords.wordFunctionsWorthScanningForIn(tokensOf("half of 5"), off).empty());
}

TEST(FunctionKeywords, PassOverPhrasesWithoutAWordOfTheLine) {
  std::vector<Function> functions = FunctionVendor::functionsFor(EngineCustomization::usStandard());
  const NumericalFunctionKeywords usual(functions);
  for (int i = 0; i < 1000; ++i) {
    const std::string made{'q', static_cast<char>('a' + i % 26), static_cast<char>('a' + i / 26 % 26), 'q'};
    // Everyday words around one that no line below holds.
    functions.push_back({"what is the " + made + " of 10 and 10 in __unit", xToY});
  }
  const NumericalFunctionKeywords more(std::move(functions));
  for (const std::string_view line :
       {"what is 20% of 50", "20 km / 4 hours in mph", "what is the sum of the 2 and the 3 in km",
        "the old plums under our crooked trees"}) {
    EXPECT_EQ(worthScanning(more, line), worthScanning(usual, line)) << line;
  }
}

}  // namespace
}  // namespace tavrine::testing
