// What stands beside a token, and what a line rests on.

#include <algorithm>
#include <iterator>
#include <utility>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

bool isSteppedOver(const Token& token, bool ignoreWhitespace, const TokenTypeSet& ignoreTypes) {
  return (ignoreWhitespace && token.is(TokenType::whitespace)) || ignoreTypes.contains(token.type);
}

/// What tells nothing of the line's answer when it is looked for from the end.
constexpr TokenTypeSet kMeaningless =
    TokenTypeSet::nonMeaningfulTypes | TokenTypeSet::randomWords | TokenTypeSet::whitespaceSet;

}  // namespace

std::optional<std::size_t> TokenList::indexAfter(std::size_t index, bool ignoreWhitespace,
                                                 const TokenTypeSet& ignoreTypes) const {
  for (std::size_t i = index + 1; i < count(); ++i) {
    if (!isSteppedOver(tokens_[i], ignoreWhitespace, ignoreTypes)) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> TokenList::indexBefore(std::size_t index, bool ignoreWhitespace,
                                                  const TokenTypeSet& ignoreTypes) const {
  for (std::size_t i = std::min(index, count()); i-- > 0;) {
    if (!isSteppedOver(tokens_[i], ignoreWhitespace, ignoreTypes)) return i;
  }
  return std::nullopt;
}

const Token* TokenList::tokenAfter(std::size_t index, bool ignoreWhitespace, const TokenTypeSet& ignoreTypes) const {
  const auto after = indexAfter(index, ignoreWhitespace, ignoreTypes);
  return after ? &tokens_[*after] : nullptr;
}

const Token* TokenList::tokenBefore(std::size_t index, bool ignoreWhitespace, const TokenTypeSet& ignoreTypes) const {
  const auto before = indexBefore(index, ignoreWhitespace, ignoreTypes);
  return before ? &tokens_[*before] : nullptr;
}

const Token* TokenList::tokenAfter(const Token& token, bool ignoreWhitespace, const TokenTypeSet& ignoreTypes) const {
  const auto index = indexOf(token);
  return index ? tokenAfter(*index, ignoreWhitespace, ignoreTypes) : nullptr;
}

const Token* TokenList::tokenBefore(const Token& token, bool ignoreWhitespace, const TokenTypeSet& ignoreTypes) const {
  const auto index = indexOf(token);
  return index ? tokenBefore(*index, ignoreWhitespace, ignoreTypes) : nullptr;
}

const Token* TokenList::tokenAfterMustBe(std::size_t index, const TokenTypeSet& mustBe, bool ignoreWhitespace,
                                         const TokenTypeSet& ignoreTypes) const {
  if (!anyTypesHaveBeenPresentIn(mustBe) || index >= count()) return nullptr;
  const Token* after = tokenAfter(index, ignoreWhitespace, ignoreTypes);
  if (after == nullptr || !mustBe.contains(after->type)) return nullptr;
  return after->range.location >= tokens_[index].range.upperBound() ? after : nullptr;
}

const Token* TokenList::tokenBeforeMustBe(std::size_t index, const TokenTypeSet& mustBe, bool ignoreWhitespace,
                                          const TokenTypeSet& ignoreTypes) const {
  if (!anyTypesHaveBeenPresentIn(mustBe) || index >= count()) return nullptr;
  const Token* before = tokenBefore(index, ignoreWhitespace, ignoreTypes);
  if (before == nullptr || !mustBe.contains(before->type)) return nullptr;
  return before->range.upperBound() <= tokens_[index].range.location ? before : nullptr;
}

const Token* TokenList::tokenAfterMustBe(const Token& token, const TokenTypeSet& mustBe, bool ignoreWhitespace,
                                         const TokenTypeSet& ignoreTypes) const {
  if (!anyTypesHaveBeenPresentIn(mustBe)) return nullptr;
  const auto index = indexOf(token);
  return index ? tokenAfterMustBe(*index, mustBe, ignoreWhitespace, ignoreTypes) : nullptr;
}

const Token* TokenList::tokenBeforeMustBe(const Token& token, const TokenTypeSet& mustBe, bool ignoreWhitespace,
                                          const TokenTypeSet& ignoreTypes) const {
  if (!anyTypesHaveBeenPresentIn(mustBe)) return nullptr;
  const auto index = indexOf(token);
  return index ? tokenBeforeMustBe(*index, mustBe, ignoreWhitespace, ignoreTypes) : nullptr;
}

const Token* TokenList::tokenNeighbouring(const Token& token, const TokenTypeSet& mustBe, bool ignoreWhitespace,
                                          const TokenTypeSet& ignoreTypes) const {
  if (!anyTypesHaveBeenPresentIn(mustBe)) return nullptr;
  const auto index = indexOf(token);
  if (!index) return nullptr;
  const Token* before = tokenBeforeMustBe(*index, mustBe, ignoreWhitespace, ignoreTypes);
  return before != nullptr ? before : tokenAfterMustBe(*index, mustBe, ignoreWhitespace, ignoreTypes);
}

std::vector<Token> TokenList::neighboursToToken(const Token& token, const TokenTypeSet& ofTypes, bool ignoreWhitespace,
                                                const TokenTypeSet& ignoreTypes,
                                                FunctionRef<bool(const Token&)> passingTest) const {
  std::vector<Token> result;
  const auto index = indexOf(token);
  if (!index) return result;
  for (const Token* neighbour :
       {tokenBefore(*index, ignoreWhitespace, ignoreTypes), tokenAfter(*index, ignoreWhitespace, ignoreTypes)}) {
    if (neighbour == nullptr || (!ofTypes.isEmpty() && !ofTypes.contains(neighbour->type))) continue;
    if (passingTest(*neighbour)) result.push_back(*neighbour);
  }
  return result;
}

std::vector<Token> TokenList::neighboursToToken(const Token& token, const TokenTypeSet& ofTypes, bool ignoreWhitespace,
                                                const TokenTypeSet& ignoreTypes) const {
  return neighboursToToken(token, ofTypes, ignoreWhitespace, ignoreTypes, [](const Token&) { return true; });
}

std::vector<Token> TokenList::neighboursOfSlice(const TokenSlice& slice, bool ignoreWhitespace,
                                                const TokenTypeSet& ignoreTypes) const {
  std::vector<Token> result;
  if (slice.isEmpty()) return result;
  if (const Token* before = tokenBefore(slice.startIndex, ignoreWhitespace, ignoreTypes)) result.push_back(*before);
  if (const Token* after = tokenAfter(slice.endIndex, ignoreWhitespace, ignoreTypes)) result.push_back(*after);
  return result;
}

bool TokenList::hasMeaninglessNeighbours(const Token& token) const {
  const std::vector<Token> neighbours = neighboursToToken(token, TokenTypeSet::noTypes, /*ignoreWhitespace=*/true);
  return !neighbours.empty() && std::all_of(neighbours.begin(), neighbours.end(), [](const Token& neighbour) {
    return TokenTypeSet::nonMeaningfulTypes.contains(neighbour.type);
  });
}

// --- Runs beside a token ------------------------------------------------------------------------------------------

std::vector<Token> TokenList::scanLeft(const Token& fromToken, const TokenTypeSet& forNeighboursOfTypes,
                                       const TokenTypeSet& ignoringTokensWithTypes,
                                       const TokenSubTypeSet& ignoreSubTypes, bool reversed) const {
  std::vector<Token> result;
  const auto index = indexOf(fromToken);
  for (std::size_t i = index.value_or(0); i-- > 0;) {
    const Token& token = tokens_[i];
    if (ignoringTokensWithTypes.contains(token.type) || ignoreSubTypes.contains(token.subType)) continue;
    if (!forNeighboursOfTypes.contains(token.type)) break;
    result.push_back(token);
  }
  if (reversed) std::reverse(result.begin(), result.end());
  return result;
}

std::vector<Token> TokenList::scanRight(const Token& fromToken, const TokenTypeSet& forNeighboursOfTypes,
                                        const TokenTypeSet& ignoringTokensWithTypes,
                                        const TokenSubTypeSet& ignoreSubTypes) const {
  std::vector<Token> result;
  const auto index = indexOf(fromToken);
  if (!index) return result;
  for (std::size_t i = *index + 1; i < count(); ++i) {
    const Token& token = tokens_[i];
    if (ignoringTokensWithTypes.contains(token.type) || ignoreSubTypes.contains(token.subType)) continue;
    if (!forNeighboursOfTypes.contains(token.type)) break;
    result.push_back(token);
  }
  return result;
}

std::vector<Token> TokenList::tokensAfter(const Token& token) const {
  return gatherForwardsFrom(token, TokenTypeSet::noTypes);
}

std::vector<Token> TokenList::gatherForwardsFrom(const Token& token, const TokenTypeSet& upToTokenWithTypes) const {
  std::vector<Token> result;
  const auto index = indexOf(token);
  if (!index) return result;
  for (std::size_t i = *index + 1; i < count() && !upToTokenWithTypes.contains(tokens_[i].type); ++i) {
    result.push_back(tokens_[i]);
  }
  return result;
}

std::vector<Token> TokenList::gatherBackwardsFrom(const Token& token, const TokenTypeSet& upToTokenWithTypes) const {
  const auto index = indexOf(token);
  if (!index) return {};
  std::size_t first = *index;
  while (first > 0 && !upToTokenWithTypes.contains(tokens_[first - 1].type)) --first;
  return {std::next(begin(), static_cast<std::ptrdiff_t>(first)),
          std::next(begin(), static_cast<std::ptrdiff_t>(*index))};
}

std::optional<TokenSlice> TokenList::scanFromTokenAfter(const Token& token, const TokenTypeSet& upToNextTokenMatching,
                                                        bool ignoreWhitespace) const {
  const auto index = indexOf(token);
  if (!index) return std::nullopt;
  const auto first = indexAfter(*index, ignoreWhitespace);
  if (!first) return std::nullopt;
  std::size_t end = *first;
  while (end < count() && !upToNextTokenMatching.contains(tokens_[end].type)) ++end;
  if (end == count() || end == *first) return std::nullopt;
  std::size_t last = end - 1;
  while (ignoreWhitespace && last > *first && tokens_[last].is(TokenType::whitespace)) --last;
  return slice(*first, last);
}

// --- What the line rests on -----------------------------------------------------------------------------------------

const Token* TokenList::lastMeaningfulToken() const {
  const Token* lastToken = last();
  if (lastToken == nullptr || !TokenTypeSet::nonMeaningfulTypes.contains(lastToken->type)) return lastToken;
  return tokenBefore(count() - 1, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords);
}

const Token* TokenList::onlyMeaningfulToken() const {
  const Token* token = lastMeaningfulToken();
  if (token == nullptr) return nullptr;
  return tokenBefore(*token, /*ignoreWhitespace=*/true, kMeaningless) == nullptr ? token : nullptr;
}

const Token* TokenList::getLastToken(bool ignoringWhitespace) const { return tokenBefore(count(), ignoringWhitespace); }

const Token* TokenList::trailingConverter() const {
  if (!typePrecheck(TokenType::converter)) return nullptr;
  const Token* token = lastMeaningfulToken();
  return token != nullptr && token->is(TokenType::converter) ? token : nullptr;
}

std::vector<Token> TokenList::validAnswerTokens() const {
  std::vector<Token> errors = tokensOfType(TokenType::error);
  return errors.empty() ? tokensOfType(TokenTypeSet::validAnswerProducingTypes) : errors;
}

const Token* TokenList::lastValidAnswerToken() const {
  const Token* error = lastTokenOfType(TokenType::error);
  return error != nullptr ? error : lastTokenOfType(TokenTypeSet::validAnswerProducingTypes);
}

void TokenList::trimWhitespace() {
  if (!typePrecheck(TokenType::whitespace)) return;
  const auto isBlank = [this](std::size_t index) { return tokens_[index].is(TokenType::whitespace); };
  std::size_t end = count();
  while (end > 0 && isBlank(end - 1)) --end;
  if (end < count()) removeRun(end, count() - 1);
  std::size_t start = 0;
  while (start < count() && isBlank(start)) ++start;
  if (start > 0) removeRun(0, start - 1);
}

// --- Conditionals ---------------------------------------------------------------------------------------------------

std::optional<TokenList> TokenList::clauseBehind(const TokenSubTypeSet& keywords, TokenSubType endKeyword) const {
  if (!typePrecheck(TokenType::conditionalKeyword)) return std::nullopt;
  const auto isKeyword = [](const Token& token, const TokenSubTypeSet& subTypes) {
    return token.is(TokenType::conditionalKeyword) && subTypes.contains(token.subType);
  };
  const auto start = std::find_if(begin(), end(), [&](const Token& token) { return isKeyword(token, keywords); });
  if (start == end()) return std::nullopt;
  const auto first = std::next(start);
  const auto past = std::find_if(first, end(), [&](const Token& token) { return isKeyword(token, endKeyword); });
  if (first == past) return std::nullopt;
  return TokenList(std::vector<Token>(first, past));
}

std::optional<TokenList> TokenList::ifClause() const {
  // Without a "then" the "else" ends the condition.
  const bool hasThen = std::any_of(begin(), end(), [](const Token& token) {
    return token.is(TokenType::conditionalKeyword, TokenSubType::conditionalKeywordThen);
  });
  return clauseBehind({TokenSubType::conditionalKeywordIf, TokenSubType::conditionalKeywordUnless},
                      hasThen ? TokenSubType::conditionalKeywordThen : TokenSubType::conditionalKeywordElse);
}

std::optional<TokenList> TokenList::thenClause() const {
  return clauseBehind(TokenSubType::conditionalKeywordThen, TokenSubType::conditionalKeywordElse);
}

std::optional<TokenList> TokenList::elseClause() const {
  // Nothing ends what stands behind "else".
  return clauseBehind(TokenSubType::conditionalKeywordElse, TokenSubType::notSpecified);
}

}  // namespace tavrine
