#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Support/Tiling.h"

namespace tavrine::testing {
namespace {

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

class ParserDriverTests : public ::testing::Test {
 protected:
  const Parser parser_{EngineCustomization::usStandard()};
  const VariableList variables_{};

  /// Runs one pass for itself.
  void run(void (*pass)(TokenList&, const PassContext&), TokenList& list, std::string_view line) {
    ParseScratch scratch;
    const EngineCustomization& customization = parser_.engineCustomization();
    pass(list, PassContext{.parser = parser_,
                           .customization = customization,
                           .features = customization.featureFlags(),
                           .content = parser_.engineContent(),
                           .numberDetector = parser_.numberDetector(),
                           .variables = variables_,
                           .subsheets = nullptr,
                           .rawExpression = line,
                           .scratch = scratch});
  }
};

TEST_F(ParserDriverTests, aLineBeyondALimitIsOneComment) {
  // White space counts as a token, so n pluses between spaces are 2n tokens.
  const std::string tooManyTokens = repeated("+ ", kMaximumTokenCount / 2);
  const struct {
    std::string line;
    bool isComment;
  } rows[] = {
      {std::string(kMaximumNesting, '(') + "1", false},
      {std::string(kMaximumNesting + 1, '(') + "1", true},
      {repeated("(1)", kMaximumNesting + 1), false},
      {tooManyTokens, false},
      {tooManyTokens + "1", true},
      {std::string(kMaximumLineLength, '7'), false},
      {std::string(kMaximumLineLength + 1, '7'), true},
      // UTF-16 units count, not bytes.
      {repeated("\u00E9", kMaximumLineLength - 1) + "+", false},
      {repeated("\u00E9", kMaximumLineLength) + "+", true},
  };
  for (const auto& row : rows) {
    for (const TokenList& list :
         {parser_.tokensFor(row.line, variables_), parser_.simpleTokenListFrom(row.line, variables_)}) {
      ASSERT_FALSE(list.isEmpty());
      EXPECT_EQ(list.rebuiltExpression(), row.line);
      EXPECT_EQ(list.count() == 1 && list[0].is(TokenType::wordComment) && list[0].stringValue == row.line,
                row.isComment)
          << row.line.substr(0, 20) << " of " << row.line.size() << " bytes";
    }
  }
}

TEST_F(ParserDriverTests, aListThatLostTextGivesWayToTheSimpleTokens) {
  constexpr std::string_view kLine = "1 + 2";
  TokenList whole = parser_.tokensFor(kLine, variables_);
  const std::string before = describe(whole);
  run(passes::ensureTokensTileTheLine, whole, kLine);
  EXPECT_EQ(describe(whole), before);

  TokenList broken = parser_.tokensFor(kLine, variables_);
  broken.removeAt(2);
  run(passes::ensureTokensTileTheLine, broken, kLine);
  EXPECT_EQ(describe(broken), describe(parser_.simpleTokenListFrom(kLine, variables_)));
}

TEST_F(ParserDriverTests, aDeclarationShowsWhatItHides) {
  Variable share("share", std::nullopt, Variable::VariableType::local);
  share.definition = std::make_shared<const EvaluationResult>(EvaluationResult::percentage({Decimal(1)}));
  const Token multiplier = TokenFactory::multiplierWith(2);
  Token declaration = TokenFactory::subexpressionWith({TokenFactory::variable(share), multiplier});
  declaration = Token(TokenType::variableDeclaration, TokenSubType::notSpecified, declaration.stringValue, {0, 9},
                      TokenList::frozen({TokenFactory::percentageWith(1), declaration}));
  TokenList list;
  list.append(TokenFactory::booleanWith(true));
  list.removeAt(0);
  list.append(declaration);
  ASSERT_TRUE(list.typePrecheck(TokenType::boolean));
  ASSERT_FALSE(list.typePrecheck(TokenType::percentageSymbol));

  run(passes::updateTypesCacheIfNecessary, list, declaration.stringValue);
  EXPECT_TRUE(list.typesPrecheck({TokenType::variableDeclaration, TokenType::percentage, TokenType::percentageSymbol,
                                  TokenType::subexpression, TokenType::multiplier}));
  EXPECT_FALSE(list.typePrecheck(TokenType::boolean)) << "what is no longer in the line is forgotten";
}

}  // namespace
}  // namespace tavrine::testing
