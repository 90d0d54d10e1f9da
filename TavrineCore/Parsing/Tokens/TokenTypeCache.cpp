#include "TavrineCore/Parsing/Tokens/TokenTypeCache.h"

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

TokenTypeCache::TokenTypeCache(const TokenList& tokenList) {
  constexpr TokenTypeSet kTypesThatOwnTheirInside{TokenType::converter, TokenType::rate, TokenType::timespan,
                                                  TokenType::datestamp};
  tokenList.enumerateAllTokens(
      /*reversed=*/false, [&](const Token& token, const TokenList&, const Token* parent, bool&) {
        if (parent != nullptr && kTypesThatOwnTheirInside.contains(parent->type)) return;
        tokenTypeCache.insert(token.type);
        ++tokenOfTypeCount[static_cast<std::size_t>(token.type)];
        if (token.subType != TokenSubType::notSpecified) tokenSubtypeCache.insert(token.subType);
        if (token.is(TokenType::functionName)) functionNames.insert(token.stringValue);
      });
}

}  // namespace tavrine
