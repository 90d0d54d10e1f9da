#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenListEnumerationCounterComplainer.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeCache.h"
#include "Tests/Parsing/TokenPrinting.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

/// Cuts a line into single characters: digits are numbers, letters words, "(" and ")" brackets, "f" and "j" the names
/// of functions, "?" a question mark, the rest operators.
Token tokenOfCharacter(char c, std::uint32_t location) {
  const NSRange range{location, 1};
  const std::string text(1, c);
  switch (c) {
    case ' ':
      return {TokenType::whitespace, text, range};
    case '(':
      return {TokenType::bracket, TokenSubType::openBracket, text, range};
    case ')':
      return {TokenType::bracket, TokenSubType::closeBracket, text, range};
    case 'f':
      return {TokenType::functionName, text, range};
    case 'j':
      return {TokenType::javascriptFunctionName, text, range};
    case ',':
      return {TokenType::comma, text, range};
    case 'U':
      return {TokenType::unit, text, range};
    case 'C':
      return {TokenType::converter, text, range};
    case 'I':
      return {TokenType::conditionalKeyword, TokenSubType::conditionalKeywordIf, text, range};
    case 'T':
      return {TokenType::conditionalKeyword, TokenSubType::conditionalKeywordThen, text, range};
    case 'E':
      return {TokenType::conditionalKeyword, TokenSubType::conditionalKeywordElse, text, range};
    case '!':
      return {TokenType::error, text, range};
    default:
      break;
  }
  if (c >= '0' && c <= '9') return {TokenType::number, TokenSubType::positiveNumber, text, range};
  if (c >= 'a' && c <= 'z') return {TokenType::wordComment, text, range};
  return {TokenType::operator_, text, range};
}

TokenList lineOf(std::string_view line) {
  std::vector<Token> tokens;
  for (std::size_t i = 0; i < line.size(); ++i) {
    tokens.push_back(tokenOfCharacter(line[i], static_cast<std::uint32_t>(i)));
  }
  return TokenList(std::move(tokens));
}

/// The texts of the tokens with "|" between; the inside of a fused token in brackets of its own: "1|+|<(|2|)>".
std::string shapeOf(const TokenList& list) {
  std::string result;
  for (const Token& token : list) {
    if (!result.empty()) result += '|';
    result += token.subtokens ? "<" + shapeOf(*token.subtokens) + ">" : token.stringValue;
  }
  return result;
}

const Token noSuchToken(TokenType::number, "nowhere", NSRange{900, 7});

// --- Buffer ---------------------------------------------------------------------------------------------------------

/// Random edits at wandering places: the gap must never be visible.
TEST(TokenBufferTests, agreesWithAPlainArray) {
  std::mt19937 random(7);
  TokenBuffer buffer;
  std::vector<Token> model;
  for (std::uint32_t step = 0; step < 2'000; ++step) {
    const Token token(TokenType::number, std::to_string(step), NSRange{step, 1});
    const std::size_t at = model.empty() ? 0 : random() % model.size();
    const std::size_t run = model.empty() ? 0 : std::min<std::size_t>(random() % 4, model.size() - at);
    const auto position = model.begin() + static_cast<std::ptrdiff_t>(at);
    switch (random() % 5) {
      case 0:
      case 1:
        buffer.insert(at, token);
        model.insert(position, token);
        break;
      case 2:
        buffer.append(token);
        model.push_back(token);
        break;
      case 3:
        if (run == 0) break;
        buffer.replace(at, run, token);
        *model.erase(position, position + static_cast<std::ptrdiff_t>(run) - 1) = token;
        break;
      default:
        buffer.erase(at, run);
        model.erase(position, position + static_cast<std::ptrdiff_t>(run));
    }
    ASSERT_EQ(std::vector<Token>(buffer.begin(), buffer.end()), model) << step;
    if (model.empty()) continue;
    ASSERT_EQ(buffer.indexOfAddress(buffer[at % model.size()]), at % model.size());
  }
  const TokenBuffer copy(buffer);
  EXPECT_EQ(std::vector<Token>(copy.begin(), copy.end()), model);
  const auto contiguous = buffer.contiguous();
  EXPECT_EQ(std::vector<Token>(contiguous.begin(), contiguous.end()), model);
  EXPECT_EQ(buffer.indexOfAddress(noSuchToken), std::nullopt);
}

// --- Types ----------------------------------------------------------------------------------------------------------

TEST(TokenListTests, remembersTypes) {
  TokenList list = lineOf("1+2");
  EXPECT_TRUE(list.onlyTypesHaveBeenPresentIn(TokenTypeSet::numbersAndOperators));
  EXPECT_TRUE(list.replace(list[1], Token(TokenType::comma, ",", NSRange::zero)));
  EXPECT_TRUE(list.typePrecheck(TokenType::operator_));  // it was there once
  EXPECT_TRUE(list.allTypesHaveBeenPresentIn({TokenType::comma, TokenType::number, TokenType::operator_}));
  EXPECT_FALSE(list.anyTypesHaveBeenPresentIn(TokenTypeSet::unitSet));
  EXPECT_FALSE(TokenList(list).typePrecheck(TokenType::operator_));  // a copy knows what it has

  // Of what is inside others, only what stands in brackets, declarations and functions counts.
  const Token inBrackets = lineOf("(1)").completeSlice().embedInContainerToken(TokenType::subexpression);
  const Token inUnit = lineOf("2U").completeSlice().embedInContainerToken(TokenType::unitExpression);
  const TokenList nested({inBrackets, inUnit});
  EXPECT_TRUE(nested.typePrecheck(TokenType::bracket));
  EXPECT_FALSE(nested.typePrecheck(TokenType::unit));
  EXPECT_TRUE(nested.typesEverPresentAtAnyDepth().contains(TokenType::unit));
}

TEST(TokenListTests, summarisesWhatIsThere) {
  TokenList list = lineOf("f(1+(2))+C");
  list.wrapBracketsInSubexpressions();
  list.append(lineOf("3U").completeSlice().embedInContainerToken(TokenType::rate));
  const TokenTypeCache cache(list);
  EXPECT_EQ(cache.countOf(TokenType::number), 2u);  // the rate keeps its own to itself
  EXPECT_EQ(cache.countOf(TokenType::bracket), 4u);
  EXPECT_TRUE(cache.tokenTypeCache.contains(TokenType::rate));
  EXPECT_FALSE(cache.tokenTypeCache.contains(TokenType::unit));
  EXPECT_TRUE(cache.tokenSubtypeCache.contains(TokenSubType::openBracket));
  EXPECT_FALSE(cache.tokenSubtypeCache.contains(TokenSubType::notSpecified));
  EXPECT_EQ(cache.functionNames, StringSet{"f"});
}

// --- Looking up -----------------------------------------------------------------------------------------------------

TEST(TokenListTests, findsTokensByPlace) {
  const TokenList list = lineOf("1+2+3");
  for (std::size_t i = 0; i < list.count(); ++i) EXPECT_EQ(list.indexOf(Token(list[i])), i);
  EXPECT_EQ(list.indexOf(noSuchToken), std::nullopt);
  // The same place, another text.
  EXPECT_EQ(list.indexOf(Token(TokenType::number, TokenSubType::positiveNumber, "9", NSRange{2, 1})), std::nullopt);

  // Tokens that stand nowhere hide from a search by place, and are found all the same.
  std::vector<Token> mixed(list.begin(), list.end());
  mixed.insert(mixed.begin() + 3, TokenFactory::numberWith(7));
  mixed.push_back(TokenFactory::numberWith(8));
  const TokenList unordered(mixed);
  for (std::size_t i = 0; i < mixed.size(); ++i) EXPECT_EQ(unordered.indexOf(mixed[i]), i) << i;
  // Equal tokens that stand nowhere: each still knows its own place.
  const TokenList twins({TokenFactory::numberWith(7), TokenFactory::numberWith(7)});
  EXPECT_EQ(twins.indexOf(twins[1]), 1u);
}

TEST(TokenListTests, givesNeighbours) {
  const TokenList list = lineOf("1 +a 2");
  const Token& plus = list[2];
  EXPECT_EQ(list.tokenBefore(plus)->stringValue, " ");
  EXPECT_EQ(list.tokenBefore(plus, true)->stringValue, "1");
  EXPECT_EQ(list.tokenAfter(plus, true, TokenType::wordComment)->stringValue, "2");
  EXPECT_EQ(list.tokenAfter(list[5]), nullptr);
  EXPECT_EQ(list.tokenBefore(list[0]), nullptr);
  EXPECT_EQ(list.tokenAfter(noSuchToken), nullptr);

  EXPECT_EQ(list.tokenBeforeMustBe(plus, TokenType::number, true)->stringValue, "1");
  EXPECT_EQ(list.tokenBeforeMustBe(plus, TokenType::number), nullptr);
  EXPECT_EQ(list.tokenBeforeMustBe(plus, TokenType::unit, true), nullptr);
  EXPECT_EQ(list.tokenNeighbouring(list[0], TokenType::operator_, true)->stringValue, "+");
  EXPECT_EQ(list.neighboursToToken(plus, TokenTypeSet::noTypes, true).size(), 2u);
  EXPECT_EQ(list.neighboursToToken(plus, TokenType::number, true).size(), 1u);
  EXPECT_FALSE(list.hasMeaninglessNeighbours(plus));
  EXPECT_TRUE(list.hasMeaninglessNeighbours(list[5]));
  EXPECT_FALSE(lineOf("1").hasMeaninglessNeighbours(lineOf("1")[0]));

  // A neighbour that overlaps by range is none.
  const TokenList overlapping(
      {Token(TokenType::number, "12", NSRange{0, 2}), Token(TokenType::unit, "m", NSRange{1, 1})});
  EXPECT_EQ(overlapping.tokenAfterMustBe(overlapping[0], TokenType::unit), nullptr);
  EXPECT_EQ(overlapping.tokenBeforeMustBe(overlapping[1], TokenType::number), nullptr);
}

TEST(TokenListTests, tellsWhatALineRestsOn) {
  struct Row {
    std::string_view line, last, only, answers;
  };
  for (const Row& row : rowsOf<Row>("Parsing/TokenListTests", "tellsWhatALineRestsOn")) {
    const TokenList list = lineOf(row.line);
    const auto text = [](const Token* token) { return token != nullptr ? token->stringValue : ""; };
    EXPECT_EQ(text(list.lastMeaningfulToken()), row.last) << row.line;
    EXPECT_EQ(text(list.onlyMeaningfulToken()), row.only) << row.line;
    EXPECT_EQ(TokenList(list.validAnswerTokens()).rebuiltExpression(), row.answers) << row.line;
    EXPECT_EQ(list.trailingConverter() != nullptr, row.last == "C") << row.line;
  }
  TokenList padded = lineOf("  1 2 ");
  padded.trimWhitespace();
  EXPECT_EQ(padded.rebuiltExpression(), "1 2");
  TokenList blank = lineOf("   ");
  blank.trimWhitespace();
  EXPECT_TRUE(blank.isEmpty());
}

// --- Slices ---------------------------------------------------------------------------------------------------------

TEST(TokenListTests, slices) {
  const TokenList list = lineOf("1+2-3");
  const TokenSlice slice = list.sliceFrom(list[1], list[3]);
  EXPECT_EQ(slice.stringValue(), "+2-");
  EXPECT_EQ(slice.range(), (NSRange{1, 3}));
  EXPECT_EQ(list.sliceFrom(list[3], list[1]).tokens, slice.tokens);
  EXPECT_EQ(slice.endIndex, 3u);
  EXPECT_EQ(TokenSlice().range(), NSRange::zero);

  EXPECT_EQ(list.sliceForExpressionRange({2, 2})->stringValue(), "2-");
  EXPECT_EQ(list.sliceForExpressionRange({4, 90})->stringValue(), "3");
  EXPECT_EQ(list.sliceForExpressionRange({5, 1}), std::nullopt);
  EXPECT_EQ(list.sliceForExpressionRange({2, 0}), std::nullopt);
}

TEST(TokenListTests, findsPhrases) {
  const TokenList list = lineOf("a b  cd+e");
  std::vector<std::string> tried;
  const auto phrase = list.findPhraseBeginningWith(list[0], TokenType::wordComment, [&](const TokenSlice& slice) {
    tried.push_back(slice.stringValue());
    return slice.count() == 3;
  });
  EXPECT_EQ(tried, (std::vector<std::string>{"a b  cd", "a b  c", "a b"}));
  EXPECT_EQ(phrase->endIndex, 2u);
  // The way that looks at texts alone tries the same.
  std::vector<std::string> texts;
  EXPECT_EQ(list.findPhraseTextBeginningWith(0, TokenType::wordComment,
                                             [&](std::string_view text) {
                                               texts.emplace_back(text);
                                               return false;
                                             }),
            std::nullopt);
  EXPECT_EQ(texts, tried);
  tried.clear();
  (void)list.findPhraseBeginningWith(
      list[0], TokenType::wordComment,
      [&](const TokenSlice& slice) { return tried.push_back(slice.stringValue()), false; }, 1);
  EXPECT_EQ(tried, std::vector<std::string>{"a b"});

  EXPECT_EQ(list.sliceBeginningWith(list[0], "A B C")->stringValue(), "a b  c");
  EXPECT_EQ(list.sliceBeginningWith(list[0], "a c"), std::nullopt);
  EXPECT_EQ(list.sliceBeginningWith(list[8], "e f"), std::nullopt);
  EXPECT_EQ(list.slicesFrom(list[0], TokenType::wordComment, 3).size(), 2u);
}

// --- Editing --------------------------------------------------------------------------------------------------------

TEST(TokenListTests, givesPlacesToTokensWithoutOne) {
  TokenList list = lineOf("1+2");
  EXPECT_TRUE(list.replace(list[2], TokenFactory::numberWith(345)));
  EXPECT_EQ(list[2].range, (NSRange{2, 3}));
  list.insertAfter(TokenFactory::numberWith(67), list[0]);
  EXPECT_EQ(list[1].range, (NSRange{1, 2}));
  list.insertBefore(TokenFactory::numberWith(8), list[0]);
  EXPECT_EQ(list[0].range, (NSRange{0, 1}));
  EXPECT_EQ(shapeOf(list), "8|1|67|+|345");
  for (std::size_t i = 0; i < list.count(); ++i) EXPECT_EQ(list.indexOf(Token(list[i])), i);
  const std::uint64_t before = list.modificationCount();
  EXPECT_FALSE(list.replace(noSuchToken, Token()));
  list.insertAfter(Token(), noSuchToken);
  EXPECT_EQ(list.modificationCount(), before);
}

TEST(TokenListTests, fuses) {
  TokenList list = lineOf("12+34");
  list.fuse(list[0], list[1]);
  EXPECT_EQ(shapeOf(list), "12|+|3|4");
  EXPECT_EQ(list[0].range, (NSRange{0, 2}));
  list.fuse(list[3], list[3]);
  EXPECT_EQ(list[3].range, (NSRange{4, 1}));
  list.fuse(list[0], noSuchToken);
  EXPECT_EQ(list.count(), 4u);
  list.fuseWithCommonlyTypedNeighbours(list[2]);
  EXPECT_EQ(shapeOf(list), "12|+|34");
  list.fuseWithCommonlyTypedNeighbours(list[1]);
  EXPECT_EQ(list.count(), 3u);

  const Token fused = list.replace(list.slice(0, 1), TokenType::rate, nullptr, true);
  EXPECT_EQ(fused.subtokens->count(), 2u);
  EXPECT_EQ(fused.range, (NSRange{0, 3}));
  EXPECT_EQ(list.replace(list[1], TokenType::unit)->stringValue, "34");

  TokenList words = lineOf("a b,c+d");
  words.compoundSequentialTokens(TokenType::wordComment, TokenType::label, TokenType::comma);
  EXPECT_EQ(shapeOf(words), "<a| |b|,|c>|+|d");
  words = lineOf("a b,c");
  words.compoundSequentialTokens(TokenType::wordComment, TokenType::wordComment, TokenTypeSet::noTypes);
  EXPECT_EQ(shapeOf(words), "<a| |b>|,|c");
}

TEST(TokenListTests, turnsTokensBackIntoComments) {
  TokenList list = lineOf("1(2)");
  list.replace(list.slice(1, 3), list.slice(1, 3).embedInContainerToken(TokenType::subexpression));
  list.deidentify(list[0], /*retainSubtype=*/true);
  EXPECT_TRUE(list[0].is(TokenType::wordComment, TokenSubType::positiveNumber));
  list.deidentify(list[1], /*retainSubtype=*/true);
  EXPECT_TRUE(list[1].is(TokenType::wordComment, TokenSubType::notSpecified));
  for (const Token& inside : *list[1].subtokens)
    EXPECT_TRUE(inside.is(TokenType::wordComment, TokenSubType::notSpecified));
  EXPECT_EQ(list.rebuiltExpression(), "1(2)");
}

TEST(TokenListTests, filtersAtEveryDepth) {
  TokenList list = lineOf("a(1a2)a");
  list.wrapBracketsInSubexpressions();
  list.filterOutAllTokensOf(TokenType::wordComment, TokenType::subexpression);
  EXPECT_EQ(shapeOf(list), "<(|1|a|2|)>");
  list.filterOutAllTokensOf(TokenType::wordComment);
  EXPECT_EQ(shapeOf(list), "<(|1|2|)>");
  const std::uint64_t before = list.modificationCount();
  list.filterOutAllTokensPassingTest([](const Token& token, const Token*) { return token.is(TokenType::unit); });
  EXPECT_EQ(list.modificationCount(), before);
}

TEST(TokenListTests, recalculatesRanges) {
  TokenList list({Token(TokenType::number, "10", NSRange{40, 1}),
                  lineOf("(e)").completeSlice().embedInContainerToken(TokenType::subexpression)});
  list.replaceAt(0, Token(TokenType::number, "😀", NSRange{40, 1}));
  const TokenList fresh = list.listWithRecalculatedTokenRanges(3, false);
  EXPECT_EQ(fresh[0].range, (NSRange{3, 2}));
  EXPECT_EQ(fresh[1].range, (NSRange{5, 3}));
  EXPECT_EQ((*fresh[1].subtokens)[0].range, (NSRange{5, 1}));
  EXPECT_EQ(list.listWithRecalculatedTokenRanges(-9, false)[0].range.location, 0u);
  Token renamed = list[1];
  renamed.stringValue = "stale";
  EXPECT_EQ(TokenList({renamed}).listWithRecalculatedTokenRanges(0, true)[0].stringValue, "(e)");
}

// --- Brackets -------------------------------------------------------------------------------------------------------

TEST(TokenListTests, wrapsBrackets) {
  struct Row {
    std::string_view line, want;
  };
  for (const Row& row : rowsOf<Row>("Parsing/TokenListTests", "wrapsBrackets")) {
    TokenList list = lineOf(row.line);
    list.wrapBracketsInSubexpressions();
    EXPECT_EQ(shapeOf(list), row.want) << row.line;
    EXPECT_EQ(list.rebuiltExpression(), row.line);
  }

  TokenList inComment({lineOf("(1)").completeSlice().embedInContainerToken(TokenType::bracketComment),
                       lineOf("(1)").completeSlice().embedInContainerToken(TokenType::variableDeclaration)});
  inComment.wrapBracketsInSubexpressions();
  EXPECT_EQ(shapeOf(inComment), "<(|1|)>|<<(|1|)>>");
  EXPECT_TRUE(inComment.typePrecheck(TokenType::subexpression));
}

TEST(TokenListTests, boundsTheNestingOfBrackets) {
  const auto nested = [](std::size_t depth) { return std::string(depth, '(') + "1" + std::string(depth, ')'); };
  TokenList list = lineOf(nested(4));
  EXPECT_EQ(list.wrapBracketsInSubexpressions(2), 4u);
  EXPECT_EQ(shapeOf(list), "<(|<(|(|(|1|)|)|)>|)>");
  TokenList deep = lineOf(nested(20'000));
  EXPECT_EQ(deep.wrapBracketsInSubexpressions(), 20'000u);
  EXPECT_EQ(deep.rebuiltExpression(), nested(20'000));
}

TEST(TokenListTests, letsGoOfAnyNesting) {
  TokenListRef inner = TokenList::frozen(std::vector<Token>{Token()});
  for (int depth = 0; depth < 100'000; ++depth) {
    inner = TokenList::frozen({Token(TokenType::subexpression, TokenSubType::notSpecified, "", NSRange::zero, inner)});
  }
  const TokenList copy(*inner);
  EXPECT_EQ(inner.use_count(), 1);
  inner.reset();
  EXPECT_EQ(copy.count(), 1u);
}

// --- Walks ----------------------------------------------------------------------------------------------------------

TEST(TokenListTests, walksOverWhatWasThere) {
  TokenList list = lineOf("1+2+3");
  std::string seen;
  list.enumerateTokensOfType(TokenType::number, false, [&](const Token& token, bool&) {
    seen += token.stringValue;
    list.removeAll();
  });
  EXPECT_EQ(seen, "123");

  list = lineOf("1+2+3");
  seen.clear();
  list.enumerateTokensOfType(TokenType::number, true, [&](const Token& token, bool& stop) {
    seen += token.stringValue;
    stop = seen.size() == 2;
  });
  EXPECT_EQ(seen, "32");

  // Editing while walking: each replaced token is handed over all the same, and no longer found.
  list = lineOf("123");
  int found = 0;
  list.applyModificationsToAllListsWithTokensPassingTest(
      [](const Token& token, const Token*) { return token.is(TokenType::number); }, nullptr, false, false,
      [&](const Token& token, TokenList& owner, const Token*) {
        if (!owner.indexOf(token)) return;
        ++found;
        owner.replace(owner.completeSlice(), Token(TokenType::comma, "all", NSRange{0, 3}));
      });
  EXPECT_EQ(found, 1);
  EXPECT_EQ(shapeOf(list), "all");
}

TEST(TokenListTests, visitsSubtokensFirst) {
  TokenList list = lineOf("1+(2*(3))");
  list.wrapBracketsInSubexpressions();
  const auto visit = [&](bool reversed) {
    std::string order;
    std::as_const(list).enumerateAllTokens(reversed,
                                           [&](const Token& token, const TokenList& owner, const Token* parent, bool&) {
                                             EXPECT_TRUE(owner.indexOf(token));
                                             EXPECT_EQ(parent == nullptr, &owner == &list);
                                             order += token.subtokens ? "<>" : token.stringValue;
                                           });
    return order;
  };
  EXPECT_EQ(visit(false), "1+(2*(3)<>)<>");
  EXPECT_EQ(visit(true), "))3(<>*2(<>+1");
  std::vector<std::size_t> sizes;
  list.enumerateSublists(false, true,
                         [&](const TokenList& sublist, const Token*, bool&) { sizes.push_back(sublist.count()); });
  EXPECT_EQ(sizes, (std::vector<std::size_t>{3, 5, 3}));
  EXPECT_EQ(list.allTokensOfType(TokenType::number).size(), 3u);
}

TEST(TokenListTests, editsCopiesOfSublists) {
  TokenList list = lineOf("1+(2*(3))");
  list.wrapBracketsInSubexpressions();
  const TokenList before(list);
  list.performEditsToListsWith(TokenType::number, false, [](const Token& token, TokenList& owner, const Token* parent) {
    if (parent != nullptr) owner.replace(token, Token(TokenType::unit, "U", NSRange::zero));
  });
  EXPECT_EQ(shapeOf(list), "1|+|<(|U|*|<(|U|)>|)>");
  EXPECT_EQ(shapeOf(before), "1|+|<(|2|*|<(|3|)>|)>");  // what others share has not changed
  EXPECT_TRUE(list.typePrecheck(TokenType::unit));
  EXPECT_EQ(list[2].stringValue, "(2*(3))");

  // A parent is seen with its edited inside.
  std::string seenInside;
  list.applyModificationsToAllListsWithTokensPassingTest(
      [](const Token& token, const Token*) { return token.is(TokenType::unit) || token.is(TokenType::subexpression); },
      nullptr, false, false,
      [&](const Token& token, TokenList& owner, const Token*) {
        if (token.subtokens) {
          seenInside += shapeOf(*token.subtokens) + ";";
        } else {
          owner.replace(token, Token(TokenType::comma, ",", NSRange::zero));
        }
      });
  EXPECT_EQ(seenInside, "(|,|);(|,|*|<(|,|)>|);");

  // No edit, no copy.
  const TokenListRef inside = list[2].subtokens;
  list.performEditsToListsWith(TokenType::comma, false, [](const Token&, TokenList&, const Token*) {});
  EXPECT_EQ(list[2].subtokens, inside);
  list.performEditsToListsWith(TokenType::comma, true, [](const Token& token, TokenList& owner, const Token*) {
    owner.replace(token, Token(TokenType::comma, "wide", NSRange{1, 4}));
  });
  EXPECT_EQ(list[2].range, (NSRange{2, 7}));
}

TEST(TokenListTests, complainsOfManyWalksAndOfPointlessOnes) {
  std::vector<std::string> lines;
  auto before = setDiagnosticSink([&lines](std::string_view line) { lines.emplace_back(line); });
  const auto walk = [](TokenList& list, int times) {
    while (times-- > 0) list.enumerateTokensOfType(TokenType::number, false, [](const Token&, bool&) {});
  };
  TokenList list = lineOf("1+2");
  {
    const TokenListEnumerationCounterComplainer silent(false, list);
    walk(list, 9);
    silent.complainIfNecessary();
    TokenListEnumerationCounterComplainer complainer(true, list);
    complainer.complainIfNecessary();
    EXPECT_TRUE(lines.empty());
    complainer.complainThreshold = 3;
    walk(list, 2);
    complainer.complainIfNecessary();
    walk(list, 1);
    list.removeAt(2);
    complainer.complainIfNecessary();
  }
  setDiagnosticSink(std::move(before));
  EXPECT_EQ(lines, (std::vector<std::string>{"Pointless scan for 1+2", "3 enumerations for 1+"}));
  EXPECT_FALSE(list.onEnumerateTokens) << "the hook goes with the complainer";
}

// --- Searches -------------------------------------------------------------------------------------------------------

TEST(TokenListTests, searches) {
  TokenList list = lineOf("a+(2*(3))");
  list.wrapBracketsInSubexpressions();
  const Token& inner = (*list[2].subtokens)[3];
  const Token three = (*inner.subtokens)[1];
  EXPECT_TRUE(list.containsToken(three));
  EXPECT_FALSE(list.containsToken(noSuchToken));
  EXPECT_EQ(list.findParentOf(three), &inner);
  EXPECT_EQ(list.findParentOf(three, true), &list[2]);
  EXPECT_EQ(list.findParentOf(three, true, TokenList::IndexRange{0, 1}), nullptr);
  EXPECT_EQ(list.scanForTokenWithTypes(TokenType::number)->stringValue, "2");
  EXPECT_EQ(list.scanForTokenWithTypes(TokenType::number, TokenType::subexpression), nullptr);

  EXPECT_EQ(list.tokenForCharacterIndex(1)->stringValue, "+");
  EXPECT_EQ(list.tokenForCharacterIndex(5), &list[2]);
  EXPECT_EQ(list.tokenForCharacterIndex(9), nullptr);
  EXPECT_EQ(list.tokenForCharacterIndex(9, false, true), &list[2]);
  EXPECT_EQ(lineOf("1 2").tokenForCharacterIndex(1, true), nullptr);
}

TEST(TokenListTests, sharesStringsBetweenThreads) {
  std::vector<Token> tokens = {Token(TokenType::wordComment, "Abc", NSRange{0, 3}),
                               Token(TokenType::whitespace, " ", NSRange{3, 1}),
                               lineOf("2U").completeSlice().embedInContainerToken(TokenType::unitExpression)};
  const TokenListRef list = TokenList::frozen(tokens);
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      if (&list->allStrings(true) != &list->allStrings(true)) ++wrong;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(list->allStrings(true), (StringSet{"abc", "2u"}));
  EXPECT_EQ(list->allStrings(false), (StringSet{"Abc", "2U"}));
}

// --- Cost -----------------------------------------------------------------------------------------------------------

/// Passes over long lines, some of whose tokens stand nowhere: ten times the tokens must not cost a hundred times.
TEST(TokenListTests, staysFarFromQuadratic) {
  const auto seconds = [](std::size_t count, bool withRanges) {
    std::vector<Token> tokens;
    for (std::size_t i = 0; i < count; ++i) {
      const NSRange range = withRanges ? NSRange{static_cast<std::uint32_t>(i), 1} : NSRange::zero;
      tokens.emplace_back(i % 2 == 0 ? TokenType::number : TokenType::comma, std::to_string(i), range);
    }
    TokenList list(std::move(tokens));
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < list.count(); ++i) (void)list.tokenAfterMustBe(list[i], TokenType::comma);
    // From the end to the start and back, replacing pairs.
    list.performEditsToListsWith(TokenType::comma, false, [&](const Token& token, TokenList& owner, const Token*) {
      if (const auto index = withRanges ? owner.indexOf(token) : std::nullopt; index && *index > 0) {
        owner.replace(owner.slice(*index - 1, *index), Token(TokenType::rate, "r", NSRange::zero));
      }
    });
    list.applyTransformationToTokensOfType(TokenType::rate, false, [](const Token& token) {
      return std::optional(Token(TokenType::unit, "u", token.range));
    });
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  for (const bool withRanges : {true, false}) {
    (void)seconds(1'000, withRanges);
    const double small = std::min(seconds(4'000, withRanges), seconds(4'000, withRanges));
    EXPECT_LT(seconds(40'000, withRanges), small * 40 + 0.05) << withRanges;
  }
}

}  // namespace
}  // namespace tavrine
