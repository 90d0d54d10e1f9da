#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

/// What stood where before variables gave way to their values.
class ExpandedTokenListInfo {
 public:
  struct Replacement {
    /// Of the value, in the expanded list.
    NSRange range;
    /// The variable that it stands for.
    Token original;
  };

  /// In the order of the list; ranges don't touch twice.
  explicit ExpandedTokenListInfo(std::vector<Replacement> replacements) : replacements_(std::move(replacements)) {}

  [[nodiscard]] const std::vector<Replacement>& replacements() const { return replacements_; }
  /// The replacements that share text with the range: a closed run of the vector above, as [first, past).
  struct Run {
    std::size_t first = 0;
    std::size_t past = 0;
    [[nodiscard]] bool isEmpty() const { return first == past; }
  };
  [[nodiscard]] Run within(NSRange range) const;

 private:
  std::vector<Replacement> replacements_;
};

/// Lets passes see the values of variables in place of their names: with x = 5, "x km" is a unit expression. The names
/// come back afterwards, since the ranges of a line speak of what was typed. What a pass made of a value stays as the
/// metadata of the token around the name.
class TokenListVariableSubstitutor {
 public:
  /// Puts values in place of the variables and subsheets that have one, and tells what stood there; null, with the list
  /// as it was, where there was nothing to replace. A name that is being assigned to ("x = 2x": the first x) stays, and
  /// so does one with a literal for a value between quotation marks.
  static std::shared_ptr<const ExpandedTokenListInfo> expandVariablesIn(TokenList& list);

  /// A copy with the values in it, for who only wants to look.
  static TokenList expandedForReading(const TokenList& list);

  /// Puts the names back, at every depth, and gives all tokens the ranges of the typed text. The list still remembers
  /// the types that it held while the values stood in it.
  static void unexpand(TokenList& list, const ExpandedTokenListInfo& info);
};

}  // namespace tavrine
