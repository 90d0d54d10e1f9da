#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"

#include <utility>

#include "Foundation/Hashing.h"

namespace tavrine {

ResultConversionRule ResultConversionRule::tokenOf(TokenType type, TokenType convertToType) {
  ResultConversionRule rule;
  rule.kind = Kind::tokenOf;
  rule.type = type;
  rule.convertToType = convertToType;
  return rule;
}

ResultConversionRule ResultConversionRule::unitExpressionOf(UnitType unitType, UnitIdentifier convertToUnit) {
  ResultConversionRule rule;
  rule.kind = Kind::unitExpressionOf;
  rule.unitType = unitType;
  rule.convertToUnit = convertToUnit;
  return rule;
}

ResultConversionRule ResultConversionRule::unitExpressionWith(UnitIdentifier identifier, UnitIdentifier convertToUnit) {
  ResultConversionRule rule;
  rule.kind = Kind::unitExpressionWith;
  rule.identifier = identifier;
  rule.convertToUnit = convertToUnit;
  return rule;
}

ResultConversionRule ResultConversionRule::convertToTimespanUnitExpressionWith(UnitIdentifier identifier) {
  ResultConversionRule rule;
  rule.kind = Kind::convertToTimespanUnitExpressionWith;
  rule.identifier = identifier;
  return rule;
}

ResultConversionRule ResultConversionRule::convertToFeetAndInchesUnitExpressionWith(UnitIdentifier identifier) {
  ResultConversionRule rule;
  rule.kind = Kind::convertToFeetAndInchesUnitExpressionWith;
  rule.identifier = identifier;
  return rule;
}

ResultConversionRule ResultConversionRule::timeWithTimezone(TimeZone convertToTimezone) {
  ResultConversionRule rule;
  rule.kind = Kind::timeWithTimezone;
  rule.convertToTimezone = std::move(convertToTimezone);
  return rule;
}

std::size_t ResultConversionRule::hash() const {
  return hashOf(kind, type, convertToType, unitType, identifier, convertToUnit, convertToTimezone);
}

}  // namespace tavrine
