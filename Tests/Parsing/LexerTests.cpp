#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/CharacterClassifier.h"
#include "TavrineCore/Parsing/Lexing/LetterNumberScanner.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Lexing/StringLexing.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

char initialOf(LexemeType type) {
  switch (type) {
    case LexemeType::whitespace:
      return '_';
    case LexemeType::number:
      return 'n';
    case LexemeType::symbol:
      return 's';
    case LexemeType::word:
      return 'w';
    case LexemeType::wordNumberCluster:
      return 'c';
    case LexemeType::other:
      return 'o';
  }
  return '?';
}

/// "n:1|_: |s:+".
std::string dump(std::string_view line, Lexer::Script script = Lexer::Script::alphabetic) {
  std::string result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(line, script)) {
    if (!result.empty()) result += '|';
    result += initialOf(lexeme.type);
    result += ':';
    result += lexeme.string;
  }
  return result;
}

struct Case {
  std::string_view line;
  std::string_view want;
};

TEST(LexerTests, cutsLines) {
  for (const Case& c : rowsOf<Case>("Parsing/LexerTests", "cutsLines")) EXPECT_EQ(dump(c.line), c.want) << c.line;
}

TEST(LexerTests, cutsChineseCharacterByCharacter) {
  constexpr Case kCases[] = {
      {"長度5米", "o:長|o:度|n:5|o:米"},
      {"x2", "c:x2"},
      // Clusters begin with an ASCII character there.
      {"é2", "o:é|n:2"},
  };
  for (const Case& c : kCases) EXPECT_EQ(dump(c.line, Lexer::Script::chinese), c.want) << c.line;
  EXPECT_EQ(Lexer::lexemesFor("長度", Locale("zh_Hans")).size(), 2u);
  EXPECT_EQ(Lexer::lexemesFor("長度", Locale("ja")).size(), 1u);
}

TEST(LexerTests, countsRangesInUtf16) {
  constexpr std::string_view kLine = "é 😀1";
  const auto lexemes = Lexer::lexemesFor(kLine, Lexer::Script::alphabetic);
  ASSERT_EQ(lexemes.size(), 4u);
  EXPECT_EQ(lexemes[0].range, (NSRange{0, 1}));
  EXPECT_EQ(lexemes[1].range, (NSRange{1, 1}));
  EXPECT_EQ(lexemes[2].range, (NSRange{2, 2}));
  EXPECT_EQ(lexemes[3].range, (NSRange{4, 1}));
  EXPECT_EQ(lexemes[3].byteOffset, 7u);
}

/// Random texts of the characters that the rules are about: the lexemes tile the text, and the fast way for ASCII gives
/// what the general way gives, which a non-ASCII character at the far end brings about.
TEST(LexerTests, tilesAndAgreesWithItself) {
  constexpr std::string_view kPieces[] = {"a", "1", ".", ",", "'", "_", "#", " ", "+", "b", "2", "\x01"};
  std::uint32_t state = 1;
  for (int round = 0; round < 5'000; ++round) {
    std::string line;
    for (int i = 0; i < 12; ++i) {
      state = state * 1664525u + 1013904223u;
      line += kPieces[(state >> 16) % std::size(kPieces)];
    }
    const auto lexemes = Lexer::lexemesFor(line, Lexer::Script::alphabetic);
    std::string rebuilt;
    for (const Lexeme& lexeme : lexemes) {
      ASSERT_EQ(lexeme.byteOffset, rebuilt.size()) << line;
      ASSERT_FALSE(lexeme.string.empty()) << line;
      rebuilt += lexeme.string;
    }
    ASSERT_EQ(rebuilt, line);
    ASSERT_EQ(dump(line + "+€"), dump(line + "+") + "|s:€") << line;
  }
}

/// Bytes that are no UTF-8 read as U+FFFD, a symbol, whatever they would be in Latin-1.
TEST(LexerTests, takesBrokenBytes) { EXPECT_EQ(dump("a\xE9 1\xB2"), "w:a|s:\xE9|_: |n:1|s:\xB2"); }

/// Each of these fails to be the lexeme that it looks like only at its very end.
TEST(LexerTests, isLinearOnRunsThatFailAtTheirEnd) {
  const auto secondsFor = [](std::string_view unit, std::string_view end, std::size_t count) {
    std::string line;
    for (std::size_t i = 0; i < count; ++i) line += unit;
    line += end;
    const auto start = std::chrono::steady_clock::now();
    const auto lexemes = Lexer::lexemesFor(line, Lexer::Script::alphabetic);
    EXPECT_FALSE(lexemes.empty());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  for (const auto& [unit, end] : {std::pair{"a'", "1"}, {"1'", "'"}, {"a#", "#"}, {"é'", "1"}, {"a1", "#"}}) {
    // A square would take minutes.
    EXPECT_LT(secondsFor(unit, end, 100'000), 5.0) << unit;
  }
}

TEST(CharacterClassifierTests, classifies) {
  struct Row {
    std::string_view character;
    CharacterType want;
  };
  for (const Row& row : rowsOf<Row>("Parsing/LexerTests", "classifies"))
    EXPECT_EQ(CharacterClassifier::determineType(row.character), row.want) << row.character;
  EXPECT_EQ(CharacterClassifier::determineType("米", true), CharacterType::hanzi);
  EXPECT_EQ(CharacterClassifier::determineType("五", true), CharacterType::hanzi);
  EXPECT_EQ(CharacterClassifier::determineType("①", true), CharacterType::internalReference);
  EXPECT_FALSE(CharacterClassifier::isHanzi("a"));
  EXPECT_TRUE(CharacterClassifier::isHanzi("\U00020000"));
}

/// The table must say what the properties say.
TEST(CharacterClassifierTests, agreesWithThePropertiesInLatin1) {
  for (char32_t scalar = 0; scalar < 0x100; ++scalar) {
    const CharacterType type = CharacterClassifier::determineType(stringFromScalar(scalar));
    const bool isDegree = scalar == 0xBA || scalar == 0xB0;
    EXPECT_EQ(type == CharacterType::whitespace, isWhitespace(scalar)) << static_cast<unsigned>(scalar);
    EXPECT_EQ(type == CharacterType::number, hasNumericType(scalar)) << static_cast<unsigned>(scalar);
    EXPECT_EQ(type == CharacterType::letter, isAlphabetic(scalar) && !isDegree) << static_cast<unsigned>(scalar);
    EXPECT_EQ(type == CharacterType::other, !isWhitespace(scalar) && !hasNumericType(scalar) && !isAlphabetic(scalar) &&
                                                !isSymbol(scalar) && !isPunctuation(scalar))
        << static_cast<unsigned>(scalar);
  }
}

TEST(LetterNumberScannerTests, cutsClusters) {
  using Type = LetterNumberScanner::LetterNumberTokenType;
  using Tokens = std::vector<LetterNumberScanner::LetterNumberToken>;
  EXPECT_EQ(LetterNumberScanner::scanString("5ft½é2"), (Tokens{{Type::number, "5", {0, 1}},
                                                               {Type::letter, "ft", {1, 2}},
                                                               {Type::number, "½", {3, 1}},
                                                               {Type::letter, "é", {4, 1}},
                                                               {Type::number, "2", {5, 1}}}));
  // One foreign character and nothing is left, whatever stood before it.
  EXPECT_TRUE(LetterNumberScanner::scanString("5ft.3").empty());
  EXPECT_TRUE(LetterNumberScanner::scanString("").empty());
}

TEST(StringLexingTests, answersAboutWords) {
  EXPECT_EQ(firstWord("square meters"), "square");
  EXPECT_EQ(firstWord("square"), std::nullopt);
  EXPECT_EQ(words("a  b.").size(), 3u);
  EXPECT_EQ(wordsIncludingWhitespace("a  b.").size(), 4u);
  struct Row {
    std::string_view text;
    bool isPhrase;
  };
  for (const Row& row : rowsOf<Row>("Parsing/LexerTests", "answersAboutWords")) {
    EXPECT_EQ(isPhrase(row.text), row.isPhrase) << row.text;
    EXPECT_EQ(isSingleWord(row.text), !row.isPhrase) << row.text;
  }
}

}  // namespace
}  // namespace tavrine
