#include "TavrineCore/Parsing/Prototypes/PrototypeMatching.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <variant>

#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

using Kind = TokenPrototype::Kind;

const Variable* namedVariable(const PrototypeSequence& sequence) {
  return sequence.metadata() ? std::get_if<Variable>(&*sequence.metadata()) : nullptr;
}

std::optional<Token> replacementFor(const TokenSlice& slice, const PrototypeSequence& sequence, WrapBlock block) {
  const Variable* variable = namedVariable(sequence);
  if (variable == nullptr) return block(slice, sequence);
  return Token(TokenType::variable, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr,
               std::make_shared<const VariableTokenMetadata>(*variable));
}

/// The first index of the place name that ends at `last`, words and what joins them. The word of the phrase before the
/// gap, null for none, is no part of the name: "where is Little Town".
std::size_t startOfPlaceName(const TokenList& list, std::size_t last, const TokenPrototype* wordBefore) {
  if (list[last].is(TokenType::timezone)) return last;
  std::size_t first = last;
  const std::size_t farthest = last < 2 * kMaximumPhraseWords ? 0 : last - 2 * kMaximumPhraseWords;
  for (std::size_t i = last; i-- > farthest;) {
    const TokenType type = list[i].type;
    if (wordBefore != nullptr && wordBefore->matches(list[i])) break;
    if (TokenTypeSet::typesInDynamicPlaceNames.contains(type)) {
      first = i;
    } else if (!TokenTypeSet::typesToIgnoreInDynamicPlaceNames.contains(type)) {
      break;
    }
  }
  return first;
}

/// The last word of a phrase that stands before one of its gaps; null if there is none.
const TokenPrototype* wordBefore(PrototypeSequence::Prototypes::const_reverse_iterator gap,
                                 const PrototypeSequence::Prototypes& prototypes) {
  const auto word = std::find_if(std::next(gap), prototypes.rend(),
                                 [](const auto& prototype) { return prototype->kind() == Kind::literal; });
  return word == prototypes.rend() ? nullptr : word->get();
}

}  // namespace

bool MatchableTokens::matchesAt(std::size_t index, const TokenPrototype& prototype) {
  const Token& token = list_[index];
  if (!PrototypeSequence::wantsEvaluated(prototype, token) || prototype.kind() == Kind::literal ||
      prototype.kind() == Kind::anyWord) {
    return PrototypeSequence::performMatchCheck(prototype, token);
  }
  auto known = evaluated_.find(index);
  if (known == evaluated_.end()) known = evaluated_.emplace(index, token.evaluated()).first;
  return PrototypeSequence::valueMatches(prototype, token, known->second);
}

bool MatchableTokens::matchesFrom(std::size_t index, const PrototypeSequence& sequence) {
  const auto& prototypes = sequence.prototypes();
  if (prototypes.empty() || prototypes.size() > list_.count() || index > list_.count() - prototypes.size()) {
    return false;
  }
  const std::size_t last = prototypes.size() - 1;
  if (!sequence.mayBeFirstWord(list_[index + sequence.firstWordIndex()])) return false;
  if (!matchesAt(index, *prototypes.front()) || !matchesAt(index + last, *prototypes.back())) return false;
  for (std::size_t i = 1; i < last; ++i) {
    if (!matchesAt(index + i, *prototypes[i])) return false;
  }
  return true;
}

std::optional<std::vector<TokenSlice>> slicesMatching(const TokenList& list, const PrototypeSequence& sequence) {
  const std::size_t length = sequence.prototypes().size();
  if (length == 0 || length > list.count() || !sequence.typesWereIn(list)) return std::nullopt;
  MatchableTokens tokens(list);
  std::vector<TokenSlice> slices;
  for (std::size_t i = 0; i + length <= list.count();) {
    if (!tokens.matchesFrom(i, sequence)) {
      ++i;
      continue;
    }
    slices.push_back(list.slice(i, i + length - 1));
    i += length;
  }
  if (slices.empty()) return std::nullopt;
  return slices;
}

void wrapMatchesFor(TokenList& list, std::span<const PrototypeSequenceRef> sequences, bool includeSubTokens,
                    WrapBlock enumerationBlock) {
  for (const PrototypeSequenceRef& sequence : sequences) {
    std::optional<std::vector<TokenSlice>> slices = slicesMatching(list, *sequence);
    if (!slices) continue;
    for (auto slice = slices->rbegin(); slice != slices->rend(); ++slice) {
      std::optional<Token> token = replacementFor(*slice, *sequence, enumerationBlock);
      if (!token) continue;
      if (includeSubTokens) token->subtokens = TokenList::frozen(std::move(slice->tokens));
      list.replaceRun(slice->startIndex, slice->endIndex, *std::move(token));
    }
  }
}

std::optional<PrototypeSequenceMatcher::Match> PrototypeSequenceMatcher::findSliceMatching(
    std::span<const PrototypeSequenceRef> sequences, std::size_t endIndex) {
  if (endIndex >= tokens_.list().count()) return std::nullopt;
  for (const PrototypeSequenceRef& sequence : sequences) {
    std::optional<TokenSlice> slice = sequence->asksForPlaceOfProvider() ? matchGreedySequence(*sequence, endIndex)
                                                                         : matchRegularSequence(*sequence, endIndex);
    if (slice) return Match{*std::move(slice), sequence};
  }
  return std::nullopt;
}

std::optional<TokenSlice> PrototypeSequenceMatcher::matchRegularSequence(const PrototypeSequence& sequence,
                                                                         std::size_t endIndex) {
  const std::size_t length = sequence.prototypes().size();
  if (length == 0 || length > endIndex + 1) return std::nullopt;
  const std::size_t start = endIndex + 1 - length;
  if (!tokens_.matchesFrom(start, sequence)) return std::nullopt;
  return tokens_.list().slice(start, endIndex);
}

std::optional<TokenSlice> PrototypeSequenceMatcher::matchGreedySequence(const PrototypeSequence& sequence,
                                                                        std::size_t endIndex) {
  const TokenList& list = tokens_.list();
  const auto& prototypes = sequence.prototypes();
  std::vector<Token> backwards;
  std::size_t behind = endIndex + 1;  // one past the token that is next to be tested
  for (auto prototype = prototypes.rbegin(); prototype != prototypes.rend(); ++prototype) {
    if (behind == 0 || !tokens_.matchesAt(behind - 1, **prototype)) return std::nullopt;
    const std::size_t last = --behind;
    if ((*prototype)->kind() == Kind::dynamicPlace) {
      behind = startOfPlaceName(list, last, wordBefore(prototype, prototypes));
    }
    const bool isName = (*prototype)->kind() == Kind::dynamicPlace && !list[last].is(TokenType::timezone);
    backwards.push_back(isName ? list.slice(behind, last).embedInContainerToken(TokenType::dynamicPlace) : list[last]);
  }
  return TokenSlice{
      {std::make_move_iterator(backwards.rbegin()), std::make_move_iterator(backwards.rend())}, behind, endIndex};
}

}  // namespace tavrine
