#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// A run of tokens of a list, named so that it can be looked at and then replaced by one token.
struct TokenSlice {
  /// A copy of the run.
  std::vector<Token> tokens;
  /// Positions in the list that the slice was taken from. `endIndex` is the index of the last token, not one past it.
  std::size_t startIndex = 0;
  std::size_t endIndex = 0;

  [[nodiscard]] bool isEmpty() const noexcept { return tokens.empty(); }
  [[nodiscard]] std::size_t count() const noexcept { return tokens.size(); }

  /// From the start of the first token to the end of the last.
  [[nodiscard]] NSRange range() const noexcept;
  /// The texts of the tokens, joined.
  [[nodiscard]] std::string stringValue() const;

  /// One token over the whole run, with the run as its subtokens.
  [[nodiscard]] Token embedInContainerToken(TokenType type, TokenSubType subType = TokenSubType::notSpecified,
                                            TokenMetadataRef metadata = nullptr) const&;
  /// The same, giving the run away.
  [[nodiscard]] Token embedInContainerToken(TokenType type, TokenSubType subType = TokenSubType::notSpecified,
                                            TokenMetadataRef metadata = nullptr) &&;
};

}  // namespace tavrine
