#include "TavrineCore/Parsing/Tokens/TokenBuffer.h"

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

std::span<const Token> TokenBuffer::contiguous() noexcept {
  moveGapInto(size(), size());
  return front_;
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
