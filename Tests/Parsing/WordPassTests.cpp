#include <random>
#include <span>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Squad/ConverterTypes.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

void allComments(EngineFeatureFlags& flags) { flags.commentingOptions = CommentingOptions::all(); }

struct Case {
  std::string_view stage, line, want;
};

void check(const LineReader& reader, std::span<const Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(reader.shapeAfter(c.stage, c.line), c.want) << c.stage << ": " << c.line;
}

TEST(WordPasses, JoinOperatorsOfSeveralCharacters) {
  const LineReader reader;
  struct OperatorCase {
    std::string_view line;
    TokenSubType want;
  };
  for (const auto& [line, want] : rowsOf<OperatorCase>("Parsing/WordPassTests", "JoinOperatorsOfSeveralCharacters 2")) {
    const TokenList list = reader.after("S12", line);
    ASSERT_EQ(list.count(), 5U) << line << ": " << shapeOf(list);
    EXPECT_TRUE(list[2].is(TokenType::operator_, want)) << line;
  }
  // Blanks part them, and nothing is left over or taken twice.
  check(reader, rowsOf<Case>("Parsing/WordPassTests", "JoinOperatorsOfSeveralCharacters"));
}

TEST(WordPasses, ReadConjunctionsByTheLine) {
  LineReader reader;
  check(reader, std::vector<Case>{{"S9", "5 and 6", "number.conjunctionWord.number"},
                                  {"S9", "1 > 0 or 6", "number.operator.number.operator.number"}});
  // What an earlier line found to be true makes this one logical only if it is an operator, not a truth value.
  reader.declare("q", EvaluationResult::boolean(true));
  EXPECT_EQ(reader.shapeAfter("S9", "q and 5"), "variable.conjunctionWord.number");
  EXPECT_EQ(reader.shapeAfter("G23", "!true"), "operator boolean");
  EXPECT_EQ(reader.shapeAfter("G23", "! word"), "wordComment.wordComment");
}

TEST(WordPasses, WrapComments) {
  const LineReader plain;
  EXPECT_EQ(plain.shape("5 // 2"), "number.operator operator.number");
  EXPECT_EQ(plain.shape("(some words) 5"), "subexpression[bracket wordComment.wordComment bracket].number");
  const LineReader reader(allComments);
  check(reader, rowsOf<Case>("Parsing/WordPassTests", "WrapComments"));
  const TokenList list = reader.after("G18", "\"a note\" 5");
  EXPECT_EQ(list[0].metadataAs<QuotationCommentTokenMetadata>()->stringValue, "a note");
}

TEST(WordPasses, KnowTagsWithoutTheirHash) {
  LineReader reader(allComments);
  reader.declare("#food", EvaluationResult::decimal(Decimal(5)), Variable::VariableType::tag);
  reader.declare("#rent", EvaluationResult::decimal(Decimal(5)));
  EXPECT_EQ(reader.shapeAfter("G19", "total food"), "statisticType.hashtag");
  EXPECT_EQ(reader.shapeAfter("G19", "total rent"), "statisticType.wordComment");
  EXPECT_EQ(reader.shapeAfter("G19", "5 food"), "number.wordComment");
  reader.variables.clearVariable("#food");
  EXPECT_TRUE(reader.variables.unhashedTags().empty());
}

TEST(WordPasses, WrapLabels) {
  check(LineReader(), rowsOf<Case>("Parsing/WordPassTests", "WrapLabels"));
  check(LineReader(allComments),
        std::vector<Case>{{"G36", "Monthly rent: 500", "labelExpression[wordComment.label[unidentified colon]].number"},
                          {"G36", " 5 apples: 3", ".labelExpression[number.label[unidentified colon]].number"},
                          {"G36", ")a: 3", "bracket label[grammerArticleWord colon].number"}});
}

TEST(WordPasses, WrapLists) { check(LineReader(), rowsOf<Case>("Parsing/WordPassTests", "WrapLists")); }

TEST(WordPasses, WrapConverters) {
  const LineReader reader;
  const auto converter = [&reader](std::string_view line) {
    const TokenList list = reader.after("G30", line);
    const Token* token = list.firstTokenOfType(TokenType::converter);
    return token != nullptr ? std::string(toString(token->subType)) + " " + token->stringValue : "none";
  };
  struct ConverterCase {
    std::string_view line, converter;
  };
  for (const ConverterCase& c : rowsOf<ConverterCase>("Parsing/WordPassTests", "WrapConverters")) {
    EXPECT_EQ(converter(c.line), c.converter) << c.line;
  }
  EXPECT_EQ(reader.shapeAfter("G30", "1700000000 as date"),
            "unixTimestamp[number].converter[converterSymbol.typeName]");
  EXPECT_EQ(reader.shapeAfter("G30", "5 frequency rate"), "number.rate");

  EngineFeatureFlags flags;
  flags.hexAndBinary = flags.musicalConversions = false;
  for (const TokenSubType off :
       {TokenSubType::octalTypeName, TokenSubType::pitchTypeName, TokenSubType::rateTypeName}) {
    EXPECT_EQ(converterTypeOf(Token(TokenType::typeName, off, "t", {0, 1}), flags), TokenSubType::notSpecified);
  }
}

TEST(WordPasses, LookIntoWordsWhereNoBlanksPartThem) {
  const VariableList none;
  const auto types = [&none](const LineReader& reader) {
    return reader.parser().simpleTokenListFrom("abpercentcd", none).typesEverPresent();
  };
  EXPECT_FALSE(types(LineReader()).contains(TokenType::percentageSymbol));
  EXPECT_TRUE(types(LineReader(nullptr, "zh_CN")).contains(TokenType::percentageSymbol));
}

TEST(WordPasses, ReadPhrasePatternsWithTheirLabelsAndBrackets) {
  EXPECT_EQ(shapeOf(Parser::tokenListForPrototypeMatching("a: (__decimal + b)")),
            "label[grammerArticleWord colon].subexpression[bracket customInternal.operator.unidentified bracket]");
}

/// Words, signs and brackets in any order: whatever the passes make of them, it is the line.
TEST(WordPasses, TileRandomLines) {
  const std::vector<std::string_view> pieces = {
      "5",    "-5",   "q",    "q w",  "word",   "abc",   "+",   "-",    "*",           "/",       "//",
      "=",    "==",   "<",    "(",    ")",      "\"",    ":",   "#tag", "!",           "%",       "if",
      "then", "else", "and",  "or",   "in",     "as",    "a",   "as",   ",",           "?",       "√",
      "with", "of",   "plus", "five", "unless", "total", "hex", "the",  "is at least", "é",       "🙂",
      ";",    "1/2",  "sqrt", "date", ".",      "mod",   "to",  "rate", "true",        "round up"};
  std::mt19937 random(7);
  const auto flagSets = {LineReader::FlagChange{nullptr}, LineReader::FlagChange{[](EngineFeatureFlags& flags) {
                           flags.commentingOptions = CommentingOptions::all();
                           flags.variableDeclarations = true;
                           flags.additionalOptions.remoteQueries = true;
                         }}};
  for (const auto flags : flagSets) {
    LineReader reader(flags);
    for (int round = 0; round < 400; ++round) {
      if (round == 200) {
        reader.declare("q", EvaluationResult::percentage(Percentage{Decimal(5)}));
        reader.declare("word", EvaluationResult::decimal(Decimal(-12)));
        reader.declare("q w", EvaluationResult::rawString("q ="));
      }
      std::string line;
      for (std::size_t count = random() % 14; count-- > 0;) {
        line += pieces[random() % pieces.size()];
        if (random() % 3 != 0) line += " ";
      }
      EXPECT_EQ(reader.tokens(line).rebuiltExpression(), line);
    }
  }
}

}  // namespace
}  // namespace tavrine::testing
