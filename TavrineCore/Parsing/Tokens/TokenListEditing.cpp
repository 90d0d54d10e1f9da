// Replacing, fusing and removing tokens.

#include <algorithm>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

std::uint32_t lengthOf(const Token& token) { return static_cast<std::uint32_t>(utf16Length(token.stringValue)); }

/// A token that was made from a value takes its place in the text from where it comes to stand.
void placeAt(std::uint32_t location, Token& token) {
  if (token.hasNoRange()) token.range = {location, lengthOf(token)};
}

}  // namespace

void TokenList::append(Token token) { insertAt(count(), std::move(token)); }

void TokenList::append(std::span<const Token> tokens) {
  for (const Token& token : tokens) append(token);
}

void TokenList::insertAt(std::size_t index, Token token) {
  index = std::min(index, count());
  rememberTypesOf(token);
  tokens_.insert(index, std::move(token));
  noteEditAt(index);
}

void TokenList::insertAfter(Token token, const Token& afterToken) {
  const auto index = indexOf(afterToken);
  if (!index) return;
  placeAt(tokens_[*index].range.upperBound(), token);
  insertAt(*index + 1, std::move(token));
}

void TokenList::insertBefore(Token token, const Token& beforeToken) {
  const auto index = indexOf(beforeToken);
  if (!index) return;
  placeAt(tokens_[*index].range.location, token);
  insertAt(*index, std::move(token));
}

void TokenList::replaceAt(std::size_t index, Token token) {
  if (index >= count()) return;
  placeAt(tokens_[index].range.location, token);
  rememberTypesOf(token);
  tokens_[index] = std::move(token);
  noteEditAt(index);
}

void TokenList::becomeWordAt(std::size_t index) {
  if (index >= count()) return;
  Token& token = tokens_[index];
  token.type = TokenType::wordComment;
  token.subType = TokenSubType::notSpecified;
  token.metadata.reset();
  rememberTypesOf(token);
  ++modificationCount_;
}

void TokenList::replaceRun(std::size_t firstIndex, std::size_t lastIndex, Token token) {
  if (firstIndex > lastIndex || lastIndex >= count()) return;
  if (firstIndex == lastIndex) return replaceAt(firstIndex, std::move(token));
  placeAt(tokens_[firstIndex].range.location, token);
  rememberTypesOf(token);
  tokens_.replace(firstIndex, lastIndex - firstIndex + 1, std::move(token));
  noteEditAt(firstIndex);
}

void TokenList::removeRun(std::size_t firstIndex, std::size_t lastIndex) {
  if (firstIndex > lastIndex || lastIndex >= count()) return;
  tokens_.erase(firstIndex, lastIndex - firstIndex + 1);
  noteEditAt(firstIndex);
}

void TokenList::removeAll() {
  if (!isEmpty()) removeRun(0, count() - 1);
}

bool TokenList::replace(const Token& token, Token replacement) {
  const auto index = indexOf(token);
  if (index) replaceAt(*index, std::move(replacement));
  return index.has_value();
}

bool TokenList::remove(const Token& token) {
  const auto index = indexOf(token);
  if (index) removeAt(*index);
  return index.has_value();
}

void TokenList::replace(const TokenSlice& slice, Token replacement) {
  if (slice.isEmpty()) return;
  replaceRun(slice.startIndex, slice.endIndex, std::move(replacement));
}

Token TokenList::replace(const TokenSlice& slice, TokenType type, TokenMetadataRef metadata, bool includeSubtokens) {
  Token token(type, TokenSubType::notSpecified, slice.stringValue(), slice.range(),
              includeSubtokens ? frozen(slice.tokens) : nullptr, std::move(metadata));
  if (slice.isEmpty() || slice.endIndex >= count()) return token;
  replace(slice, std::move(token));
  return tokens_[slice.startIndex];
}

std::optional<Token> TokenList::replace(const Token& token, TokenType type, TokenMetadataRef metadata) {
  const auto index = indexOf(token);
  if (!index) return std::nullopt;
  const Token& old = tokens_[*index];
  replaceAt(*index, Token(type, TokenSubType::notSpecified, old.stringValue, old.range, nullptr, std::move(metadata)));
  return tokens_[*index];
}

// --- Fusing ---------------------------------------------------------------------------------------------------------

void TokenList::fuse(const Token& token, const Token& into, TokenMetadataRef metadata) {
  const auto from = indexOf(token);
  const auto to = indexOf(into);
  if (!from || !to) return;
  const TokenSlice run = slice(std::min(*from, *to), std::max(*from, *to));
  replace(run, Token(into.type, into.subType, run.stringValue(), run.range(),
                     into.subtokens ? frozen(run.tokens) : nullptr, std::move(metadata)));
}

void TokenList::fuseWithCommonlyTypedNeighbours(const Token& token) {
  const auto index = indexOf(token);
  if (!index) return;
  const bool fusesBefore = *index > 0 && tokens_[*index - 1].type == token.type;
  const bool fusesAfter = *index + 1 < count() && tokens_[*index + 1].type == token.type;
  if (!fusesBefore && !fusesAfter) return;
  const TokenSlice run = slice(*index - (fusesBefore ? 1 : 0), *index + (fusesAfter ? 1 : 0));
  replace(run, Token(token.type, token.subType, run.stringValue(), run.range()));
}

void TokenList::compoundSequentialTokens(TokenType of, TokenType into, const TokenTypeSet& validSeparatorTypes) {
  if (!typePrecheck(of)) return;
  const TokenTypeSet separators = validSeparatorTypes | TokenTypeSet::whitespaceSet;
  // From the end, so that the indices in front stay good.
  for (std::size_t i = count(); i-- > 0;) {
    if (!tokens_[i].is(of)) continue;
    const std::size_t lastOfRun = i;
    for (std::size_t j = i; j-- > 0;) {
      if (tokens_[j].is(of)) {
        i = j;
      } else if (!separators.contains(tokens_[j].type)) {
        break;
      }
    }
    if (i != lastOfRun) replaceRun(i, lastOfRun, slice(i, lastOfRun).embedInContainerToken(into));
  }
}

// --- Comments -------------------------------------------------------------------------------------------------------

namespace {

bool isLineReference(const Token& token) {
  const auto* metadata = token.is(TokenType::variable) ? token.metadataAs<VariableTokenMetadata>() : nullptr;
  return metadata != nullptr && metadata->variable.type == Variable::VariableType::lineReference;
}

Token deidentified(const Token& token, bool retainSubtype) {
  if (isLineReference(token)) return token;
  if (!token.subtokens) {
    Token word(TokenType::wordComment, retainSubtype ? token.subType : TokenSubType::notSpecified, token.stringValue,
               token.range);
    word.textHash = token.textHash;
    return word;
  }
  std::vector<Token> subtokens;
  subtokens.reserve(token.subtokens->count());
  for (const Token& subtoken : *token.subtokens) subtokens.push_back(deidentified(subtoken, /*retainSubtype=*/false));
  return {TokenType::wordComment, TokenSubType::notSpecified, token.stringValue, token.range,
          TokenList::frozen(std::move(subtokens))};
}

}  // namespace

void TokenList::deidentify(const Token& token, bool retainSubtype) {
  if (isLineReference(token)) return;
  const auto index = indexOf(token);
  if (index) replaceAt(*index, deidentified(tokens_[*index], retainSubtype));
}

// --- Removing -------------------------------------------------------------------------------------------------------

namespace {

/// Sweeps a list and those inside of it once, and tells what is left if anything changed.
class Filter {
 public:
  /// Lists that never held the types are left alone.
  Filter(const TokenTypeSet& types, TokenList::TokenTest test, bool reversed)
      : types_(types), test_(test), reversed_(reversed) {}

  std::optional<std::vector<Token>> remainderOf(const TokenList& list, const Token* parent) const {
    if (!list.typesEverPresentAtAnyDepth().containsTypesFrom(types_)) return std::nullopt;
    std::vector<Fate> fates(list.count());
    bool isChanged = false;
    for (std::size_t step = 0; step < list.count(); ++step) {
      const std::size_t index = reversed_ ? list.count() - 1 - step : step;
      fates[index] = fateOf(list[index], parent);
      isChanged = isChanged || fates[index].isRemoved || fates[index].edited;
    }
    if (!isChanged) return std::nullopt;

    std::vector<Token> remainder;
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (!fates[i].isRemoved) remainder.push_back(fates[i].edited ? std::move(*fates[i].edited) : list[i]);
    }
    return remainder;
  }

 private:
  struct Fate {
    bool isRemoved = false;
    std::optional<Token> edited;
  };

  Fate fateOf(const Token& token, const Token* parent) const {
    Fate fate;
    if (token.subtokens) {
      if (auto subtokens = remainderOf(*token.subtokens, &token)) {
        fate.edited = token;
        fate.edited->subtokens = TokenList::frozen(std::move(*subtokens));
      }
    }
    fate.isRemoved = test_(fate.edited ? *fate.edited : token, parent);
    return fate;
  }

  TokenTypeSet types_;
  TokenList::TokenTest test_;
  bool reversed_;
};

}  // namespace

void TokenList::filterOutAllTokensOf(const TokenTypeSet& types, const TokenTypeSet& excludingTokensWhereParentIs) {
  filterOutAllTokensOfTypes(types, [&](const Token&, const Token* parent) {
    return parent == nullptr || !excludingTokensWhereParentIs.contains(parent->type);
  });
}

void TokenList::filterOutAllTokensOfTypes(const TokenTypeSet& types, TokenTest condition) {
  const auto test = [&](const Token& token, const Token* parent) {
    return types.contains(token.type) && condition(token, parent);
  };
  if (auto remainder = Filter(types, test, /*reversed=*/false).remainderOf(*this, nullptr)) {
    adopt(std::move(*remainder));
  }
}

void TokenList::filterOutAllTokensPassingTest(TokenTest test, bool reversed) {
  if (auto remainder = Filter(TokenTypeSet::anyTypes, test, reversed).remainderOf(*this, nullptr)) {
    adopt(std::move(*remainder));
  }
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

namespace {

std::vector<Token> tokensWithFreshRanges(const TokenList& list, std::uint32_t offset, bool updateParentsStrings) {
  std::vector<Token> result(list.begin(), list.end());
  for (Token& token : result) {
    if (token.subtokens) {
      TokenList subtokens(tokensWithFreshRanges(*token.subtokens, offset, updateParentsStrings));
      if (updateParentsStrings) {
        token.stringValue = subtokens.rebuiltExpression();
        token.textHash = 0;
      }
      token.subtokens = TokenList::frozen(std::move(subtokens));
    }
    token.range = {offset, lengthOf(token)};
    offset = token.range.upperBound();
  }
  return result;
}

}  // namespace

TokenList TokenList::listWithRecalculatedTokenRanges(std::int64_t offset, bool updateParentsStrings) const {
  const auto start = static_cast<std::uint32_t>(std::clamp<std::int64_t>(offset, 0, UINT32_MAX));
  return TokenList(tokensWithFreshRanges(*this, start, updateParentsStrings));
}

}  // namespace tavrine
