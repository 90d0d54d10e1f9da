#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Environment.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Table.h"
#include "Tests/Support/Tiling.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using FlagChange = void (*)(EngineFeatureFlags&);

/// Reads lines in one locale.
class Reader {
 public:
  explicit Reader(std::string_view locale, FlagChange change = nullptr)
      : world_(worldAt("2026-06-10T09:30:00Z", "UTC", locale)), parser_(customization(locale, change)) {
    variables_.setVariable(Variable("apples", "7", Variable::VariableType::local));
    variables_.setVariable(Variable("a2", "7", Variable::VariableType::local));
    variables_.setVariable(Variable("zed", "7", Variable::VariableType::local));
  }

  /// The list behind the last row of the stage.
  TokenList listAfter(std::string_view stageName, std::string_view line, bool withVariables = false) const {
    TokenList result;
    const VariableList noVariables;
    parser_.tokensFor(line, withVariables ? variables_ : noVariables,
                      [&](const Stage& stage, const TokenList& list, bool) {
                        if (stage.name == stageName) result = list;
                        const auto fault = tilingFault(list, line, stage);
                        EXPECT_FALSE(fault) << stage.name << " of \"" << line << "\": " << *fault;
                      });
    return result;
  }

  void parse(std::string_view line) const { EXPECT_FALSE(parser_.tokensFor(line, VariableList()).isEmpty()); }

 private:
  static EngineCustomization customization(std::string_view locale, FlagChange change) {
    EngineCustomization result = EngineCustomization::standardWith(Locale(locale));
    if (change != nullptr) result.changeFeatureFlags(change);
    return result;
  }

  foundation::ScopedEnvironment world_;
  Parser parser_;
  VariableList variables_;
};

/// Numbers by their values, blanks as "_", anything else by its type and, where it has them, its parts.
std::string dump(const TokenList& list) {
  std::string result;
  for (const Token& token : list) {
    if (!result.empty()) result += " ";
    if (token.is(TokenType::whitespace)) {
      result += "_";
    } else if (token.is(TokenType::number)) {
      result += token.ownDecimalValue()->description();
    } else if (const auto value = token.ownDecimalValue(); value && !token.is(TokenType::numberWord)) {
      result += std::string(toString(token.type)) + "(" + value->description() + ")";
    } else if (token.subtokens) {
      result += std::string(toString(token.type)) + "[" + dump(*token.subtokens) + "]";
    } else {
      result += token.is(TokenType::operator_) ? token.stringValue : std::string(toString(token.type));
    }
  }
  return result;
}

struct Case {
  std::string_view stage, line, want;
};

void check(const Reader& reader, std::span<const Case> cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(dump(reader.listAfter(c.stage, c.line)), c.want) << c.stage << ": " << c.line;
  }
}

// --- Numbers of several lexemes -------------------------------------------------------------------------------------

TEST(NumberPasses, GatherGroupsWhereTheLocaleGroupsByBlanks) {
  check(Reader("fr_FR"), rowsOf<Case>("Parsing/NumberPassTests", "GatherGroupsWhereTheLocaleGroupsByBlanks, french"));
  constexpr Case kEnglish[] = {{"S3", "1 000", "1 _ 0"}};
  check(Reader("en_US"), kEnglish);
}

TEST(NumberPasses, ReportWhatCannotBeGatheredOncePerLine) {
  std::vector<std::string> lines;
  const auto before = foundation::setDiagnosticSink([&](std::string_view line) { lines.emplace_back(line); });
  const TokenList list = Reader("fr_FR").listAfter("S3", "1,5 2,5 x 3,5 4,5");
  foundation::setDiagnosticSink(before);
  EXPECT_EQ(dump(list), "1.5 _ 2.5 _ x _ 3.5 _ 4.5");
  EXPECT_EQ(lines, std::vector<std::string>{"Failed to gather whitespace separated numbers in 1,5 2,5 x 3,5 4,5"});
}

TEST(NumberPasses, MakeNumbersOfSeveralLexemes) {
  check(Reader("en_US"), rowsOf<Case>("Parsing/NumberPassTests", "numbers"));
}

TEST(NumberPasses, LeaveWhatTheFlagsSwitchOff) {
  constexpr Case kNoOctal[] = {{"S6", "0o17 0xF", "0 unidentified _ hexadecimalNumber(15)"}};
  check(Reader("en_US", [](EngineFeatureFlags& flags) { flags.octal = false; }), kNoOctal);
  constexpr Case kNoBases[] = {{"S6", "0x1F 0b1 0o1", "0 unidentified _ 0 unidentified _ 0 unidentified"}};
  check(Reader("en_US", [](EngineFeatureFlags& flags) { flags.hexAndBinary = false; }), kNoBases);
  constexpr Case kNoMusic[] = {{"S10", "C4 tau2", "unidentified _ unidentified"}};
  check(Reader("en_US",
               [](EngineFeatureFlags& flags) {
                 flags.musicalConversions = false;
                 flags.phiAndTau = false;
               }),
        kNoMusic);
}

TEST(NumberPasses, FindVariablesInClusters) {
  const Reader reader("en_US");
  constexpr Case kCases[] = {
      {"S10", "3zed", "3 variable"},
      {"S10", "zed3", "variable 3"},
      {"S10", "zed2q", "variable 2 unidentified"},
  };
  for (const Case& c : kCases) EXPECT_EQ(dump(reader.listAfter(c.stage, c.line, true)), c.want) << c.line;
}

TEST(NumberPasses, JoinPiecesOfWordsThatLookLikeScalars) {
  const TokenList list = Reader("zh_CN").listAfter("S4", "甲k乙M丙");
  ASSERT_EQ(list.count(), 1U) << dump(list);
  EXPECT_EQ(list[0].stringValue, "甲k乙M丙");
}

TEST(NumberPasses, KeepTheTypedValueBesideTheScalar) {
  const TokenList list = Reader("en_US").listAfter("G9", "-5k");
  ASSERT_EQ(list.count(), 1U);
  EXPECT_TRUE(list[0].is(TokenType::number, TokenSubType::negativeNumber));
  EXPECT_EQ(list[0].unscaledDecimalValue(), Decimal(-5));
  EXPECT_EQ(list[0].scalar(), "k");
  EXPECT_EQ(list[0].ownDecimalValue(), Decimal(-5000));
}

// --- Signs, percentages, pairs of numbers ---------------------------------------------------------------------------

TEST(NumberPasses, GroupNumbersWithWhatStandsBesideThem) {
  check(Reader("en_US"), rowsOf<Case>("Parsing/NumberPassTests", "groups"));
}

TEST(NumberPasses, LoseNothingOfRandomLines) {
  constexpr std::string_view kPieces[] = {"1", "0",   " ",   "  ",      "-",  "%",     "percent", "dp",  "k",
                                          "M", "e",   "e5",  "+",       "/",  "x",     "x2",      "0x",  "b1",
                                          "F", "(",   ")",   ":",       ",",  ".",     "½",       "two", "five",
                                          "",  "and", "1,5", "hundred", "C4", "apple", "甲",      "😀",   "^"};
  std::mt19937 random(7);
  const auto before = foundation::setDiagnosticSink([](std::string_view) {});
  for (const std::string_view locale : {"en_US", "fr_FR", "ru_RU", "zh_CN"}) {
    const Reader reader(locale);
    for (int round = 0; round < 400; ++round) {
      std::string line;
      for (auto length = random() % 14; length > 0; --length) line += kPieces[random() % std::size(kPieces)];
      reader.listAfter("G26", line);
    }
  }
  foundation::setDiagnosticSink(before);
}

// --- Number words ---------------------------------------------------------------------------------------------------

TEST(NumberWords, CountWhereTheyMeanANumber) {
  check(Reader("en_US"), rowsOf<Case>("Parsing/NumberPassTests", "words"));
}

TEST(NumberWords, AreReadInOtherLanguages) {
  constexpr Case kGerman[] = {{"G10", "zweihundert + fünf", "200 _ + _ 5"}};
  check(Reader("de_DE"), kGerman);
  constexpr Case kRussian[] = {{"G10", "двадцать пять", "25"}};
  check(Reader("ru_RU"), kRussian);
}

TEST(NumberWords, KeepTheirValueWhereTheyStayWords) {
  const TokenList list = Reader("en_US").listAfter("G10", "seven dwarfs");
  const auto* metadata = list[0].metadataAs<NumberTokenMetadata>();
  ASSERT_NE(metadata, nullptr);
  EXPECT_EQ(metadata->decimalValue, Decimal(7));
  EXPECT_TRUE(metadata->representsNumberWord);
}

/// A token as far as fusing looks at it.
struct Piece {
  enum Kind { number, word, conjunction, blank, other } kind;
  Decimal value;
  std::string text;
};

std::vector<Piece> piecesOf(const TokenList& list) {
  std::vector<Piece> result;
  for (const Token& token : list) {
    const auto* metadata = token.metadataAs<NumberTokenMetadata>();
    if (token.is(TokenType::number)) {
      result.push_back(
          {metadata->representsNumberWord ? Piece::word : Piece::number, *token.ownDecimalValue(), token.stringValue});
    } else if (token.is(TokenType::conjunctionWord)) {
      result.push_back({Piece::conjunction, {}, token.stringValue});
    } else {
      result.push_back({token.is(TokenType::whitespace) ? Piece::blank : Piece::other, {}, token.stringValue});
    }
  }
  return result;
}

/// The first number that a number word follows takes it in; then all begins again from the start.
bool fuseFirstPair(std::vector<Piece>& pieces) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (pieces[i].kind != Piece::number && pieces[i].kind != Piece::word) continue;
    bool isJoined = false;
    std::size_t next = i + 1;
    while (next < pieces.size() && (pieces[next].kind == Piece::blank || pieces[next].kind == Piece::conjunction)) {
      isJoined = isJoined || pieces[next].kind == Piece::conjunction;
      ++next;
    }
    if (next == pieces.size() || pieces[next].kind != Piece::word) continue;
    const Decimal left = pieces[i].value;
    const Decimal right = pieces[next].value;
    Piece fused{Piece::word, right < left || isJoined ? left + right : left * right, ""};
    for (std::size_t j = i; j <= next; ++j) fused.text += pieces[j].text;
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(i), pieces.begin() + static_cast<std::ptrdiff_t>(next));
    pieces[i] = fused;
    return true;
  }
  return false;
}

std::string describe(const std::vector<Piece>& pieces) {
  std::string result;
  for (const Piece& piece : pieces) result += "[" + piece.text + "=" + piece.value.description() + "]";
  return result;
}

TEST(NumberWords, FuseAsPlainSweepsDo) {
  constexpr std::string_view kVocabulary[] = {"one",     "five", "twenty", "hundred", "thousand", "dozen",
                                              "million", "and",  "or",     "3",       "40",       "apples",
                                              "+",       "-",    "(",      "million", "5k",       "zero"};
  const Reader reader("en_US");
  std::mt19937 random(20);
  for (int round = 0; round < 600; ++round) {
    std::string line = "1 +";
    for (auto length = random() % 12 + 1; length > 0; --length) {
      line += " " + std::string(kVocabulary[random() % std::size(kVocabulary)]);
    }
    // The words as they are before the first fusion: those that fused are taken apart again.
    std::vector<Piece> pieces;
    const TokenList fused = reader.listAfter("G10", line);
    const std::function<void(const TokenList&)> unfuse = [&](const TokenList& list) {
      for (const Token& token : list) {
        if (token.is(TokenType::number) && token.subtokens) {
          unfuse(*token.subtokens);
        } else {
          for (Piece& piece : piecesOf(TokenList({token}))) pieces.push_back(std::move(piece));
        }
      }
    };
    unfuse(fused);
    while (fuseFirstPair(pieces)) {
    }
    EXPECT_EQ(describe(piecesOf(fused)), describe(pieces)) << line;
  }
}

std::string repeated(std::string_view piece, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += piece;
  return result;
}

std::size_t countOfNumbers(const TokenList& list) { return list.tokensOfType(TokenType::number).size(); }

TEST(NumberWords, FuseSixHundredTimesALine) {
  const Reader reader("en_US");
  EXPECT_EQ(countOfNumbers(reader.listAfter("G10", repeated("one ", 601))), 1U);
  EXPECT_EQ(countOfNumbers(reader.listAfter("G10", repeated("one ", 602))), 2U);
  EXPECT_EQ(countOfNumbers(reader.listAfter("G10", repeated("one + ", 9) + repeated("one ", 700))), 9U + 100U);
}

std::size_t depthOf(const TokenList& list) {
  std::size_t depth = 0;
  for (const Token& token : list) {
    if (token.subtokens) depth = std::max(depth, 1 + depthOf(*token.subtokens));
  }
  return depth;
}

TEST(NumberWords, NestWithinBounds) {
  const Reader reader("en_US");
  EXPECT_LE(depthOf(reader.listAfter("G10", repeated("one ", 700))), 40U);
  EXPECT_LE(depthOf(reader.listAfter("G10", repeated("1 ", 500) + "hundred")), 40U);
}

// --- Long lines -----------------------------------------------------------------------------------------------------

double secondsToParse(const Reader& reader, const std::string& line) {
  const auto start = std::chrono::steady_clock::now();
  reader.parse(line);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(NumberPasses, TakeTimeInProportionToTheLine) {
  const Reader english("en_US");
  const Reader french("fr_FR");
  const Reader chinese("zh_CN");
  const struct {
    const Reader* reader;
    std::string_view piece;
  } cases[] = {
      {&english, "one "},        {&english, "1 hundred + "}, {&english, "and "},      {&english, "one and and or "},
      {&english, "% "},          {&english, "5 % "},         {&english, "5%"},        {&english, "-"},
      {&english, "-5 "},         {&english, "1/2/"},         {&english, "2x3x"},      {&english, "a "},
      {&english, "e5 2e5 "},     {&english, "0x1 0xg "},     {&english, "k 5k "},     {&french, "1 1 "},
      {&french, "1,5 :"},        {&french, ": 1 1 1 1 1 1"}, {&french, "1,5 2,5 a "}, {&chinese, "甲k"},
      {&english, "five apples "}};
  const auto before = foundation::setDiagnosticSink([](std::string_view) {});
  for (const auto& c : cases) {
    const int few = static_cast<int>(5'000 / c.piece.size());
    const double small = secondsToParse(*c.reader, repeated(c.piece, few));
    const double large = secondsToParse(*c.reader, repeated(c.piece, few * 8));
    EXPECT_LT(large, 0.05 + small * 24) << c.piece << ": " << small << " s, then " << large << " s";
  }
  foundation::setDiagnosticSink(before);
}

}  // namespace
}  // namespace tavrine::testing
