#include "TavrineCore/Parsing/Tokens/Token.h"

#include <algorithm>

#include "Foundation/Hashing.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

Token::Token() : Token(TokenType::unidentified, " ", NSRange::zero) {}

std::size_t Token::hash() const {
  const std::size_t own = hashOf(type, subType, range, stringValue);
  return subtokens ? hashCombine(own, subtokens->hash()) : own;
}

const Token& Token::lastSubTokenOrSelf() const {
  const Token* token = this;
  while (token->subtokens) {
    const Token* last = token->subtokens->getLastToken(/*ignoringWhitespace=*/true);
    if (last == nullptr) break;
    token = last;
  }
  return *token;
}

std::uint32_t Token::lengthFrom(const Token& other) const noexcept {
  if (*this == other) return range.length;
  if (!(other < *this)) return 0;
  return range.upperBound() - other.range.location;
}

bool Token::hasDecimalValue() const noexcept {
  constexpr TokenTypeSet kTypesWithNumbers{
      TokenType::number,     TokenType::binaryNumber, TokenType::hexadecimalNumber, TokenType::octalNumber,
      TokenType::percentage, TokenType::rate,         TokenType::unitExpression,    TokenType::unixTimestamp,
      TokenType::fraction,   TokenType::boolean};
  return kTypesWithNumbers.contains(type) || metadataAs<NumberTokenMetadata>() != nullptr;
}

}  // namespace tavrine
