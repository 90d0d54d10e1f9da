#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

/// How the gaps of a phrase are spelled: "half of __decimal".
struct PrototypeTypePlaceholders {
  static constexpr std::string_view prototypePrefix = "__";
  /// Ends the placeholder of a value with a unit of some kind: "__length_expression".
  static constexpr std::string_view expressionSuffix = "_expression";

  [[nodiscard]] static bool isPlaceholder(std::string_view text) { return text.starts_with(prototypePrefix); }

  /// `number` of "__decimal"; nothing for what names no type.
  [[nodiscard]] static std::optional<TokenType> typeFor(std::string_view placeholder);
  /// `unitRate` of "__unit_rate".
  [[nodiscard]] static std::optional<TokenSubType> subTypeFor(std::string_view placeholder);
  /// `length` of "__length".
  [[nodiscard]] static std::optional<UnitType> unitTypeFor(std::string_view placeholder);
  /// `length` of "__length_expression".
  [[nodiscard]] static std::optional<UnitType> unitExpressionTypeFor(std::string_view placeholder);

  /// The way back; nothing for a type without a placeholder.
  [[nodiscard]] static std::optional<std::string_view> placeholderFor(TokenType type);
  [[nodiscard]] static std::string placeholderForUnit(UnitType type);
  [[nodiscard]] static std::string placeholderForUnitExpression(UnitType type);
};

}  // namespace tavrine
