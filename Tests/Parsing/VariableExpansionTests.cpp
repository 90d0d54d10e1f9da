#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/TokenListVariableSubstitutor.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

class VariableExpansion : public ::testing::Test {
 protected:
  VariableExpansion() {
    reader.declare("x", EvaluationResult::decimal(Decimal(512)));
    reader.declare("tax", EvaluationResult::percentage(Percentage{*Decimal::parse("0.2")}));
    reader.declare("note", EvaluationResult::rawString("a b"));
  }

  /// The line's simple tokens with the values in them.
  std::string expanded(std::string_view line) const {
    TokenList list = reader.parser().simpleTokenListFrom(line, reader.variables);
    TokenListVariableSubstitutor::expandVariablesIn(list);
    return list.rebuiltExpression();
  }

  LineReader reader{[](EngineFeatureFlags& flags) { flags.variableDeclarations = true; }};
};

TEST_F(VariableExpansion, PutsValuesInPlaceOfNames) {
  EXPECT_EQ(expanded("x + 2x"), "512 + 2512");
  EXPECT_EQ(expanded("tax on x"), "20% on 512");
  // A name that is assigned to keeps standing, up to the next condition.
  EXPECT_EQ(expanded("x + x = x"), "x + x = 512");
  EXPECT_EQ(expanded("x if x = x"), "512 if x = 512");
  EXPECT_EQ(expanded("\"note\" note"), "\"note\" a b");
}

TEST_F(VariableExpansion, BringsNamesBackAtEveryDepth) {
  struct Case {
    std::string_view line, want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/VariableExpansionTests", "BringsNamesBackAtEveryDepth")) {
    const TokenList list = reader.tokens(c.line);
    EXPECT_EQ(shapeOf(list), c.want) << c.line;
    EXPECT_TRUE(list.typePrecheck(TokenType::variable)) << c.line;
  }
  EXPECT_TRUE(reader.tokens("5 + tax").typePrecheck(TokenType::percentage));
}

TEST_F(VariableExpansion, RestoresWhatPassesTookApartOrFused) {
  const Token x(TokenType::variable, "x", {0, 1});
  const Token yy(TokenType::variable, "yy", {2, 2});
  const ExpandedTokenListInfo info({{{0, 3}, x}, {{4, 2}, yy}});
  const auto restored = [&info](std::vector<Token> tokens) {
    TokenList list(std::move(tokens));
    TokenListVariableSubstitutor::unexpand(list, info);
    std::string result;
    for (const Token& token : list) {
      result += token.stringValue + "@" + std::to_string(token.range.location) + " ";
    }
    return result;
  };
  // "512:30" with the values side by side, in pieces, and in one token that kept neither.
  const Token colon(TokenType::colon, ":", {3, 1});
  EXPECT_EQ(restored({{TokenType::number, "512", {0, 3}}, colon, {TokenType::number, "30", {4, 2}}}), "x@0 :@1 yy@2 ");
  EXPECT_EQ(restored({{TokenType::number, "5", {0, 1}},
                      {TokenType::number, "12", {1, 2}},
                      colon,
                      {TokenType::number, "30", {4, 2}}}),
            "x@0 :@1 yy@2 ");
  EXPECT_EQ(restored({{TokenType::laptime, "512:30", {0, 6}}}), "x:yy@0 ");
}

TEST_F(VariableExpansion, FindsNamesOfSeveralWords) {
  for (const char* name : {"monthly rent", "monthly rent due", "rent due date", "Big Sum", "less than", "tax of x"}) {
    reader.declare(name, EvaluationResult::decimal(Decimal(3)));
  }
  const auto names = [this](std::string_view line) {
    std::string result;
    for (const Token& token : reader.after("V1", line)) {
      if (token.is(TokenType::variable)) result += token.metadataAs<VariableTokenMetadata>()->variable.name + ";";
    }
    return result;
  };
  EXPECT_EQ(names("monthly rent + Monthly   RENT"), "monthly rent;monthly rent;");
  EXPECT_EQ(names("monthly rent due date"), "monthly rent due;");
  EXPECT_EQ(names("the rent due date"), "rent due date;");
  EXPECT_EQ(names("Big Sum + big sum"), "Big Sum;");
  EXPECT_EQ(names("monthly rents + monthlyrent + monthly"), "");
  EXPECT_EQ(names("5 + less than"), "less than;");
  EXPECT_EQ(names("tax of x"), "tax of x;");
}

}  // namespace
}  // namespace tavrine::testing
