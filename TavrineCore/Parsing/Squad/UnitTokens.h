#pragma once

#include <memory>
#include <string>
#include <utility>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenSlice.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

// What the passes that read units share.

namespace tavrine {

/// "km", as it was typed.
inline Token unitToken(std::string text, NSRange range, TCUnit unit) {
  return {TokenType::unit, TokenSubType::notSpecified,
          std::move(text), range,
          nullptr,         std::make_shared<const UnitTokenMetadata>(std::move(unit))};
}

/// One token over the amount and all that tells its unit.
inline Token unitExpressionToken(TokenSlice slice, TCUnit unit, NumberTokenMetadata value, bool prefersCompound) {
  auto metadata = std::make_shared<const UnitExpressionTokenMetadata>(UnitTokenMetadata(std::move(unit)),
                                                                      std::move(value), prefersCompound);
  return std::move(slice).embedInContainerToken(TokenType::unitExpression, TokenSubType::notSpecified,
                                                std::move(metadata));
}

/// The unit of a `unit` or `unitExpression` token without a copy; null for all others.
inline const TCUnit* unitIn(const Token& token) {
  if (const auto* unit = token.metadataAs<UnitTokenMetadata>()) return &unit->underlyingTCUnit;
  const auto* expression = token.metadataAs<UnitExpressionTokenMetadata>();
  return expression != nullptr ? &expression->unitMetaData.underlyingTCUnit : nullptr;
}

inline bool isUnitOfType(const Token& token, UnitType type) {
  const TCUnit* unit = unitIn(token);
  return unit != nullptr && unit->unitType() == type;
}

inline bool isUnitWith(const Token& token, UnitIdentifier identifier) {
  const TCUnit* unit = unitIn(token);
  return unit != nullptr && unit->identifier() == identifier;
}

inline bool isExpressionWith(const Token& token, UnitIdentifier identifier) {
  return token.is(TokenType::unitExpression) && isUnitWith(token, identifier);
}

}  // namespace tavrine
