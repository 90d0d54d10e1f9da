#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>

#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

/// The bits behind `TokenTypeSet` and `TokenSubTypeSet`. One kind converts to the set that holds it alone.
template <class Derived, class Kind, std::size_t kindCount>
class TokenKindSet {
  static constexpr std::size_t kWordCount = (kindCount + 63) / 64;

 public:
  /// Walks the members in the order of the enumeration.
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Kind;
    using difference_type = std::ptrdiff_t;
    using pointer = const Kind*;
    using reference = Kind;

    constexpr Iterator() = default;
    constexpr explicit Iterator(const TokenKindSet& set) : words_(set.words_) { skipEmptyWords(); }

    constexpr Kind operator*() const {
      return static_cast<Kind>(word_ * 64 + static_cast<std::size_t>(std::countr_zero(words_[word_])));
    }
    constexpr Iterator& operator++() {
      words_[word_] &= words_[word_] - 1;
      skipEmptyWords();
      return *this;
    }
    constexpr Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    friend constexpr bool operator==(const Iterator&, const Iterator&) = default;

   private:
    constexpr void skipEmptyWords() {
      while (word_ < kWordCount && words_[word_] == 0) ++word_;
    }

    std::array<std::uint64_t, kWordCount> words_{};
    std::size_t word_ = 0;

    friend class TokenKindSet;
    static constexpr Iterator past() {
      Iterator end;
      end.word_ = kWordCount;
      return end;
    }
  };

  constexpr TokenKindSet() = default;
  constexpr TokenKindSet(Kind kind) { insert(kind); }  // NOLINT(google-explicit-constructor)
  constexpr TokenKindSet(std::initializer_list<Kind> kinds) {
    for (const Kind kind : kinds) insert(kind);
  }

  /// Every kind there is.
  static constexpr Derived all() {
    Derived result;
    for (std::size_t i = 0; i < kindCount; ++i) result.insert(static_cast<Kind>(i));
    return result;
  }

  constexpr bool contains(Kind kind) const {
    const auto index = static_cast<std::size_t>(kind);
    return ((words_[index / 64] >> (index % 64)) & 1) != 0;
  }
  /// Whether the two sets share a member.
  constexpr bool containsTypesFrom(const Derived& other) const {
    for (std::size_t i = 0; i < kWordCount; ++i) {
      if ((words_[i] & other.words_[i]) != 0) return true;
    }
    return false;
  }
  constexpr bool isSubsetOf(const Derived& other) const {
    for (std::size_t i = 0; i < kWordCount; ++i) {
      if ((words_[i] & ~other.words_[i]) != 0) return false;
    }
    return true;
  }
  constexpr bool isEmpty() const { return *this == TokenKindSet(); }
  constexpr std::size_t count() const {
    std::size_t result = 0;
    for (const std::uint64_t word : words_) result += static_cast<std::size_t>(std::popcount(word));
    return result;
  }

  constexpr void insert(Kind kind) {
    const auto index = static_cast<std::size_t>(kind);
    words_[index / 64] |= std::uint64_t{1} << (index % 64);
  }
  constexpr void remove(Kind kind) {
    const auto index = static_cast<std::size_t>(kind);
    words_[index / 64] &= ~(std::uint64_t{1} << (index % 64));
  }
  constexpr void formUnion(const Derived& other) {
    for (std::size_t i = 0; i < kWordCount; ++i) words_[i] |= other.words_[i];
  }
  constexpr Derived unionWith(const Derived& other) const {
    Derived result = static_cast<const Derived&>(*this);
    result.formUnion(other);
    return result;
  }

  constexpr Iterator begin() const { return Iterator(*this); }
  constexpr Iterator end() const { return Iterator::past(); }

  constexpr std::size_t hash() const {
    std::uint64_t result = 0;
    for (const std::uint64_t word : words_) {
      result = (result ^ word) * 0x9E3779B97F4A7C15u;
      result ^= result >> 32;
    }
    return static_cast<std::size_t>(result);
  }

  friend constexpr bool operator==(const TokenKindSet&, const TokenKindSet&) = default;
  friend constexpr Derived operator|(const Derived& a, const Derived& b) { return a.unionWith(b); }

 private:
  std::array<std::uint64_t, kWordCount> words_{};
};

/// A set of token types, cheap enough to gate every scan: a question is an `and` or two. A single type converts to the
/// set of it, so that what takes a set takes a type as well.
class TokenTypeSet : public TokenKindSet<TokenTypeSet, TokenType, kTokenTypeCount> {
 public:
  using TokenKindSet::TokenKindSet;

  /// The named sets; usable in constant expressions.
#define TOKEN_TYPE_SET(name, ...) static const TokenTypeSet name;
#include "TavrineCore/Parsing/Tokens/TokenTypeSets.inc"
#undef TOKEN_TYPE_SET
  static const TokenTypeSet anyTypes;
  static const TokenTypeSet noTypes;
  static const TokenTypeSet empty;

  /// The types of comments in whose brackets nothing is calculated.
  static const TokenTypeSet commentTokenTypes;
};

/// A set of token subtypes.
class TokenSubTypeSet : public TokenKindSet<TokenSubTypeSet, TokenSubType, kTokenSubTypeCount> {
 public:
  using TokenKindSet::TokenKindSet;
};

namespace detail {

/// Where the bare names of the types can be used to fill the sets below; the sets' own names would hide them.
struct TokenTypeSetMembers {
  using enum TokenType;
#define TOKEN_TYPE_SET(name, ...) \
  static constexpr TokenTypeSet name##Members() { return TokenTypeSet{__VA_ARGS__}; }
#include "TavrineCore/Parsing/Tokens/TokenTypeSets.inc"
#undef TOKEN_TYPE_SET
};

}  // namespace detail

#define TOKEN_TYPE_SET(name, ...) \
  inline constexpr TokenTypeSet TokenTypeSet::name = detail::TokenTypeSetMembers::name##Members();
#include "TavrineCore/Parsing/Tokens/TokenTypeSets.inc"
#undef TOKEN_TYPE_SET
inline constexpr TokenTypeSet TokenTypeSet::anyTypes = TokenTypeSet::all();
inline constexpr TokenTypeSet TokenTypeSet::noTypes;
inline constexpr TokenTypeSet TokenTypeSet::empty;
inline constexpr TokenTypeSet TokenTypeSet::commentTokenTypes{TokenType::slashComment, TokenType::labelExpression,
                                                              TokenType::bracketComment,
                                                              TokenType::legacyQuotationComment, TokenType::label};

static_assert(sizeof(TokenTypeSet) == 16);
static_assert(TokenTypeSet::anyTypes.count() == kTokenTypeCount);

}  // namespace tavrine
