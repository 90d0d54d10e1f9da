#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"

#include <optional>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

bool LiteralTokenPrototype::matches(const Token& token) const {
  if (invalidLiteralTokenTypes.contains(token.type)) return false;
  if (token.stringValue == string_) return true;
  return !isLowercased(token.stringValue) && lowercased(token.stringValue) == string_;
}

bool TypeTokenPrototype::matches(const Token& token) const {
  if (token.type == type_) return true;
  if (type_ == TokenType::percentage && token.type == TokenType::fraction) return true;
  if (type_ == TokenType::literal && token.type == TokenType::legacyQuotationComment) return true;
  if (token.type != TokenType::wordFunction) return false;
  const std::optional<FunctionIdentifier> called = token.functionIdentifier();
  return called && returnTypeOf(*called) == type_;
}
std::string TypeTokenPrototype::debugDescription() const { return '<' + std::string(toString(type_)) + '>'; }

bool SubTypeTokenPrototype::matches(const Token& token) const { return token.subType == subType_; }
std::string SubTypeTokenPrototype::debugDescription() const { return '<' + std::string(toString(subType_)) + '>'; }

bool TypedUnitTokenPrototype::matches(const Token& token) const {
  if (const auto* unit = token.metadataAs<UnitTokenMetadata>()) return unit->underlyingTCUnit.unitType() == unitType_;
  const std::optional<TCUnit> unit = token.unitValue();
  return unit && unit->unitType() == unitType_;
}
std::string TypedUnitTokenPrototype::debugDescription() const {
  return "<unit of " + std::string(toString(unitType_)) + '>';
}

bool TypedUnitExpressionTokenPrototype::matches(const Token& token) const {
  // Most amounts carry their unit, and what a timespan comes to need not be worked out to say no.
  if (const auto* amount = token.metadataAs<UnitExpressionTokenMetadata>()) {
    return amount->unitMetaData.underlyingTCUnit.unitType() == unitType_;
  }
  if (token.is(TokenType::timespan) && unitType_ != UnitType::duration) return false;
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  return expression && expression->unit.unitType() == unitType_;
}
std::string TypedUnitExpressionTokenPrototype::debugDescription() const {
  return '<' + std::string(toString(unitType_)) + '>';
}

bool ArithmeticEntityTokenPrototype::matches(const Token& token) const {
  // "5 ft 3 in" is worth as much as 5.25 ft.
  if (token.is(TokenType::compoundUnitExpression)) return true;
  return additionalAcceptableTypes.contains(token.type) || token.hasDecimalValue();
}

bool SubExpressionTokenPrototype::matches(const Token& token) const {
  return token.is(TokenType::subexpression) && token.subtokens && prototypeSequence_->matches(*token.subtokens);
}
std::string SubExpressionTokenPrototype::debugDescription() const { return prototypeSequence_->debugDescription(); }

bool AnyWordTokenPrototype::matches(const Token& token) const { return token.is(TokenType::wordComment); }

bool DynamicPlaceTokenPrototype::matches(const Token& token) const {
  return TokenTypeSet::typesInDynamicPlaceNames.contains(token.type);
}

bool CustomTypeTokenPrototype::matches(const Token& token) const {
  const auto* metadata = token.metadataAs<CustomTypeTokenMetadata>();
  return token.is(TokenType::customType) && metadata != nullptr && metadata->customType.prototypePlaceholder() == name_;
}

}  // namespace tavrine
