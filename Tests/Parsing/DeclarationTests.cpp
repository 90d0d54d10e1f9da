#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/VariableDeclarationDetector.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

using Assignment = VariableDeclarationTokenMetadata::VariableAssignmentOperatorType;

void declaring(EngineFeatureFlags& flags) {
  flags.variableDeclarations = true;
  flags.additionalOptions.remoteQueries = true;
}

TEST(Declarations, TellNameValueAndAssignment) {
  LineReader reader(declaring);
  reader.declare("x", EvaluationResult::decimal(Decimal(7)));
  struct Case {
    std::string_view line, name, value;
    Assignment type;
  };
  for (const Case& c : {Case{"x = 1 + 2 ", "x", "1 + 2", Assignment::vanilla},
                        {"x += 2", "x", "2", Assignment::additive},
                        {"x -= 2", "x", "2", Assignment::subtractive},
                        {"x * = 2", "x", "2", Assignment::multiplicative},
                        {"x/=2", "x", "2", Assignment::divizive},
                        {"monthly rent: the x = 2", "the x", "2", Assignment::vanilla},
                        {"x = \"a note\" 5", "x", "a note", Assignment::vanilla},
                        {"y = a = 5", "y = a", "5", Assignment::vanilla}}) {
    const TokenList list = reader.tokens(c.line);
    const Token* token = list.firstTokenOfType(TokenType::variableDeclaration);
    ASSERT_NE(token, nullptr) << c.line << ": " << shapeOf(list);
    const auto* metadata = token->metadataAs<VariableDeclarationTokenMetadata>();
    EXPECT_EQ(metadata->variableName, c.name) << c.line;
    EXPECT_EQ(metadata->variableValueString, c.value) << c.line;
    EXPECT_EQ(metadata->type, c.type) << c.line;
    EXPECT_EQ(metadata->preExistingDefinition.has_value(), c.name == "x") << c.line;
  }
  // Where no variable is known, "+" belongs to the name.
  EXPECT_EQ(LineReader(declaring).tokens("x += 2").declaredVariableNames(), std::vector<std::string>{"x +"});
}

TEST(Declarations, NeedANameBeforeTheOperator) {
  LineReader reader(declaring);
  reader.variables.setVariable(Variable("k", std::nullopt, Variable::VariableType::local));
  struct Case {
    std::string_view line, name;
    Assignment type;
  };
  // "x" also says "times".
  for (const Case& c : {Case{"x = k + 1", "x", Assignment::vanilla},
                        {"Total: x = k", "x", Assignment::vanilla},
                        {"k x = 3", "k", Assignment::multiplicative}}) {
    const TokenList list = reader.tokens(c.line);
    const Token* token = list.firstTokenOfType(TokenType::variableDeclaration);
    ASSERT_NE(token, nullptr) << c.line << ": " << shapeOf(list);
    const auto* metadata = token->metadataAs<VariableDeclarationTokenMetadata>();
    EXPECT_EQ(metadata->variableName, c.name) << c.line;
    EXPECT_EQ(metadata->type, c.type) << c.line;
  }
}

TEST(Declarations, TakeTheirShape) {
  const LineReader reader(declaring);
  struct Case {
    std::string_view line, want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/DeclarationTests", "TakeTheirShape")) {
    EXPECT_EQ(reader.shape(c.line), c.want) << c.line;
  }
  EXPECT_EQ(LineReader().shape("b = 1 + 2"), "wordComment.wordComment.wordComment.wordComment.wordComment");
}

TEST(Declarations, OfNamesBetweenLabelsNestWithinTheLimit) {
  const LineReader reader(declaring);
  std::string line;
  for (std::size_t i = 0; i < 3 * kMaximumNesting; ++i) line += "l: b = ";
  line += "5";
  std::size_t depth = 0;
  for (TokenListRef list = TokenList::frozen(reader.tokens(line)); list && depth <= kMaximumNesting; ++depth) {
    const Token* declaration = list->firstTokenOfType(TokenType::variableDeclaration);
    list = declaration != nullptr ? declaration->subtokens : nullptr;
  }
  EXPECT_GT(depth, 2U);
  EXPECT_LE(depth, kMaximumNesting + 1);
}

TEST(Declarations, AreToldByTheirText) {
  for (const std::string_view line : {"x = 5", "x=", "x = y://a", "x=y=z"}) {
    EXPECT_TRUE(VariableDeclarationDetector::isVariableDeclaration(line)) << line;
  }
  for (const std::string_view line : {"", "x", " = 5", "y://a?b=c", "a y://b = 5"}) {
    EXPECT_FALSE(VariableDeclarationDetector::isVariableDeclaration(line)) << line;
  }
}

TEST(Conditionals, NeedAConsequence) {
  const LineReader reader;
  struct Case {
    std::string_view line, want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/DeclarationTests", "NeedAConsequence")) {
    EXPECT_EQ(reader.shape(c.line), c.want) << c.line;
  }
}

TEST(Conditionals, HaveClauses) {
  const LineReader reader;
  const TokenList list = reader.after("S12", "if 1 else 2");
  EXPECT_EQ(list.ifClause()->rebuiltExpression(), " 1 ");
  EXPECT_FALSE(list.thenClause());
  EXPECT_EQ(list.elseClause()->rebuiltExpression(), " 2");
  EXPECT_EQ(reader.after("S12", "if 1 else 2 then 3").ifClause()->rebuiltExpression(), " 1 else 2 ");
}

}  // namespace
}  // namespace tavrine::testing
