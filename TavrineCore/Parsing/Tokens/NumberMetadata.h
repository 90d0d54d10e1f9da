#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

/// A number as typed. "5k" has the value 5 and the scalar "k": `Token::decimalValue` multiplies, the text stays.
struct NumberTokenMetadata final : TokenMetadataOf<TokenMetadataKind::number> {
  explicit NumberTokenMetadata(Decimal value, std::optional<std::string> scalarText = std::nullopt,
                               bool isNumberWord = false, bool isScientific = false)
      : decimalValue(value),
        scalar(std::move(scalarText)),
        representsNumberWord(isNumberWord),
        alwaysFormatAsScientificNotation(isScientific) {}

  /// The value of `pi`, `tau` or `phi`. Any other subtype is a programming error, and gives 0.
  static NumberTokenMetadata forConstant(TokenSubType subType);

  /// The value with its scalar applied, where the scalar is one that stands for a power of ten.
  [[nodiscard]] Decimal scaledValue() const;

  Decimal decimalValue;
  std::optional<std::string> scalar;
  /// Typed as a word: "seven".
  bool representsNumberWord;
  bool alwaysFormatAsScientificNotation;
};

/// "0xFF".
struct HexTokenMetadata final : TokenMetadataOf<TokenMetadataKind::hex> {
  explicit HexTokenMetadata(std::uint64_t value) : intValue(value) {}
  std::uint64_t intValue;
};

/// "0o17".
struct OctalTokenMetadata final : TokenMetadataOf<TokenMetadataKind::octal> {
  explicit OctalTokenMetadata(std::uint64_t value) : intValue(value) {}
  std::uint64_t intValue;
};

/// "0b101".
struct BinaryTokenMetadata final : TokenMetadataOf<TokenMetadataKind::binary> {
  explicit BinaryTokenMetadata(std::uint64_t value) : intValue(value) {}
  std::uint64_t intValue;
};

/// A number of decimal places: the 2 of "to 2 dp".
struct DpQuantityTokenMetadata final : TokenMetadataOf<TokenMetadataKind::dpQuantity> {
  explicit DpQuantityTokenMetadata(Decimal dp) : specifiedDp(dp) {}
  Decimal specifiedDp;
};

}  // namespace tavrine
