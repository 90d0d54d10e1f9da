#include "TavrineCore/Parsing/Tokens/TokenBuffer.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tavrine {

TokenBuffer::TokenBuffer(const TokenBuffer& other) : TokenBuffer(std::vector<Token>(other.begin(), other.end())) {}

TokenBuffer& TokenBuffer::operator=(const TokenBuffer& other) {
  if (this != &other) *this = TokenBuffer(other);
  return *this;
}

std::span<const Token> TokenBuffer::contiguous() {
  if (gapLength_ != 0) {
    moveGapInto(size_, size_);
    store_.resize(size_);
    gapLength_ = 0;
  }
  return store_;
}

std::optional<std::size_t> TokenBuffer::indexOfAddress(const Token& token) const noexcept {
  // Pointers into different arrays have no order of their own; `std::less` gives them one.
  constexpr std::less<const Token*> isBefore;
  const Token* const start = store_.data();
  if (store_.empty() || isBefore(&token, start) || !isBefore(&token, start + store_.size())) return std::nullopt;
  const auto at = static_cast<std::size_t>(&token - start);
  if (at < gapStart_) return at;
  return at < gapStart_ + gapLength_ ? std::nullopt : std::optional(at - gapLength_);
}

void TokenBuffer::append(Token token) { insert(size_, std::move(token)); }

void TokenBuffer::insert(std::size_t index, Token token) {
  moveGapInto(index, index);
  if (gapLength_ == 0 && index == size_) {
    store_.push_back(std::move(token));
  } else {
    if (gapLength_ == 0) {
      constexpr std::size_t kSmallestGap = 4;
      gapLength_ = std::max(kSmallestGap, size_ / 2);
      store_.insert(store_.begin() + static_cast<std::ptrdiff_t>(index), gapLength_, Token());
    }
    store_[gapStart_] = std::move(token);
    --gapLength_;
  }
  ++gapStart_;
  ++size_;
}

void TokenBuffer::replace(std::size_t first, std::size_t count, Token token) {
  if (count == 1) {
    (*this)[first] = std::move(token);
    return;
  }
  dropRun(first, count);
  insert(first, std::move(token));
}

void TokenBuffer::erase(std::size_t first, std::size_t count) {
  if (count != 0) dropRun(first, count);
}

void TokenBuffer::moveGapInto(std::size_t first, std::size_t last) {
  if (gapLength_ == 0) {
    gapStart_ = std::clamp(gapStart_, first, last);
    return;
  }
  for (; gapStart_ > last; --gapStart_) store_[gapStart_ + gapLength_ - 1] = std::move(store_[gapStart_ - 1]);
  for (; gapStart_ < first; ++gapStart_) store_[gapStart_] = std::move(store_[gapStart_ + gapLength_]);
}

void TokenBuffer::dropRun(std::size_t first, std::size_t count) {
  moveGapInto(first, first + count);
  const auto release = [](Token& token) {
    token.stringValue.clear();
    token.subtokens.reset();
    token.metadata.reset();
  };
  for (std::size_t i = first; i < gapStart_; ++i) release(store_[i]);
  const std::size_t behindGap = first + count - gapStart_;
  for (std::size_t i = 0; i < behindGap; ++i) release(store_[gapStart_ + gapLength_ + i]);
  gapStart_ = first;
  gapLength_ += count;
  size_ -= count;
}

}  // namespace tavrine
