#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Foundation/Decimal.h"
#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

// What the passes that make numbers share.

namespace tavrine {

inline TokenSubType subTypeBySign(const Decimal& value) {
  return value.isSignMinus() ? TokenSubType::negativeNumber : TokenSubType::positiveNumber;
}

/// A number with this metadata; its subtype follows the sign.
inline Token numberToken(NumberTokenMetadata metadata, std::string text, NSRange range,
                         TokenListRef subtokens = nullptr) {
  const TokenSubType subType = subTypeBySign(metadata.decimalValue);
  return {TokenType::number,    subType,
          std::move(text),      range,
          std::move(subtokens), std::make_shared<const NumberTokenMetadata>(std::move(metadata))};
}

/// A plain number as it was typed.
inline Token numberToken(const Decimal& value, std::string text, NSRange range) {
  return numberToken(NumberTokenMetadata(value), std::move(text), range);
}

/// What a number token is worth, its scalar applied: 5000 for "5k".
inline Decimal numberIn(const Token& number) { return number.ownDecimalValue().value_or(Decimal()); }

}  // namespace tavrine
