// "Rent: 500": words that name what follows.

#include <utility>

#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

void identifyLabels(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::colon)) continue;
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (!before) continue;
    const bool isWhitespaceNext = i + 1 < list.count() && list[i + 1].is(TokenType::whitespace);
    if (list[*before].is(TokenType::number) && !isWhitespaceNext) continue;
    TokenSlice slice = list.slice(*before, i);
    list.replaceRun(*before, i, std::move(slice).embedInContainerToken(TokenType::label));
    i = *before;
  }
}

namespace passes {

void identifyLabelsIn(TokenList& list, const PassContext&) { identifyLabels(list); }

void identifyLabelExpressionsIn(TokenList& list, const PassContext&) {
  const Token* label = list.lastTokenOfType(TokenType::label);
  if (label == nullptr) return;
  const std::size_t last = *list.indexOf(*label);
  const Token* before = list.tokenBefore(last, /*ignoreWhitespace=*/true);
  if (before != nullptr && before->is(TokenType::bracket)) return;
  std::size_t first = last;
  while (first > 0 && !list[first - 1].is(TokenType::variableDeclaration)) --first;
  while (first < last && list[first].is(TokenType::whitespace)) ++first;
  TokenSlice slice = list.slice(first, last);
  list.replaceRun(first, last, std::move(slice).embedInContainerToken(TokenType::labelExpression));
}

}  // namespace passes

}  // namespace tavrine
