// Runs of tokens.

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>
#include <utility>

#include "Foundation/Diagnostics.h"
#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

TokenSlice TokenList::completeSlice() const { return isEmpty() ? TokenSlice{} : slice(0, count() - 1); }

TokenSlice TokenList::slice(std::size_t firstIndex, std::size_t lastIndex) const {
  if (isEmpty() || firstIndex > lastIndex || firstIndex >= count()) return {};
  lastIndex = std::min(lastIndex, count() - 1);
  const auto at = [this](std::size_t index) { return std::next(begin(), static_cast<std::ptrdiff_t>(index)); };
  return {std::vector<Token>(at(firstIndex), at(lastIndex + 1)), firstIndex, lastIndex};
}

TokenSlice TokenList::sliceFrom(const Token& startToken, const Token& endToken) const {
  const auto start = indexOf(startToken);
  const auto end = indexOf(endToken);
  if (!start || !end) {
    diagnose("Invalid tokens passed into slice creation method: " + describe(startToken) + ", " + describe(endToken));
    assert(false && "both ends of a slice are in the list");
    return {};
  }
  return slice(std::min(*start, *end), std::max(*start, *end));
}

std::optional<TokenSlice> TokenList::sliceForExpressionRange(NSRange range) const {
  std::size_t first = 0;
  if (isOrdered_) {
    // Only from the last token that begins before the range on can any token reach into it.
    const auto behind =
        std::upper_bound(begin(), end(), range.location,
                         [](std::uint32_t location, const Token& probe) { return location < probe.range.location; });
    first = static_cast<std::size_t>(behind - begin());
    if (first > 0) --first;
    while (first > 0 && tokens_[first - 1].range.intersects(range)) --first;
  }
  while (first < count() && !tokens_[first].range.intersects(range)) {
    if (isOrdered_ && tokens_[first].range.location >= range.upperBound()) return std::nullopt;
    ++first;
  }
  if (first == count()) return std::nullopt;
  std::size_t last = first;
  while (last + 1 < count() && tokens_[last + 1].range.intersects(range)) ++last;
  return slice(first, last);
}

std::vector<TokenSlice> TokenList::slicesFrom(const Token& startToken, const TokenTypeSet& withTokensIn,
                                              std::size_t maxTokensInSlice) const {
  std::vector<TokenSlice> result;
  const auto start = indexOf(startToken);
  if (!start) return result;
  auto next = indexAfter(*start, /*ignoreWhitespace=*/true);
  for (std::size_t tokenCount = 2; tokenCount <= maxTokensInSlice && next; ++tokenCount) {
    if (!withTokensIn.contains(tokens_[*next].type)) break;
    result.push_back(slice(*start, *next));
    next = indexAfter(*next, /*ignoreWhitespace=*/true);
  }
  return result;
}

std::optional<TokenSlice> TokenList::sliceBeginningWith(const Token& token, std::string_view phrase) const {
  const auto index = indexOf(token);
  if (!index) return std::nullopt;
  std::vector<std::string_view> words;
  for (const Lexeme& lexeme : Lexer::lexemesFor(phrase, Locale::current())) {
    if (lexeme.type != LexemeType::whitespace) words.push_back(lexeme.string);
  }
  return sliceBeginningWith(*index, words);
}

std::optional<TokenSlice> TokenList::sliceBeginningWith(std::size_t index,
                                                        std::span<const std::string_view> words) const {
  if (words.empty() || index >= count()) return std::nullopt;
  std::optional<std::size_t> at = index;
  std::size_t last = index;
  for (const std::string_view word : words) {
    if (!at || !equalsIgnoringCase(tokens_[*at].stringValue, word)) return std::nullopt;
    last = *at;
    at = indexAfter(last, /*ignoreWhitespace=*/true);
  }
  return slice(index, last);
}

namespace {

/// The indices of the last tokens of the phrases that begin at the index, shortest first.
std::vector<std::size_t> phraseEnds(const TokenList& list, std::size_t index, const TokenTypeSet& validTypes,
                                    std::size_t maximumWordCount) {
  std::vector<std::size_t> ends;
  auto next = list.indexAfter(index, /*ignoreWhitespace=*/true);
  while (next && ends.size() < maximumWordCount && validTypes.contains(list[*next].type)) {
    ends.push_back(*next);
    next = list.indexAfter(*next, /*ignoreWhitespace=*/true);
  }
  return ends;
}

}  // namespace

std::optional<TokenSlice> TokenList::findPhraseBeginningWith(const Token& token, const TokenTypeSet& validTypes,
                                                             FunctionRef<bool(const TokenSlice&)> handler,
                                                             std::size_t maximumWordCount) const {
  const auto index = indexOf(token);
  if (!index) return std::nullopt;
  const std::vector<std::size_t> ends = phraseEnds(*this, *index, validTypes, maximumWordCount);
  for (auto end = ends.rbegin(); end != ends.rend(); ++end) {
    TokenSlice candidate = slice(*index, *end);
    if (handler(candidate)) return candidate;
  }
  return std::nullopt;
}

std::optional<TokenSlice> TokenList::findPhraseTextBeginningWith(std::size_t index, const TokenTypeSet& validTypes,
                                                                 FunctionRef<bool(std::string_view text)> handler,
                                                                 std::size_t maximumWordCount) const {
  if (index >= count()) return std::nullopt;
  struct Phrase {
    std::size_t last = 0;    // the index of its last token
    std::size_t length = 0;  // of its text
  };
  std::array<Phrase, kMaximumPhraseWords> phrases;
  std::size_t phraseCount = 0;
  std::string text = tokens_[index].stringValue;
  for (std::size_t i = index + 1; i < count() && phraseCount < std::min(maximumWordCount, phrases.size()); ++i) {
    const Token& token = tokens_[i];
    if (!token.is(TokenType::whitespace) && !validTypes.contains(token.type)) break;
    text += token.stringValue;
    if (!token.is(TokenType::whitespace)) phrases[phraseCount++] = {i, text.size()};
  }
  while (phraseCount-- > 0) {
    const Phrase& phrase = phrases[phraseCount];
    if (handler(std::string_view(text).substr(0, phrase.length))) return slice(index, phrase.last);
  }
  return std::nullopt;
}

}  // namespace tavrine
