#include "TavrineCore/Parsing/Tokens/TokenSlice.h"

#include <utility>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

NSRange TokenSlice::range() const noexcept {
  if (tokens.empty()) return NSRange::zero;
  const Token& first = tokens.front();
  return {first.range.location, tokens.size() == 1 ? first.range.length : tokens.back().lengthFrom(first)};
}

std::string TokenSlice::stringValue() const {
  std::size_t length = 0;
  for (const Token& token : tokens) length += token.stringValue.size();
  std::string result;
  result.reserve(length);
  for (const Token& token : tokens) result += token.stringValue;
  return result;
}

Token TokenSlice::embedInContainerToken(TokenType type, TokenSubType subType, TokenMetadataRef metadata) const& {
  return TokenSlice(*this).embedInContainerToken(type, subType, std::move(metadata));
}

Token TokenSlice::embedInContainerToken(TokenType type, TokenSubType subType, TokenMetadataRef metadata) && {
  std::string text = stringValue();
  const NSRange textRange = range();
  return {type, subType, std::move(text), textRange, TokenList::frozen(std::move(tokens)), std::move(metadata)};
}

}  // namespace tavrine
