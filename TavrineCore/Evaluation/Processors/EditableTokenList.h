#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// A list that is about to be rewritten for an evaluation: the line's own list until the first edit, a copy from then
/// on. Most lines need no edit and are evaluated as they were parsed.
class EditableTokenList {
 public:
  explicit EditableTokenList(const TokenList& source) : source_(&source) {}
  EditableTokenList(const EditableTokenList&) = delete;
  EditableTokenList& operator=(const EditableTokenList&) = delete;

  [[nodiscard]] const TokenList& list() const { return copy_ ? *copy_ : *source_; }
  const TokenList* operator->() const { return &list(); }
  [[nodiscard]] const Token& operator[](std::size_t index) const { return list()[index]; }
  [[nodiscard]] std::size_t count() const { return list().count(); }
  [[nodiscard]] bool isEdited() const { return copy_.has_value(); }
  /// The list as it came: tells lists apart.
  [[nodiscard]] const TokenList* source() const { return source_; }

  /// The copy. References into the list so far end here.
  TokenList& edit() {
    if (!copy_) {
      copy_.emplace(*source_);
      // A copy forgets the types that stand only within other tokens, and the walks would pass these by.
      copy_->formCacheUnionWith(*source_);
    }
    return *copy_;
  }
  /// The rewritten list, when there has been an edit.
  [[nodiscard]] TokenList take() { return std::move(edit()); }

  /// The index of the nearest token on that side, white space aside and tokens of `skipping` too.
  [[nodiscard]] std::optional<std::size_t> previous(std::size_t index, const TokenTypeSet& skipping = {}) const {
    return list().indexBefore(index, true, skipping);
  }
  [[nodiscard]] std::optional<std::size_t> next(std::size_t index, const TokenTypeSet& skipping = {}) const {
    return list().indexAfter(index, true, skipping);
  }
  [[nodiscard]] const Token* tokenAt(std::optional<std::size_t> index) const {
    return index ? &list()[*index] : nullptr;
  }
  /// Whether there is a token at the index, of that kind.
  [[nodiscard]] bool is(std::optional<std::size_t> index, TokenType type) const {
    return index && list()[*index].is(type);
  }
  [[nodiscard]] bool is(std::optional<std::size_t> index, TokenType type, TokenSubType subType) const {
    return index && list()[*index].is(type, subType);
  }

  // Edits tell where a walk towards the start goes on: it has still to see what stands in front of that index.

  std::size_t replace(std::size_t first, std::size_t last, Token token);
  std::size_t replace(std::size_t first, std::size_t last, std::vector<Token> tokens);
  std::size_t remove(std::size_t first, std::size_t last);
  /// The closed run as one subexpression with the text of the run.
  std::size_t wrap(std::size_t first, std::size_t last);
  /// Makes the token a word comment.
  std::size_t deidentify(std::size_t index);
  std::size_t insertAfter(std::size_t index, Token token);

 private:
  const TokenList* source_;
  std::optional<TokenList> copy_;
};

/// Sees a token at an index of its list, with the token whose subtokens these are (null at the top); tells where the
/// walk goes on: the index itself, or what an edit told.
using EditBlock = FunctionRef<std::size_t(EditableTokenList& list, std::size_t index, const Token* parent)>;

void visitTokens(EditableTokenList& list, const TokenTypeSet& types, const TokenTypeSet& closed, EditBlock block);

/// Hands every token of the types to the block, at every depth but inside of tokens of the closed types, from the end
/// of each list to its start and inner lists first. What the block puts in is not visited. Costs a bit test when the
/// types have never been in the list or in one inside of it.
template <class Block>
void forEachToken(EditableTokenList& list, const TokenTypeSet& types, const Block& block,
                  const TokenTypeSet& closed = {}) {
  visitTokens(list, types, closed, [&](EditableTokenList& tokens, std::size_t index, const Token* parent) {
    return block(tokens, index, parent);
  });
}

/// A subexpression over a run of tokens, with their text.
[[nodiscard]] Token subexpressionOver(std::vector<Token> tokens);

}  // namespace tavrine
