#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"

#include <algorithm>

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

/// The kind of unit that a line must have held for the position. Durations come from tokens of many types.
std::optional<UnitType> unitTypeWantedBy(const TokenPrototype& prototype) {
  std::optional<UnitType> type;
  if (prototype.kind() == Kind::typedUnit) {
    type = static_cast<const TypedUnitTokenPrototype&>(prototype).unitType();
  } else if (prototype.kind() == Kind::typedUnitExpression) {
    type = static_cast<const TypedUnitExpressionTokenPrototype&>(prototype).unitType();
  }
  return type == UnitType::duration ? std::nullopt : type;
}

/// Tokens that may come to a value in a unit that stands nowhere in the line.
constexpr TokenTypeSet kOfUnitsToBeWorkedOut{TokenType::wordFunction, TokenType::subexpression, TokenType::variable,
                                             TokenType::subsheet};

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
      const std::string& word = static_cast<const LiteralTokenPrototype&>(*prototype).string();
      if (phrase->words.empty()) {
        phrase->firstWordIndex = static_cast<std::size_t>(&prototype - prototypes.data());
        phrase->firstWordHash = HashedWord(word).hash;
      }
      phrase->words.insert(lowercased(word));
    }
    if (const std::optional<TokenType> type = typeWantedBy(*prototype)) phrase->types.insert(*type);
    if (const std::optional<UnitType> type = unitTypeWantedBy(*prototype)) phrase->unitTypes.push_back(*type);
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
  if (!list.typesPrecheck(types)) return false;
  const auto wasPresent = [&list](UnitType type) { return list.unitTypesCache().contains(type); };
  return std::all_of(phrase_->unitTypes.begin(), phrase_->unitTypes.end(), wasPresent) ||
         list.anyTypesHaveBeenPresentIn(kOfUnitsToBeWorkedOut);
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
