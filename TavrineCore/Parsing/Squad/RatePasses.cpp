// "$20 / hour", "5 apples at $3 / apple", "100 km at 50 km/h".

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Utility/Pluralize.h"

namespace tavrine::passes {

namespace {

std::optional<std::size_t> before(const TokenList& list, std::size_t index) {
  return list.indexBefore(index, /*ignoreWhitespace=*/true);
}
std::optional<std::size_t> after(const TokenList& list, std::size_t index) {
  return list.indexAfter(index, /*ignoreWhitespace=*/true);
}
bool isAt(const TokenList& list, std::optional<std::size_t> index, TokenType type) {
  return index && list[*index].is(type);
}

// --- "x / unit" -----------------------------------------------------------------------------------------------------

struct RateValue {
  TokenSubType subType;
  TokenMetadataRef metadata;
};

/// The amount of a unit expression, also of one that was taken for a timespan.
const Token* unitExpressionIn(const Token& token) {
  if (token.is(TokenType::unitExpression)) return &token;
  const bool isTimespan = token.is(TokenType::timespan) && token.subtokens && !token.subtokens->isEmpty();
  return isTimespan && (*token.subtokens)[0].is(TokenType::unitExpression) ? &(*token.subtokens)[0] : nullptr;
}

std::optional<RateValue> rateOf(const Token& token, const TCUnit& perUnit) {
  if (token.is(TokenType::number)) {
    return RateValue{TokenSubType::decimalRate,
                     std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{numberIn(token), perUnit})};
  }
  if (const auto* it = token.metadataAs<PercentageTokenMetadata>()) {
    return RateValue{TokenSubType::percentageRate,
                     std::make_shared<const PercentageRateTokenMetadata>(PercentageRate{it->percentage, perUnit})};
  }
  const Token* expression = unitExpressionIn(token);
  const auto* it = expression != nullptr ? expression->metadataAs<UnitExpressionTokenMetadata>() : nullptr;
  if (it == nullptr) return std::nullopt;
  return RateValue{TokenSubType::unitRate, std::make_shared<const UnitRateTokenMetadata>(UnitRate{
                                               it->numericValue.scaledValue(), it->unitMetaData.underlyingTCUnit,
                                               perUnit, it->prefersCompoundFormatting})};
}

/// What is so much per unit: the token in front of the stroke, or the number of the things that it names.
std::optional<std::size_t> amountBefore(const TokenList& list, std::size_t stroke) {
  const auto amount = before(list, stroke);
  if (!isAt(list, amount, TokenType::unidentified)) return amount;
  const auto number = list.indexBefore(*amount, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords);
  return isAt(list, number, TokenType::number) ? number : std::nullopt;
}

void wrapRate(TokenList& list, std::size_t stroke) {
  const auto perUnit = after(list, stroke);
  if (!isAt(list, perUnit, TokenType::unit) || unitIn(list[*perUnit]) == nullptr) return;
  const auto amount = amountBefore(list, stroke);
  if (!amount) return;
  std::optional<RateValue> rate = rateOf(list[*amount], *unitIn(list[*perUnit]));
  if (!rate) return;
  list.replaceRun(
      *amount, *perUnit,
      list.slice(*amount, *perUnit).embedInContainerToken(TokenType::rate, rate->subType, std::move(rate->metadata)));
}

}  // namespace

void identifyRatesIn(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(TokenType::operator_, /*recalculateRangesAfterEdit=*/false,
                               [](const Token& token, TokenList& tokens, const Token*) {
                                 if (token.subType != TokenSubType::divisionOperator) return;
                                 if (const auto stroke = tokens.indexOf(token)) wrapRate(tokens, *stroke);
                               });
}

// --- Prices of things -----------------------------------------------------------------------------------------------

namespace {

bool saysAt(const Token& token) { return token.is(TokenType::prepositionWord, TokenSubType::prepositionWordAt); }

/// "apples" and "apple".
bool isSameThing(const std::string& things, const std::string& thing) {
  return things == thing || things == Pluralize::pluralized(thing);
}

/// The "at" of "5 apples at $3 / apple".
std::optional<std::size_t> prepositionBeforePrice(const TokenList& list, std::size_t stroke) {
  const auto thing = after(list, stroke);
  if (!isAt(list, thing, TokenType::wordComment)) return std::nullopt;
  const auto price = before(list, stroke);
  const auto preposition = price ? before(list, *price) : std::nullopt;
  if (!preposition || !saysAt(list[*preposition])) return std::nullopt;
  const auto things = before(list, *preposition);
  if (!isAt(list, things, TokenType::wordComment)) return std::nullopt;
  return isSameThing(list[*things].stringValue, list[*thing].stringValue) ? preposition : std::nullopt;
}

void turnIntoOperator(TokenList& list, std::size_t index, TokenSubType subType) {
  list.replaceAt(index, Token(TokenType::operator_, subType, list[index].stringValue, list[index].range));
}

}  // namespace

void identifyImplicitRatesIn(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(TokenType::operator_, /*recalculateRangesAfterEdit=*/false,
                               [](const Token& token, TokenList& tokens, const Token*) {
                                 if (token.subType != TokenSubType::divisionOperator) return;
                                 const auto stroke = tokens.indexOf(token);
                                 const auto preposition =
                                     stroke ? prepositionBeforePrice(tokens, *stroke) : std::nullopt;
                                 if (preposition)
                                   turnIntoOperator(tokens, *preposition, TokenSubType::multiplicationOperator);
                               });
}

// --- "at" and "for" beside rates ------------------------------------------------------------------------------------

namespace {

constexpr TokenSubTypeSet kPrepositions{TokenSubType::prepositionWordAt, TokenSubType::prepositionWordFor};

bool isPrepositionAt(const TokenList& list, std::optional<std::size_t> index) {
  return isAt(list, index, TokenType::prepositionWord) && kPrepositions.contains(list[*index].subType);
}

/// What there is so much of per something else: the kilometers of "50 km/h".
std::optional<TCUnit> numeratorOf(const Token& rate) {
  if (const auto* it = rate.metadataAs<UnitRateTokenMetadata>()) return it->rate.ofUnit;
  const TCUnit* unit = unitIn(rate);
  return unit != nullptr ? UnitRelations::numeratorOf(*unit) : std::nullopt;
}

/// So much of what the rate gives, divided by the rate, is the time it takes; all else is multiplied.
TokenSubType operatorBetween(const Token& amount, const Token& rate) {
  const TCUnit* unit = amount.is(TokenType::unitExpression) ? unitIn(amount) : nullptr;
  const std::optional<TCUnit> numerator = unit != nullptr ? numeratorOf(rate) : std::nullopt;
  return numerator && haveEqualBaseUnits(*unit, *numerator) ? TokenSubType::divisionOperator
                                                            : TokenSubType::multiplicationOperator;
}

void reidentifyOperatorsAround(const Token& rate, TokenList& list) {
  const auto index = list.indexOf(rate);
  if (!index) return;
  if (rate.is(TokenType::unitExpression) && (unitIn(rate) == nullptr || !isXPerYUnit(*unitIn(rate)))) return;

  TokenSubType subType = TokenSubType::multiplicationOperator;
  if (const auto preposition = before(list, *index); isPrepositionAt(list, preposition)) {
    if (const auto amount = before(list, *preposition)) {
      if (list[*amount].is(TokenType::unit)) return;
      subType = operatorBetween(list[*amount], rate);
    }
    turnIntoOperator(list, *preposition, subType);
  }
  if (const auto preposition = after(list, *index); isPrepositionAt(list, preposition)) {
    turnIntoOperator(list, *preposition, subType);
  }
}

}  // namespace

void identifyPrepositionalOperatorsAroundRatesIn(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(
      TokenTypeSet::rateExpressable, /*recalculateRangesAfterEdit=*/false,
      [](const Token& rate, TokenList& tokens, const Token*) { reidentifyOperatorsAround(rate, tokens); });
}

}  // namespace tavrine::passes
