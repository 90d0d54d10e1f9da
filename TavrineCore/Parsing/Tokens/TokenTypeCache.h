#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "Foundation/StringMap.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class TokenList;

/// What a list holds at the moment, at every depth. What is inside of converters, rates, timespans and dates is left
/// out: it belongs to them.
struct TokenTypeCache {
  explicit TokenTypeCache(const TokenList& tokenList);

  [[nodiscard]] std::uint32_t countOf(TokenType type) const { return tokenOfTypeCount[static_cast<std::size_t>(type)]; }

  TokenTypeSet tokenTypeCache;
  /// Without `notSpecified`.
  TokenSubTypeSet tokenSubtypeCache;
  /// By type.
  std::array<std::uint32_t, kTokenTypeCount> tokenOfTypeCount{};
  /// The texts of the tokens that name functions.
  StringSet functionNames;
};

}  // namespace tavrine
