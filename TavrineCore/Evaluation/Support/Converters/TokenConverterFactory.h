#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

/// A conversion with its evaluated operand: the 255 and the "in hex" of "255 in hex".
struct ConverterOperands {
  const Token& operand;
  const Token& converter;
};

/// What one kind of converter makes of the operands that it takes.
struct TokenConverter {
  /// For dumps and failure messages.
  std::string_view name;
  TokenSubType requiredConverterSubtype;
  TokenTypeSet permissableOperandTypes;
  Token (*performConversion)(const ConverterOperands&) = nullptr;

  [[nodiscard]] bool accepts(const ConverterOperands& operands) const {
    return operands.converter.is(TokenType::converter, requiredConverterSubtype) &&
           permissableOperandTypes.contains(operands.operand.type);
  }
};

/// Finds what a converter does.
class TokenConverterFactory {
 public:
  /// All converters; the first that accepts the operands wins.
  [[nodiscard]] static std::span<const TokenConverter> converterClasses();
  /// Null if there is none.
  [[nodiscard]] static const TokenConverter* converterFor(const Token& operand, const Token& converter);
  /// The converted operand; nothing where there is no conversion, and the operand is to stand as it is.
  [[nodiscard]] static std::optional<Token> converted(const Token& operand, const Token& converter);
};

/// What a converter was told to convert to: its first subtoken of the type, or that of its last subtoken.
[[nodiscard]] const Token* converterOperandOf(const Token& converter, TokenType type);

}  // namespace tavrine
