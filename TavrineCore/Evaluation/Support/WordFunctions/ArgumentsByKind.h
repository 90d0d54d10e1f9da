#pragma once

#include <optional>
#include <span>

#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// Phrases name the same things in any order ("300 g flour in cups", "how many cups is 300 g of flour"): handlers whose
/// arguments are all of different kinds find them by their kind.
namespace tavrine {

/// The first quantity of the kind.
[[nodiscard]] inline std::optional<UnitExpression> quantityOf(UnitType kind, std::span<const Token> arguments) {
  for (const Token& argument : arguments) {
    if (argument.is(TokenType::unit)) continue;
    std::optional<UnitExpression> quantity = argument.unitExpressionValue();
    if (quantity && quantity->unit.unitType() == kind) return quantity;
  }
  return std::nullopt;
}

/// The first bare unit.
[[nodiscard]] inline std::optional<TCUnit> unitAmong(std::span<const Token> arguments) {
  for (const Token& argument : arguments) {
    if (argument.is(TokenType::unit)) return argument.unitValue();
  }
  return std::nullopt;
}

}  // namespace tavrine
