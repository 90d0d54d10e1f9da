#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using Kind = TokenPrototype::Kind;

constexpr TokenSubTypeSet kRates{TokenSubType::unitRate, TokenSubType::decimalRate, TokenSubType::percentageRate};

/// The type that a line must have held for the position, where one can be told.
std::optional<TokenType> typeWantedBy(const TokenPrototype& prototype) {
  switch (prototype.kind()) {
    case Kind::type:
      return static_cast<const TypeTokenPrototype&>(prototype).type();
    case Kind::subType:
      if (kRates.contains(static_cast<const SubTypeTokenPrototype&>(prototype).subType())) return TokenType::rate;
      return std::nullopt;
    case Kind::typedUnit:
      return TokenType::unit;
    case Kind::typedUnitExpression:
      return TokenType::unitExpression;
    case Kind::literal:
    case Kind::arithmeticEntity:
    case Kind::subExpression:
    case Kind::anyWord:
    case Kind::dynamicPlace:
    case Kind::customType:
      return std::nullopt;
  }
  return std::nullopt;
}

template <class Tokens>
bool allMatch(const PrototypeSequence::Prototypes& prototypes, const Tokens& tokens) {
  auto token = tokens.begin();
  for (const auto& prototype : prototypes) {
    if (!PrototypeSequence::performMatchCheck(*prototype, *token)) return false;
    ++token;
  }
  return true;
}

}  // namespace

PrototypeSequence::PrototypeSequence(Prototypes prototypes, std::optional<PrototypeSequenceMetadata> metadata)
    : metadata_(std::move(metadata)) {
  auto phrase = std::make_shared<Phrase>();
  for (const auto& prototype : prototypes) {
    if (prototype->kind() == Kind::literal) {
      phrase->words.insert(lowercased(static_cast<const LiteralTokenPrototype&>(*prototype).string()));
    }
    if (const std::optional<TokenType> type = typeWantedBy(*prototype)) phrase->types.insert(*type);
    phrase->asksForPlaceOfProvider = phrase->asksForPlaceOfProvider || prototype->kind() == Kind::dynamicPlace;
  }
  phrase->prototypes = std::move(prototypes);
  phrase_ = std::move(phrase);
}

PrototypeSequenceRef PrototypeSequence::withMetadata(PrototypeSequenceMetadata metadata) const {
  return PrototypeSequenceRef(new PrototypeSequence(phrase_, std::move(metadata)));
}

bool PrototypeSequence::typesWereIn(const TokenList& list) const {
  TokenTypeSet types = typesPresent();
  if (list.typePrecheck(TokenType::fraction)) types.remove(TokenType::percentage);
  if (list.typePrecheck(TokenType::legacyQuotationComment)) types.remove(TokenType::literal);
  return list.typesPrecheck(types);
}

bool PrototypeSequence::matches(const TokenSlice& slice) const {
  return slice.count() > 0 && slice.count() == prototypes().size() && allMatch(prototypes(), slice.tokens);
}

bool PrototypeSequence::matches(const TokenList& list) const {
  return list.count() > 0 && list.count() == prototypes().size() && allMatch(prototypes(), list);
}

bool PrototypeSequence::wantsEvaluated(const TokenPrototype& prototype, const Token& token) {
  return token.is(TokenType::subexpression) && prototype.kind() != Kind::subExpression;
}

bool PrototypeSequence::performMatchCheck(const TokenPrototype& prototype, const Token& token) {
  if (!wantsEvaluated(prototype, token)) return prototype.matches(token);
  // The values of brackets are no words, so they need not be worked out to say no.
  if (prototype.kind() == Kind::literal || prototype.kind() == Kind::anyWord) return false;
  return valueMatches(prototype, token, token.evaluated());
}

bool PrototypeSequence::valueMatches(const TokenPrototype& prototype, const Token& brackets, const Token& value) {
  return prototype.matches(value.is(TokenType::pending) ? brackets : value);
}

std::string PrototypeSequence::debugDescription() const {
  std::string description;
  for (const auto& prototype : prototypes()) {
    if (!description.empty()) description += ' ';
    description += prototype->debugDescription();
  }
  return '[' + description + ']';
}

}  // namespace tavrine
