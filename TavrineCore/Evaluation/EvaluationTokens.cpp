#include "TavrineCore/Evaluation/EvaluationTokens.h"

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

Token errorToken(EvaluationError error) { return Token(TokenType::error, tokenSubtype(error), "Error", NSRange::zero); }

Token pendingToken() { return Token(TokenType::pending, " ", NSRange::zero); }

Token failedToken() { return Token(TokenType::failed, " ", NSRange::zero); }

Token operatorToken(TokenSubType subtype, std::string_view text) {
  return Token(TokenType::operator_, subtype, std::string(text), NSRange::zero);
}

std::optional<Place> placeOfZone(const Token& timezone) {
  if (std::optional<Place> place = timezone.placeValue()) return place;
  const std::optional<TimeZone> zone = timezone.timeZoneValue();
  if (!zone || trimmed(timezone.stringValue).empty()) return std::nullopt;
  return Place{
      .name = timezone.stringValue, .aliases = std::nullopt, .timeZone = *zone, .type = Place::TimeZoneAbbreviation{}};
}

bool isTrue(const Token& token) {
  if (token.is(TokenType::boolean)) return token.subType == TokenSubType::true_;
  if (const std::optional<Decimal> value = token.ownDecimalValue()) return !value->isZero();
  return token.hasDecimalValue() && !token.decimalValue().isZero();
}

bool isInBase(const Token& token) {
  return token.is(TokenType::binaryNumber) || token.is(TokenType::octalNumber) ||
         token.is(TokenType::hexadecimalNumber);
}

std::uint64_t unsignedWhole(const Decimal& value) {
  const Decimal whole = value.rounded(0, RoundingMode::plain);
  return whole.isSignMinus() ? static_cast<std::uint64_t>(whole.intValue()) : whole.uint64Value();
}

std::optional<Token> tokenInBase(TokenType base, std::uint64_t value) {
  switch (base) {
    case TokenType::binaryNumber:
      return TokenFactory::binaryWith(value);
    case TokenType::octalNumber:
      return TokenFactory::octalWith(value);
    case TokenType::hexadecimalNumber:
      return TokenFactory::hexWith(value);
    default:
      return std::nullopt;
  }
}

}  // namespace tavrine
