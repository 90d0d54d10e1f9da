#pragma once

#include <optional>
#include <string_view>

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// An operator with its two evaluated operands, the left one first.
struct PairOperands {
  const Token& firstToken;
  const Token& secondToken;
  const Token& operatorToken;

  [[nodiscard]] TokenSubType operation() const { return operatorToken.subType; }
  [[nodiscard]] bool firstIs(TokenType type) const { return firstToken.is(type); }
  /// The operand of that type; the first one where both are.
  [[nodiscard]] const Token& operandOf(TokenType type) const { return firstIs(type) ? firstToken : secondToken; }
  /// The operand that isn't `operandOf(type)`.
  [[nodiscard]] const Token& operandBesides(TokenType type) const { return firstIs(type) ? secondToken : firstToken; }
};

/// What an operator means for one combination of operand types.
struct BinaryOperandPair {
  /// Nothing stands for "no answer", as the blank token does.
  using Evaluation = std::optional<Token> (*)(const PairOperands&);

  /// For dumps and failure messages.
  std::string_view name;
  /// Matched on either side. Without a second type, anything stands beside the first.
  TokenType first{};
  std::optional<TokenType> second;
  /// What the tokens have to meet beside their types; null where the types decide alone.
  bool (*alsoRequires)(const PairOperands&) = nullptr;
  Evaluation evaluate = nullptr;

  [[nodiscard]] constexpr bool acceptsTypes(TokenType left, TokenType right) const {
    if (!second) return left == first || right == first;
    return (left == first && right == *second) || (left == *second && right == first);
  }
  [[nodiscard]] bool accepts(const PairOperands& operands) const {
    return acceptsTypes(operands.firstToken.type, operands.secondToken.type) &&
           (alsoRequires == nullptr || alsoRequires(operands));
  }
};

}  // namespace tavrine
