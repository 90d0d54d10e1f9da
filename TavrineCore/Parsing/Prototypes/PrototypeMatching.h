#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Utility/FunctionRef.h"

/// Finds phrases in token lists.
namespace tavrine {

/// A list as the prototypes see it. Brackets are worked out once, however many phrases ask for their value. Holds until
/// the list is edited.
class MatchableTokens {
 public:
  explicit MatchableTokens(const TokenList& list) : list_(list) {}

  [[nodiscard]] const TokenList& list() const { return list_; }
  [[nodiscard]] bool matchesAt(std::size_t index, const TokenPrototype& prototype);
  /// Whether the phrase stands in the list from that index on. The ends are tested first: most phrases fail there.
  [[nodiscard]] bool matchesFrom(std::size_t index, const PrototypeSequence& sequence);

 private:
  const TokenList& list_;
  std::unordered_map<std::size_t, Token> evaluated_;
};

/// The slices of the list that are the phrase, from left to right and without overlaps; nothing where there is none.
[[nodiscard]] std::optional<std::vector<TokenSlice>> slicesMatching(const TokenList& list,
                                                                    const PrototypeSequence& sequence);

/// Gives the token that takes the place of the slice; nothing to leave the slice as it is.
using WrapBlock = FunctionRef<std::optional<Token>(const TokenSlice& slice, const PrototypeSequence& sequence)>;

/// Replaces what the phrases match, phrase by phrase in their order and from the end of the list to its start, on its
/// top level. A phrase that names a variable makes a `variable` token of it and asks nobody. With `includeSubTokens`
/// the slice stays in the new token as its subtokens.
void wrapMatchesFor(TokenList& list, std::span<const PrototypeSequenceRef> sequences, bool includeSubTokens,
                    WrapBlock enumerationBlock);

/// Looks for the first of several phrases that ends at a given token.
class PrototypeSequenceMatcher {
 public:
  /// The list must outlive the matcher and stay as it is.
  explicit PrototypeSequenceMatcher(const TokenList& list) : tokens_(list) {}

  struct Match {
    /// One token for each position of the phrase: the words of a place are one token.
    TokenSlice slice;
    PrototypeSequenceRef sequence;
  };

  /// Sequences are tried in their order, so their order is their rank. A place that only a provider knows, at either
  /// end of a phrase, takes all the words that can belong to it.
  [[nodiscard]] std::optional<Match> findSliceMatching(std::span<const PrototypeSequenceRef> sequences,
                                                       std::size_t endIndex);

 private:
  [[nodiscard]] std::optional<TokenSlice> matchRegularSequence(const PrototypeSequence& sequence, std::size_t endIndex);
  [[nodiscard]] std::optional<TokenSlice> matchGreedySequence(const PrototypeSequence& sequence, std::size_t endIndex);

  MatchableTokens tokens_;
};

}  // namespace tavrine
