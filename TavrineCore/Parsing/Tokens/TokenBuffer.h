#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// A sequence of tokens with a gap where it was last edited, so that a run of edits at neighbouring places, in either
/// direction, costs what the edits move and not what stands behind them.
class TokenBuffer {
 public:
  /// Hops the gap.
  class Iterator {
   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = Token;
    using difference_type = std::ptrdiff_t;
    using pointer = const Token*;
    using reference = const Token&;

    Iterator() = default;
    Iterator(const TokenBuffer* buffer, std::size_t index) noexcept : buffer_(buffer), index_(index) {}

    reference operator*() const noexcept { return (*buffer_)[index_]; }
    pointer operator->() const noexcept { return &(*buffer_)[index_]; }
    reference operator[](difference_type n) const noexcept { return *(*this + n); }
    Iterator& operator++() noexcept { return ++index_, *this; }
    Iterator& operator--() noexcept { return --index_, *this; }
    Iterator operator++(int) noexcept { return {buffer_, index_++}; }
    Iterator operator--(int) noexcept { return {buffer_, index_--}; }
    Iterator& operator+=(difference_type n) noexcept {
      index_ += static_cast<std::size_t>(n);
      return *this;
    }
    Iterator& operator-=(difference_type n) noexcept { return *this += -n; }
    friend Iterator operator+(Iterator it, difference_type n) noexcept { return it += n; }
    friend Iterator operator+(difference_type n, Iterator it) noexcept { return it += n; }
    friend Iterator operator-(Iterator it, difference_type n) noexcept { return it -= n; }
    friend difference_type operator-(Iterator a, Iterator b) noexcept {
      return static_cast<difference_type>(a.index_) - static_cast<difference_type>(b.index_);
    }
    friend bool operator==(const Iterator& a, const Iterator& b) noexcept { return a.index_ == b.index_; }
    friend auto operator<=>(const Iterator& a, const Iterator& b) noexcept { return a.index_ <=> b.index_; }

   private:
    const TokenBuffer* buffer_ = nullptr;
    std::size_t index_ = 0;
  };

  TokenBuffer() = default;
  explicit TokenBuffer(std::vector<Token> tokens) noexcept
      : store_(std::move(tokens)), size_(store_.size()), gapStart_(size_) {}
  /// A copy has no gap.
  TokenBuffer(const TokenBuffer& other);
  TokenBuffer(TokenBuffer&& other) noexcept
      : store_(std::move(other.store_)),
        size_(std::exchange(other.size_, 0)),
        gapStart_(std::exchange(other.gapStart_, 0)),
        gapLength_(std::exchange(other.gapLength_, 0)) {}
  TokenBuffer& operator=(const TokenBuffer& other);
  TokenBuffer& operator=(TokenBuffer&& other) noexcept {
    store_ = std::move(other.store_);
    size_ = std::exchange(other.size_, 0);
    gapStart_ = std::exchange(other.gapStart_, 0);
    gapLength_ = std::exchange(other.gapLength_, 0);
    return *this;
  }
  ~TokenBuffer() = default;

  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] bool empty() const noexcept { return size_ == 0; }

  [[nodiscard]] const Token& operator[](std::size_t index) const noexcept {
    return store_[index < gapStart_ ? index : index + gapLength_];
  }
  [[nodiscard]] Token& operator[](std::size_t index) noexcept {
    return store_[index < gapStart_ ? index : index + gapLength_];
  }
  [[nodiscard]] Iterator begin() const noexcept { return {this, 0}; }
  [[nodiscard]] Iterator end() const noexcept { return {this, size()}; }

  /// All tokens side by side. Closes the gap: costs a move of each token behind it, and changes nothing where there is
  /// no gap.
  [[nodiscard]] std::span<const Token> contiguous();

  /// Where the buffer keeps this very token; nothing for a token that lives elsewhere, equal or not.
  [[nodiscard]] std::optional<std::size_t> indexOfAddress(const Token& token) const noexcept;

  void append(Token token);
  void insert(std::size_t index, Token token);
  /// Replaces the `count` tokens from `first` on by one. Costs the way of the gap to the nearest end of the run.
  void replace(std::size_t first, std::size_t count, Token token);
  void erase(std::size_t first, std::size_t count);

 private:
  /// Brings the gap to the nearest place within `first` ... `last` (both are places between tokens).
  void moveGapInto(std::size_t first, std::size_t last);
  /// Takes the run into the gap, which then begins at `first`.
  void dropRun(std::size_t first, std::size_t count);

  std::vector<Token> store_;  // those in the gap are empty
  std::size_t size_ = 0;      // without the gap
  std::size_t gapStart_ = 0;
  std::size_t gapLength_ = 0;
};

}  // namespace tavrine
