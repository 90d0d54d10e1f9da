#include "TavrineCore/Parsing/Tokens/TokenBuffer.h"

#include <functional>
#include <utility>

namespace tavrine {

namespace {

void moveLast(std::vector<Token>& from, std::vector<Token>& to) {
  to.push_back(std::move(from.back()));
  from.pop_back();
}

}  // namespace

TokenBuffer::TokenBuffer(const TokenBuffer& other) {
  front_.reserve(other.size());
  front_.assign(other.front_.begin(), other.front_.end());
  front_.insert(front_.end(), other.back_.rbegin(), other.back_.rend());
}

TokenBuffer& TokenBuffer::operator=(const TokenBuffer& other) {
  if (this != &other) *this = TokenBuffer(other);
  return *this;
}

std::span<const Token> TokenBuffer::contiguous() {
  moveGapInto(size(), size());
  return front_;
}

std::optional<std::size_t> TokenBuffer::indexOfAddress(const Token& token) const noexcept {
  const auto indexIn = [&token](const std::vector<Token>& tokens) -> std::optional<std::size_t> {
    // Pointers into different arrays have no order of their own; `std::less` gives them one.
    constexpr std::less<const Token*> isBefore;
    const Token* start = tokens.data();
    if (tokens.empty() || isBefore(&token, start) || !isBefore(&token, start + tokens.size())) return std::nullopt;
    return static_cast<std::size_t>(&token - start);
  };
  if (const auto index = indexIn(front_)) return index;
  if (const auto index = indexIn(back_)) return size() - 1 - *index;
  return std::nullopt;
}

void TokenBuffer::append(Token token) { insert(size(), std::move(token)); }

void TokenBuffer::insert(std::size_t index, Token token) {
  moveGapInto(index, index);
  front_.push_back(std::move(token));
}

void TokenBuffer::replace(std::size_t first, std::size_t count, Token token) {
  if (count == 1) {
    (*this)[first] = std::move(token);
    return;
  }
  dropRun(first, count);
  front_.push_back(std::move(token));
}

void TokenBuffer::erase(std::size_t first, std::size_t count) {
  if (count != 0) dropRun(first, count);
}

void TokenBuffer::moveGapInto(std::size_t first, std::size_t last) {
  // A walk of edits towards the start takes all tokens there in the end: room for them at once, instead of growing by
  // and by through blocks that go back to the system each time.
  if (front_.size() > last && back_.empty()) back_.reserve(front_.size());
  while (front_.size() > last) moveLast(front_, back_);
  while (front_.size() < first) moveLast(back_, front_);
}

void TokenBuffer::dropRun(std::size_t first, std::size_t count) {
  moveGapInto(first, first + count);
  const std::size_t behindGap = first + count - front_.size();
  front_.erase(front_.begin() + static_cast<std::ptrdiff_t>(first), front_.end());
  back_.erase(back_.end() - static_cast<std::ptrdiff_t>(behindGap), back_.end());
}

}  // namespace tavrine
