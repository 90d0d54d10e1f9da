#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

/// What the clean-up does with a token.
struct DeidentifierAction {
  enum class Kind : std::uint8_t {
    none,
    deidentify,
    deidentifyWithFollowingToken,
    deidentifyWithPrecedingToken,
    deidentifyRetainingSubtype,
    /// Its subtokens take its place.
    unpack,
    dropSubtokens,
    /// It stays, over the words that it was made of.
    deidentifyAllSubtokens,
    /// Its text is read again as if nothing had been recognised.
    reparse,
    /// As `unpack`; those of `types` become words.
    unpackAndDeidentify,
  };

  DeidentifierAction(Kind what) : kind(what) {}  // NOLINT(google-explicit-constructor)
  static DeidentifierAction unpackingAndDeidentifying(const TokenTypeSet& types) {
    DeidentifierAction action(Kind::unpackAndDeidentify);
    action.types = types;
    return action;
  }

  Kind kind;
  TokenTypeSet types;
};

/// Remembers how far to the left a list holds nothing meaningful, so that asking for each of many words doesn't walk
/// the same comments again. Good for one sweep from left to right, in which tokens only lose meaning.
class MeaningScan {
 public:
  /// Whether a token before the index means anything by itself.
  bool findsMeaningBefore(const TokenList& list, std::size_t index) {
    const std::uint32_t known = list_ == &list ? nothingBefore_ : 0;
    for (std::size_t i = index; i-- > 0 && list[i].range.location >= known;) {
      if (!TokenTypeSet::nonMeaningfulTypes.contains(list[i].type)) return true;
    }
    list_ = &list;
    nothingBefore_ = list[index].range.location;
    return false;
  }

 private:
  const TokenList* list_ = nullptr;
  std::uint32_t nothingBefore_ = 0;
};

/// A token under question, with what the rules ask about it.
class TokenDeidentificationItem {
 public:
  /// The index is the token's in the list.
  TokenDeidentificationItem(const Token* parent, const TokenList& list, std::size_t index, MeaningScan& scan)
      : parent_(parent), list_(list), index_(index), scan_(scan) {}

  [[nodiscard]] const Token* parent() const { return parent_; }
  [[nodiscard]] const TokenList& list() const { return list_; }
  [[nodiscard]] const Token& token() const { return list_[index_]; }
  [[nodiscard]] std::size_t index() const { return index_; }

  [[nodiscard]] bool parentIs(const TokenTypeSet& types) const {
    return parent_ != nullptr && types.contains(parent_->type);
  }
  [[nodiscard]] DeidentifierAction action(DeidentifierAction::Kind kind, const TokenTypeSet& unlessParentIsIn) const {
    return parentIs(unlessParentIsIn) ? DeidentifierAction::Kind::none : kind;
  }
  [[nodiscard]] const Token* precededBy(const TokenTypeSet& types, bool ignoreWhitespace) const {
    const Token* before = list_.tokenBefore(index_, ignoreWhitespace);
    return before != nullptr && types.contains(before->type) ? before : nullptr;
  }
  [[nodiscard]] const Token* followedBy(const TokenTypeSet& types, bool ignoreWhitespace) const {
    const Token* after = list_.tokenAfter(index_, ignoreWhitespace);
    return after != nullptr && types.contains(after->type) ? after : nullptr;
  }
  [[nodiscard]] bool isAlone() const {
    return !list_.indexBefore(index_, /*ignoreWhitespace=*/true) &&
           !list_.indexAfter(index_, /*ignoreWhitespace=*/true);
  }
  [[nodiscard]] bool proceededByMeaningfulToken() const { return scan_.findsMeaningBefore(list_, index_); }

 private:
  const Token* parent_;
  const TokenList& list_;
  std::size_t index_;
  MeaningScan& scan_;
};

}  // namespace tavrine
