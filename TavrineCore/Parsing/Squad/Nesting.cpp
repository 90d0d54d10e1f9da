#include "TavrineCore/Parsing/Squad/Nesting.h"

#include <algorithm>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

std::size_t nestingOf(const Token& token) {
  if (!token.subtokens) return 0;
  std::size_t deepest = 0;
  for (const Token& inner : *token.subtokens) deepest = std::max(deepest, nestingOf(inner));
  return deepest + 1;
}

}  // namespace tavrine
