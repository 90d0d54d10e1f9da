#include "TavrineCore/Parsing/Tokens/TokenList.h"

#include <algorithm>
#include <utility>

#include "Foundation/Hashing.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

/// Only what is in these containers counts as being in the line.
constexpr TokenTypeSet kTypesToExamineSubtokens{TokenType::subexpression, TokenType::variableDeclaration,
                                                TokenType::functionExpression};

/// The lists whose release is under way on this thread, one inside of the other.
thread_local unsigned releaseDepth = 0;
/// What the innermost of them have left to be released.
thread_local std::vector<TokenListRef>* listsToRelease = nullptr;
constexpr unsigned kMaximumReleaseDepth = 16;

}  // namespace

TokenList::TokenList(std::vector<Token> tokens) : tokens_(std::move(tokens)) {
  std::uint32_t location = 0;
  TokenTypeSet plainTypes;
  for (const Token& token : tokens_.contiguous()) {
    isOrdered_ = isOrdered_ && !token.hasNoRange() && location <= token.range.location;
    location = token.range.location;
    if (token.metadata || token.subtokens) {
      rememberTypesOf(token);
    } else {
      plainTypes.insert(token.type);
    }
  }
  typesEverPresent_.formUnion(plainTypes);
  deepTypesEverPresent_.formUnion(plainTypes);
}

TokenList::TokenList(const TokenList& other) : TokenList(std::vector<Token>(other.begin(), other.end())) {}

TokenList::TokenList(TokenList&& other) noexcept
    : onEnumerateTokens(std::move(other.onEnumerateTokens)),
      tokens_(std::move(other.tokens_)),
      typesEverPresent_(other.typesEverPresent_),
      deepTypesEverPresent_(other.deepTypesEverPresent_),
      unitTypesCache_(other.unitTypesCache_),
      modificationCount_(other.modificationCount_),
      isOrdered_(other.isOrdered_) {
  for (std::size_t i = 0; i < strings_.size(); ++i) strings_[i] = other.strings_[i].exchange(nullptr);
  // A list that moves is most likely about to be shared, and then nobody may close its gap any more.
  (void)tokens_.contiguous();
}

TokenList& TokenList::operator=(const TokenList& other) {
  if (this != &other) *this = TokenList(other);
  return *this;
}

TokenList& TokenList::operator=(TokenList&& other) noexcept {
  if (this == &other) return *this;
  releaseTokens();
  onEnumerateTokens = std::move(other.onEnumerateTokens);
  tokens_ = std::move(other.tokens_);
  (void)tokens_.contiguous();
  typesEverPresent_ = other.typesEverPresent_;
  deepTypesEverPresent_ = other.deepTypesEverPresent_;
  unitTypesCache_ = other.unitTypesCache_;
  // Whoever compares counts must see that these are other tokens.
  modificationCount_ = std::max(modificationCount_, other.modificationCount_) + 1;
  isOrdered_ = other.isOrdered_;
  for (std::size_t i = 0; i < strings_.size(); ++i) {
    delete strings_[i].exchange(other.strings_[i].exchange(nullptr));
  }
  return *this;
}

TokenList::~TokenList() {
  releaseTokens();
  for (auto& strings : strings_) delete strings.load();
}

/// Lists nest as deep as someone cares to build them, so their release must not recurse all the way: far inside, the
/// lists are put aside and let go one after the other.
void TokenList::releaseTokens() noexcept {
  if (releaseDepth < kMaximumReleaseDepth) {
    ++releaseDepth;
    for (std::size_t i = 0; i < count(); ++i) tokens_[i].subtokens.reset();
    --releaseDepth;
    return;
  }
  std::vector<TokenListRef> lists;
  const bool isFirst = listsToRelease == nullptr;
  std::vector<TokenListRef>& pending = isFirst ? lists : *listsToRelease;
  for (std::size_t i = 0; i < count(); ++i) {
    if (tokens_[i].subtokens) pending.push_back(std::move(tokens_[i].subtokens));
  }
  if (!isFirst || lists.empty()) return;
  listsToRelease = &lists;
  while (!lists.empty()) {
    const TokenListRef list = std::move(lists.back());
    lists.pop_back();
  }
  listsToRelease = nullptr;
}

TokenListRef TokenList::frozen(std::vector<Token> tokens) {
  return std::make_shared<const TokenList>(std::move(tokens));
}

TokenListRef TokenList::frozen(TokenList list) { return std::make_shared<const TokenList>(std::move(list)); }

// --- Caches ---------------------------------------------------------------------------------------------------------

void TokenList::rememberTypesOf(const Token& token) {
  typesEverPresent_.insert(token.type);
  deepTypesEverPresent_.insert(token.type);
  if (!token.metadata) {
    // Words and white space: nothing more to learn.
  } else if (const auto* unit = token.metadataAs<UnitTokenMetadata>()) {
    unitTypesCache_.insert(unit->underlyingTCUnit.unitType());
  } else if (const auto* expression = token.metadataAs<UnitExpressionTokenMetadata>()) {
    unitTypesCache_.insert(expression->unitMetaData.underlyingTCUnit.unitType());
  } else if (token.isVariable()) {
    const auto* named = token.metadataAs<VariableTokenMetadata>();
    if (named != nullptr) typesEverPresent_.formUnion(named->typesInDefinition);
  }
  if (!token.subtokens) return;
  deepTypesEverPresent_.formUnion(token.subtokens->deepTypesEverPresent_);
  unitTypesCache_.formUnion(token.subtokens->unitTypesCache_);
  if (kTypesToExamineSubtokens.contains(token.type)) typesEverPresent_.formUnion(token.subtokens->typesEverPresent_);
}

void TokenList::addToCacheTypesFrom(std::span<const Token> tokens) {
  for (const Token& token : tokens) rememberTypesOf(token);
}

void TokenList::formCacheUnionWith(const TokenList& other) {
  typesEverPresent_.formUnion(other.typesEverPresent_);
  deepTypesEverPresent_.formUnion(other.deepTypesEverPresent_);
  unitTypesCache_.formUnion(other.unitTypesCache_);
}

bool TokenList::isOrderedAt(std::size_t index) const noexcept {
  const Token& token = tokens_[index];
  return !token.hasNoRange() && (index == 0 || tokens_[index - 1].range.location <= token.range.location);
}

void TokenList::noteEditAt(std::size_t index) {
  ++modificationCount_;
  isOrdered_ =
      isOrdered_ && (index >= count() || isOrderedAt(index)) && (index + 1 >= count() || isOrderedAt(index + 1));
}

void TokenList::adopt(std::vector<Token> tokens) {
  TokenList fresh(std::move(tokens));
  fresh.formCacheUnionWith(*this);
  fresh.onEnumerateTokens = std::move(onEnumerateTokens);
  *this = std::move(fresh);
}

const StringSet& TokenList::allStrings(bool lowercased) const {
  std::atomic<const StringSet*>& slot = strings_[lowercased ? 1 : 0];
  if (const StringSet* strings = slot.load(std::memory_order_acquire)) return *strings;

  auto strings = std::make_unique<StringSet>();
  enumerateAllTokens(/*reversed=*/false, [&](const Token& token, const TokenList&, const Token* parent, bool&) {
    if (token.is(TokenType::whitespace) || (parent != nullptr && parent->is(TokenType::unitExpression))) return;
    strings->insert(lowercased ? foundation::lowercased(token.stringValue) : token.stringValue);
  });
  // Two threads may get here; the first result stays.
  const StringSet* expected = nullptr;
  if (slot.compare_exchange_strong(expected, strings.get(), std::memory_order_acq_rel)) return *strings.release();
  return *expected;
}

// --- Access ---------------------------------------------------------------------------------------------------------

std::span<const Token> TokenList::tokens() const { return tokens_.contiguous(); }

const Token* TokenList::firstTokenOfType(const TokenTypeSet& types) const {
  if (!anyTypesHaveBeenPresentIn(types)) return nullptr;
  for (const Token& token : *this) {
    if (types.contains(token.type)) return &token;
  }
  return nullptr;
}

const Token* TokenList::lastTokenOfType(const TokenTypeSet& types) const {
  if (!anyTypesHaveBeenPresentIn(types)) return nullptr;
  for (std::size_t i = count(); i-- > 0;) {
    if (types.contains(tokens_[i].type)) return &tokens_[i];
  }
  return nullptr;
}

std::vector<Token> TokenList::tokensOfType(const TokenTypeSet& types) const {
  std::vector<Token> result;
  if (!anyTypesHaveBeenPresentIn(types)) return result;
  for (const Token& token : *this) {
    if (types.contains(token.type)) result.push_back(token);
  }
  return result;
}

std::vector<Token> TokenList::allTokensOfType(const TokenTypeSet& types, const TokenTypeSet& excludedParents) const {
  std::vector<Token> result;
  enumerateAllTokensOfType(types, /*reversed=*/false,
                           [&](const Token& token, const TokenList&, const Token* parent, bool&) {
                             if (parent != nullptr && excludedParents.contains(parent->type)) return;
                             result.push_back(token);
                           });
  return result;
}

std::string TokenList::rebuiltExpression() const {
  std::size_t length = 0;
  for (const Token& token : *this) length += token.stringValue.size();
  std::string result;
  result.reserve(length);
  for (const Token& token : *this) result += token.stringValue;
  return result;
}

std::size_t TokenList::hash() const {
  std::size_t result = count();
  for (const Token& token : *this) result = hashCombine(result, token.hash());
  return result;
}

std::optional<std::size_t> TokenList::indexOf(const Token& token) const {
  // A token of this very list knows its place, and most tokens that are asked for are such.
  if (const auto index = tokens_.indexOfAddress(token)) return index;

  if (isOrdered_) {
    if (token.hasNoRange()) return std::nullopt;
    auto at = std::lower_bound(begin(), end(), token.range.location, [](const Token& probe, std::uint32_t location) {
      return probe.range.location < location;
    });
    for (; at != end() && at->range.location == token.range.location; ++at) {
      if (*at == token) return static_cast<std::size_t>(at - begin());
    }
    return std::nullopt;
  }

  // Some tokens here stand in no text. The search by place may miss its target among them, so all are looked at then.
  std::size_t low = 0;
  std::size_t high = count();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    const Token& probe = tokens_[middle];
    if (probe == token) return middle;
    const bool isInLowerHalf = probe.hasNoRange() || token.hasNoRange() || token.range.location < probe.range.location;
    (isInLowerHalf ? high : low) = isInLowerHalf ? middle : middle + 1;
  }
  const auto found = std::find(begin(), end(), token);
  if (found == end()) return std::nullopt;
  return static_cast<std::size_t>(found - begin());
}

std::optional<std::size_t> TokenList::indexOf(const Token& token, std::size_t hint) const {
  if (hint < count() && tokens_[hint] == token) return hint;
  return indexOf(token);
}

bool TokenList::containsToken(const Token& token) const {
  if (!deepTypesEverPresent_.contains(token.type)) return false;
  if (indexOf(token)) return true;
  return std::any_of(begin(), end(), [&](const Token& candidate) {
    return candidate.subtokens && candidate.subtokens->containsToken(token);
  });
}

bool TokenList::includesConvertersOfSubtype(const TokenSubTypeSet& subTypes) const {
  if (!typePrecheck(TokenType::converter)) return false;
  return std::any_of(begin(), end(), [&](const Token& token) {
    return token.is(TokenType::converter) && subTypes.contains(token.subType);
  });
}

}  // namespace tavrine
