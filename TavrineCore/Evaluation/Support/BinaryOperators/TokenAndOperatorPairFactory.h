#pragma once

#include <span>

#include "TavrineCore/Evaluation/Support/BinaryOperators/BinaryOperandPair.h"

namespace tavrine {

/// Finds the meaning of an operator between two tokens.
class TokenAndOperatorPairFactory {
 public:
  /// All pairs; the first that accepts the operands wins.
  [[nodiscard]] static std::span<const BinaryOperandPair> pairClasses();
  /// The pair for these operands: `UnhandledPair`, which accepts everything, if no other does.
  [[nodiscard]] static const BinaryOperandPair& pairFor(const PairOperands& operands);
};

/// What the pair for these operands gives; the blank token where it gives nothing.
[[nodiscard]] Token evaluatedPair(const Token& first, const Token& second, const Token& operator_);

}  // namespace tavrine
