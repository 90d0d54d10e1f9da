// Walks over lists, with and without edits.
//
// Sublists are frozen, so an edit inside one happens on a copy, and the token around it is replaced by one with the
// edited copy. A copy is made only when there is something to edit: the frozen list serves as the snapshot that the
// walk goes over. Of a list that can be edited only the tokens that the block will see are copied; the others cost a
// look.

#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

std::size_t indexAtStep(std::size_t step, std::size_t count, bool reversed) {
  return reversed ? count - 1 - step : step;
}

}  // namespace

/// Edits a list and those inside of it.
class TokenListWalk {
 public:
  TokenListWalk(TokenList::TokenTest test, bool reversed, bool topLevelOnly, TokenList::Modification block)
      : reach_(TokenTypeSet::anyTypes), test_(test), reversed_(reversed), topLevelOnly_(topLevelOnly), block_(block) {}
  /// Of the tokens of these types. Lists that never held them are not entered.
  TokenListWalk(const TokenTypeSet& types, bool reversed, bool topLevelOnly, TokenList::Modification block)
      : reach_(types), reversed_(reversed), topLevelOnly_(topLevelOnly), block_(block) {}

  void edit(TokenList& list, const Token* parent) const {
    list.countEnumeration();
    std::optional<std::size_t> first;
    std::size_t concerned = 0;
    for (std::size_t step = 0; step < list.count(); ++step) {
      const std::size_t index = indexAtStep(step, list.count(), reversed_);
      if (!concernsBlock(list[index], parent)) continue;
      if (concerned++ == 0) first = index;
    }
    if (!first) return;
    // Often it is one operator or one converter.
    if (concerned == 1) return edit(list, parent, list[*first], *first);

    struct Concerned {
      Token token;
      std::size_t index = 0;
    };
    std::vector<Concerned> snapshot;
    snapshot.reserve(concerned);
    for (std::size_t step = 0; step < list.count(); ++step) {
      const std::size_t index = indexAtStep(step, list.count(), reversed_);
      if (concernsBlock(list[index], parent)) snapshot.push_back({list[index], index});
    }
    for (auto& [token, hint] : snapshot) edit(list, parent, std::move(token), hint);
  }

 private:
  /// Edits inside of the token, which most likely still stands at `hint`, and hands it to the block.
  void edit(TokenList& list, const Token* parent, Token token, std::size_t hint) const {
    if (enters(token)) {
      if (TokenListRef subtokens = editedCopy(*token.subtokens, &token)) {
        token = replaceInside(list, token, hint, std::move(subtokens));
      }
    }
    if (passes(token, parent)) block_(token, list, parent);
  }

  [[nodiscard]] bool passes(const Token& token, const Token* parent) const {
    return test_ ? (*test_)(token, parent) : reach_.contains(token.type);
  }

  [[nodiscard]] bool enters(const Token& token) const {
    return !topLevelOnly_ && token.subtokens && token.subtokens->typesEverPresentAtAnyDepth().containsTypesFrom(reach_);
  }

  [[nodiscard]] bool concernsBlock(const Token& token, const Token* parent) const {
    return passes(token, parent) || enters(token);
  }

  /// The edited list; null where nothing changed.
  [[nodiscard]] TokenListRef editedCopy(const TokenList& list, const Token* parent) const {
    list.countEnumeration();
    std::optional<TokenList> copy;
    const auto editable = [&]() -> TokenList& {
      if (!copy) copy.emplace(list);
      return *copy;
    };
    for (std::size_t step = 0; step < list.count(); ++step) {
      const std::size_t index = indexAtStep(step, list.count(), reversed_);
      const Token* token = &list[index];
      Token edited;
      if (enters(*token)) {
        if (TokenListRef subtokens = editedCopy(*token->subtokens, token)) {
          edited = replaceInside(editable(), *token, index, std::move(subtokens));
          token = &edited;
        }
      }
      if (passes(*token, parent)) block_(*token, editable(), parent);
    }
    if (!copy || copy->modificationCount() == 0) return nullptr;
    return TokenList::frozen(std::move(*copy));
  }

  /// The token with other subtokens, put in its place if it still has one.
  static Token replaceInside(TokenList& list, const Token& token, std::size_t hint, TokenListRef subtokens) {
    list.formCacheUnionWith(*subtokens);
    Token edited(token.type, token.subType, token.stringValue, token.range, std::move(subtokens), token.metadata);
    const auto index = list.indexOf(token, hint);
    if (!index) return edited;
    list.replaceAt(*index, std::move(edited));
    return list[*index];
  }

  TokenTypeSet reach_;
  std::optional<TokenList::TokenTest> test_;  // absent: the tokens of the types of `reach_`
  bool reversed_;
  bool topLevelOnly_;
  TokenList::Modification block_;
};

/// Puts single tokens in the place of single tokens: no index moves, so that nothing has to be looked for again.
class TokenListTransformation {
 public:
  TokenListTransformation(const TokenTypeSet& types, bool reversed, TokenList::NestedTransformation transform)
      : types_(types), reversed_(reversed), transform_(transform) {}

  void apply(TokenList& list, const Token* parent) const {
    apply(list, parent, [&list]() -> TokenList& { return list; });
  }

 private:
  /// Reads `list` and edits what `editable` gives: the same list or a copy of it.
  template <class Editable>
  void apply(const TokenList& list, const Token* parent, const Editable& editable) const {
    list.countEnumeration();
    for (std::size_t step = 0; step < list.count(); ++step) {
      const std::size_t index = indexAtStep(step, list.count(), reversed_);
      const bool hasInside = enters(list[index]);
      if (!hasInside && !types_.contains(list[index].type)) continue;
      std::optional<Token> changed;
      if (TokenListRef subtokens = hasInside ? transformedInside(list[index]) : nullptr) {
        editable().formCacheUnionWith(*subtokens);
        changed = list[index];
        changed->subtokens = std::move(subtokens);
      }
      const Token& token = changed ? *changed : list[index];
      if (types_.contains(token.type)) {
        if (std::optional<Token> replacement = transform_(token, parent)) changed = std::move(replacement);
      }
      if (changed) editable().replaceAt(index, *std::move(changed));
    }
  }

  [[nodiscard]] bool enters(const Token& token) const {
    return token.subtokens && token.subtokens->typesEverPresentAtAnyDepth().containsTypesFrom(types_);
  }

  /// What is inside of the token, transformed; null where nothing changed.
  [[nodiscard]] TokenListRef transformedInside(const Token& token) const {
    std::optional<TokenList> copy;
    apply(*token.subtokens, &token, [&]() -> TokenList& {
      if (!copy) copy.emplace(*token.subtokens);
      return *copy;
    });
    return copy ? TokenList::frozen(*std::move(copy)) : nullptr;
  }

  TokenTypeSet types_;
  bool reversed_;
  TokenList::NestedTransformation transform_;
};

void TokenList::applyModificationsToAllListsWithTokensPassingTest(TokenTest test, const Token* parent, bool reversed,
                                                                  bool topLevelOnly, Modification block) {
  TokenListWalk(test, reversed, topLevelOnly, block).edit(*this, parent);
}

void TokenList::performEditsToListsWith(const TokenTypeSet& types, bool recalculateRangesAfterEdit,
                                        Modification block) {
  if (!anyTypesHaveBeenPresentIn(types)) return;
  const std::uint64_t before = modificationCount_;
  TokenListWalk(types, /*reversed=*/true, /*topLevelOnly=*/false, block).edit(*this, nullptr);
  if (!recalculateRangesAfterEdit || modificationCount_ == before) return;
  TokenList recalculated = listWithRecalculatedTokenRanges(0, /*updateParentsStrings=*/false);
  adopt({recalculated.begin(), recalculated.end()});
}

// --- Transformations ------------------------------------------------------------------------------------------------

void TokenList::applyTransformationToTokensOfType(const TokenTypeSet& types, bool reversed, Transformation transform) {
  if (!anyTypesHaveBeenPresentIn(types)) return;
  const auto replaceByTransformed = [&](const Token& token, TokenList& list, const Token*) {
    if (std::optional<Token> replacement = transform(token)) list.replace(token, std::move(*replacement));
  };
  TokenListWalk(types, reversed, /*topLevelOnly=*/true, replaceByTransformed).edit(*this, nullptr);
}

void TokenList::applyTransformationToAllTokensOfType(const TokenTypeSet& types, const Token* parent, bool reversed,
                                                     NestedTransformation transform) {
  if (!deepTypesEverPresent_.containsTypesFrom(types)) return;
  TokenListTransformation(types, reversed, transform).apply(*this, parent);
}

void TokenList::applyTransformationToAllTokensPassingTest(TokenTest test, const Token* parent, bool reversed,
                                                          NestedTransformation transform) {
  applyModificationsToAllListsWithTokensPassingTest(
      test, parent, reversed, /*topLevelOnly=*/false,
      [&](const Token& token, TokenList& list, const Token* tokenParent) {
        if (std::optional<Token> replacement = transform(token, tokenParent)) {
          list.replace(token, std::move(*replacement));
        }
      });
}

// --- Enumerations ---------------------------------------------------------------------------------------------------

void TokenList::enumerateTokensOfType(const TokenTypeSet& types, bool reversed, TokenBlock block) {
  if (!anyTypesHaveBeenPresentIn(types)) return;
  countEnumeration();
  std::vector<Token> snapshot;
  for (std::size_t step = 0; step < count(); ++step) {
    const Token& token = tokens_[indexAtStep(step, count(), reversed)];
    if (types.contains(token.type)) snapshot.push_back(token);
  }
  bool stop = false;
  for (const Token& token : snapshot) {
    block(token, stop);
    if (stop) return;
  }
}

void TokenList::enumerateTokensOfType(const TokenTypeSet& types, bool reversed, TokenBlock block) const {
  if (!anyTypesHaveBeenPresentIn(types)) return;
  countEnumeration();
  bool stop = false;
  for (std::size_t step = 0; step < count() && !stop; ++step) {
    const Token& token = tokens_[indexAtStep(step, count(), reversed)];
    if (types.contains(token.type)) block(token, stop);
  }
}

void TokenList::enumerateTokensOfTypeWithNeighbours(const TokenTypeSet& types, bool reversed, bool ignoreWhitespace,
                                                    bool ensureBothSides, NeighbourBlock block) const {
  if (!anyTypesHaveBeenPresentIn(types)) return;
  countEnumeration();
  struct Match {
    Token token;
    std::size_t index;
  };
  std::vector<Match> matches;
  for (std::size_t step = 0; step < count(); ++step) {
    const std::size_t index = indexAtStep(step, count(), reversed);
    if (types.contains(tokens_[index].type)) matches.push_back({tokens_[index], index});
  }
  bool stop = false;
  for (const Match& match : matches) {
    const auto index = indexOf(match.token, match.index);
    const Token* before = index ? tokenBefore(*index, ignoreWhitespace) : nullptr;
    const Token* after = index ? tokenAfter(*index, ignoreWhitespace) : nullptr;
    if (ensureBothSides && (before == nullptr || after == nullptr)) continue;
    block(match.token, before, after, stop);
    if (stop) return;
  }
}

namespace {

/// Visits the tokens at every depth, subtokens first. Lists that never held the types are not entered.
void visitAll(const TokenList& list, const TokenTypeSet& reach, TokenList::TokenTest test, const Token* parent,
              bool reversed, TokenList::NestedTokenBlock block, bool& stop) {
  for (std::size_t step = 0; step < list.count() && !stop; ++step) {
    const Token& token = list[indexAtStep(step, list.count(), reversed)];
    if (token.subtokens && token.subtokens->typesEverPresentAtAnyDepth().containsTypesFrom(reach)) {
      visitAll(*token.subtokens, reach, test, &token, reversed, block, stop);
      if (stop) return;
    }
    if (test(token, parent)) block(token, list, parent, stop);
  }
}

void visitSublists(const TokenList& list, bool reversed, TokenList::SublistBlock block, bool& stop) {
  for (std::size_t step = 0; step < list.count() && !stop; ++step) {
    const Token& token = list[indexAtStep(step, list.count(), reversed)];
    if (!token.subtokens) continue;
    visitSublists(*token.subtokens, reversed, block, stop);
    if (!stop) block(*token.subtokens, &token, stop);
  }
}

}  // namespace

void TokenList::enumerateAllTokens(bool reversed, NestedTokenBlock block) const {
  enumerateAllTokensPassingTest([](const Token&, const Token*) { return true; }, nullptr, reversed, block);
}

void TokenList::enumerateAllTokensOfType(const TokenTypeSet& types, bool reversed, NestedTokenBlock block) const {
  if (!deepTypesEverPresent_.containsTypesFrom(types)) return;
  countEnumeration();
  bool stop = false;
  const auto hasType = [&types](const Token& token, const Token*) { return types.contains(token.type); };
  visitAll(*this, types, hasType, nullptr, reversed, block, stop);
}

void TokenList::enumerateAllTokensPassingTest(TokenTest test, const Token* parent, bool reversed,
                                              NestedTokenBlock block) const {
  countEnumeration();
  bool stop = false;
  visitAll(*this, TokenTypeSet::anyTypes, test, parent, reversed, block, stop);
}

void TokenList::enumerateSublists(bool reversed, bool includeSelf, SublistBlock block) const {
  countEnumeration();
  bool stop = false;
  visitSublists(*this, reversed, block, stop);
  if (includeSelf && !stop) block(*this, nullptr, stop);
}

// --- Searches -------------------------------------------------------------------------------------------------------

const Token* TokenList::scanForTokenWithTypes(const TokenTypeSet& types,
                                              const TokenTypeSet& ignoreParentsWithTypes) const {
  if (!deepTypesEverPresent_.containsTypesFrom(types)) return nullptr;
  for (const Token& token : *this) {
    if (types.contains(token.type)) return &token;
    if (!token.subtokens || ignoreParentsWithTypes.contains(token.type)) continue;
    if (const Token* found = token.subtokens->scanForTokenWithTypes(types, ignoreParentsWithTypes)) return found;
  }
  return nullptr;
}

const Token* TokenList::findParentOf(const Token& childToken, bool highestLevelParent,
                                     std::optional<IndexRange> inRange) const {
  if (!deepTypesEverPresent_.contains(childToken.type) || isEmpty()) return nullptr;
  const std::size_t first = inRange ? inRange->first : 0;
  const std::size_t last = inRange ? std::min(inRange->last, count() - 1) : count() - 1;
  for (std::size_t i = first; i <= last; ++i) {
    const Token& token = tokens_[i];
    if (!token.subtokens) continue;
    if (token.subtokens->indexOf(childToken)) return &token;
    if (const Token* inner = token.subtokens->findParentOf(childToken)) return highestLevelParent ? &token : inner;
  }
  return nullptr;
}

const Token* TokenList::tokenForCharacterIndex(std::uint32_t characterIndex, bool ignoreWhitespace,
                                               bool endOfLineReturnsLastToken) const {
  const Token* lastToken = last();
  if (lastToken == nullptr) return nullptr;
  const auto slice = sliceForExpressionRange({characterIndex, 1});
  const Token* token = slice ? &tokens_[slice->startIndex] : nullptr;
  if (token == nullptr && endOfLineReturnsLastToken && characterIndex >= lastToken->range.upperBound()) {
    token = getLastToken(ignoreWhitespace);
  }
  return token != nullptr && ignoreWhitespace && token->is(TokenType::whitespace) ? nullptr : token;
}

std::vector<std::string> TokenList::declaredVariableNames() const {
  std::vector<std::string> names;
  enumerateAllTokensOfType(
      TokenType::declaredVariable, /*reversed=*/false,
      [&](const Token& token, const TokenList&, const Token*, bool&) { names.push_back(token.stringValue); });
  return names;
}

}  // namespace tavrine
