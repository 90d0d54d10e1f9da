#include "TavrineCore/Evaluation/Processors/EditableTokenList.h"

#include <string>

namespace tavrine {

namespace {

std::vector<Token> copyOf(const TokenList& list, std::size_t first, std::size_t last) {
  const auto begin = list.begin();
  return {begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last) + 1};
}

void visit(EditableTokenList& list, const TokenTypeSet& types, const TokenTypeSet& closed, const Token* parent,
           EditBlock block) {
  std::size_t index = list.count();
  while (index > 0) {
    --index;
    const Token& token = list[index];
    const bool hasInside = token.subtokens && !closed.contains(token.type) &&
                           token.subtokens->typesEverPresentAtAnyDepth().containsTypesFrom(types);
    if (!hasInside && !types.contains(token.type)) continue;
    if (hasInside) {
      const TokenListRef inside = list[index].subtokens;  // an edit may replace the token that holds it
      EditableTokenList sublist(*inside);
      visit(sublist, types, closed, &list[index], block);
      if (sublist.isEdited()) {
        Token changed = list[index];
        changed.subtokens = TokenList::frozen(sublist.take());
        list.edit().replaceAt(index, std::move(changed));
      }
    }
    if (types.contains(list[index].type)) index = block(list, index, parent);
  }
}

}  // namespace

std::size_t EditableTokenList::replace(std::size_t first, std::size_t last, Token token) {
  edit().replaceRun(first, last, std::move(token));
  return first;
}

std::size_t EditableTokenList::replace(std::size_t first, std::size_t last, std::vector<Token> tokens) {
  if (tokens.empty()) return remove(first, last);
  edit().replaceRun(first, last, std::move(tokens.back()));
  tokens.pop_back();
  // From the last to the first, all at one place: nothing behind it moves.
  while (!tokens.empty()) {
    edit().insertAt(first, std::move(tokens.back()));
    tokens.pop_back();
  }
  return first;
}

std::size_t EditableTokenList::remove(std::size_t first, std::size_t last) {
  edit().removeRun(first, last);
  return first;
}

std::size_t EditableTokenList::wrap(std::size_t first, std::size_t last) {
  return replace(first, last, subexpressionOver(copyOf(list(), first, last)));
}

std::size_t EditableTokenList::deidentify(std::size_t index) {
  // The list finds its own tokens at once, and copies of them by comparison.
  edit().deidentify(list()[index]);
  return index;
}

std::size_t EditableTokenList::insertAfter(std::size_t index, Token token) {
  edit().insertAt(index + 1, std::move(token));
  return index;
}

void visitTokens(EditableTokenList& list, const TokenTypeSet& types, const TokenTypeSet& closed, EditBlock block) {
  if (!list->typesEverPresentAtAnyDepth().containsTypesFrom(types)) return;
  visit(list, types, closed, nullptr, block);
}

Token subexpressionOver(std::vector<Token> tokens) {
  std::string text;
  for (const Token& token : tokens) text += token.stringValue;
  const NSRange range = tokens.empty() ? NSRange::zero : tokens.front().range.unionWith(tokens.back().range);
  return Token(TokenType::subexpression, TokenSubType::notSpecified, std::move(text), range,
               TokenList::frozen(std::move(tokens)));
}

}  // namespace tavrine
