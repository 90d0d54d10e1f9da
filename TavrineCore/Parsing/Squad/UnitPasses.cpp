// Words that name units: "km", "nautical mile", "m^2", the marks of feet and inches.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/Scalars.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitLookUp.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

/// "L/100km" has four, and no name has more.
constexpr std::size_t kMaximumTokensInUnitName = 4;

void replaceByUnit(TokenList& list, std::size_t first, std::size_t last, TCUnit unit) {
  if (first == last) {
    list.replaceAt(first, unitToken(list[first].stringValue, list[first].range, std::move(unit)));
    return;
  }
  const TokenSlice slice = list.slice(first, last);
  list.replaceRun(first, last, unitToken(slice.stringValue(), slice.range(), std::move(unit)));
}

bool isAt(const TokenList& list, std::optional<std::size_t> index, TokenType type) {
  return index && list[*index].is(type);
}

// --- Words ----------------------------------------------------------------------------------------------------------

void replaceCustomUnits(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* metadata = list[i].is(TokenType::customUnit) ? list[i].metadataAs<CustomUnitTokenMetadata>() : nullptr;
    if (metadata == nullptr) continue;
    const CustomUnit& custom = metadata->customUnit;
    replaceByUnit(list, i, i, custom.unitValueDefinedInTermsOf(unitOf(custom.equivalentUnit)));
  }
}

/// "nautical mile", "km/h": the longest name of several tokens that begins here.
bool wrapMultiWordUnitAt(TokenList& list, std::size_t index, const PassContext& context) {
  if (!beginsMultiWordUnit(list[index].word(), context)) return false;
  std::optional<TCUnit> unit;
  const auto name = list.findPhraseTextBeginningWith(
      index, TokenTypeSet::typesInsideUnitNames,
      [&](std::string_view text) {
        unit = unitNamed(text, context);
        return unit.has_value();
      },
      kMaximumTokensInUnitName - 1);
  if (!name) return false;
  replaceByUnit(list, name->startIndex, name->endIndex, *std::move(unit));
  return true;
}

/// "1st": the letters are no stone.
bool isOrdinal(const TokenList& list, std::size_t index) {
  return list[index].is(TokenType::ordinalSuffix) && index > 0 && list[index - 1].is(TokenType::number);
}

/// "A" is amperes behind a number and at the end of a conversion: "12 V * 2 A", "500 mA in A". Before the name of a
/// unit it stays the article: "5 A DAY".
bool isArticle(const TokenList& list, std::size_t index, const PassContext& context) {
  if (!list[index].is(TokenType::grammerArticleWord)) return false;
  const Token* before = list.tokenBefore(index, /*ignoreWhitespace=*/true);
  const Token* next = list.tokenAfter(index, /*ignoreWhitespace=*/true);
  if (before != nullptr && before->is(TokenType::number)) {
    return next != nullptr && next->is(TokenType::unidentified) && unitNamed(next->word(), context);
  }
  const bool isTarget = before != nullptr && before->is(TokenType::converterSymbol);
  return !isTarget || (next != nullptr && !next->is(TokenType::operator_));
}

void wrapWords(TokenList& list, const PassContext& context) {
  if (!list.anyTypesHaveBeenPresentIn(TokenTypeSet::potentialUnitNamePrefixTypes)) return;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!TokenTypeSet::potentialUnitNamePrefixTypes.contains(list[i].type)) continue;
    if (!mayBeOrBeginUnit(list[i].word(), context)) continue;
    if (wrapMultiWordUnitAt(list, i, context)) continue;
    if (list[i].is(TokenType::converterSymbol) || isOrdinal(list, i)) continue;
    std::optional<TCUnit> unit = unitNamed(list[i].word(), context);
    if (unit && !isArticle(list, i, context)) replaceByUnit(list, i, i, *std::move(unit));
  }
}

// --- Amounts of money in thousands and millions ---------------------------------------------------------------------

bool isMoney(const TokenList& list, std::optional<std::size_t> index) {
  return isAt(list, index, TokenType::unit) && isUnitOfType(list[*index], UnitType::currency);
}

/// "1.5 M USD", "$5 k": beside a currency there is nothing to measure in metres or kelvins.
void scaleMoney(TokenList& list) {
  if (!list.unitTypesCache().contains(UnitType::currency)) return;
  static constexpr TokenTypeSet kScalarTypes{TokenType::unit, TokenType::unidentified};
  for (std::size_t i = 2; i < list.count(); ++i) {
    if (!kScalarTypes.contains(list[i].type) || !Scalars::isValid(list[i].stringValue)) continue;
    if (!list[i - 1].is(TokenType::whitespace) || !list[i - 2].is(TokenType::number)) continue;
    const auto sign = list.indexBefore(i - 2, /*ignoreWhitespace=*/true);
    if (!isMoney(list, sign) && !isMoney(list, list.indexAfter(i, /*ignoreWhitespace=*/true))) continue;
    const TokenSlice slice = list.slice(i - 2, i);
    list.replaceRun(i - 2, i,
                    numberToken(NumberTokenMetadata(numberIn(list[i - 2]), list[i].stringValue), slice.stringValue(),
                                slice.range()));
    i -= 2;
  }
}

// --- Quotation marks ------------------------------------------------------------------------------------------------

/// 5" at the end of the line or before white space, where the 5 stands by itself, behind feet, or under a fraction.
bool quotationMarkCouldBeInches(const TokenList& list, std::size_t mark) {
  if (list.tokenBeforeMustBe(mark, TokenType::converterSymbol, /*ignoreWhitespace=*/true) != nullptr) return true;
  if (mark == 0 || !list[mark - 1].is(TokenType::number)) return false;
  const bool blankFollows = mark + 1 < list.count() && list[mark + 1].is(TokenType::whitespace);
  if (!blankFollows && list.indexAfter(mark, /*ignoreWhitespace=*/true)) return false;
  if (mark == 1) return true;
  const Token& before = list[mark - 2];
  switch (before.type) {
    case TokenType::whitespace:
      return true;
    case TokenType::unit:
      return isUnitWith(before, UnitIdentifier::feet);
    case TokenType::operator_:
      return before.subType == TokenSubType::divisionOperator && mark >= 3 && list[mark - 3].is(TokenType::number);
    default:
      return false;
  }
}

/// All marks or none: one that can't be inches shows that the line quotes something.
void identifyQuotationMarksAsInchesIn(TokenList& list) {
  if (!list.typePrecheck(TokenType::quotationMark)) return;
  std::vector<std::size_t> marks;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::quotationMark)) continue;
    if (!quotationMarkCouldBeInches(list, i)) return;
    marks.push_back(i);
  }
  for (const std::size_t mark : marks) replaceByUnit(list, mark, mark, unitOf(UnitIdentifier::inches));
}

// --- Words that mean two things -------------------------------------------------------------------------------------

constexpr std::string_view kMinutesOrMeters = "m";

bool saysOunces(const Token& token) { return equalsIgnoringCase(token.stringValue, "oz"); }
bool saysPounds(const Token& token) {
  constexpr std::size_t kShortest = 5;
  if (token.stringValue.size() < kShortest) return false;
  return equalsIgnoringCase(token.stringValue, "pound") || equalsIgnoringCase(token.stringValue, "pounds");
}

/// What the units of a line say of those among them that are ambiguous.
struct UnitClues {
  bool m = false;
  bool ounces = false;
  bool pounds = false;
  UnitTypeSet types;
};

/// A unit behind a stroke tells nothing: the hour of "5 m/h" makes no minutes of the metres.
UnitClues cluesIn(const TokenList& list) {
  UnitClues clues;
  for (std::size_t i = 0; i < list.count(); ++i) {
    const Token& token = list[i];
    if (!token.is(TokenType::unit)) continue;
    const Token* before = list.tokenBefore(i, /*ignoreWhitespace=*/true);
    if (before != nullptr && before->subType == TokenSubType::divisionOperator) continue;
    if (const TCUnit* unit = unitIn(token)) clues.types.insert(unit->unitType());
    clues.m = clues.m || equalsIgnoringCase(token.stringValue, kMinutesOrMeters);
    clues.ounces = clues.ounces || saysOunces(token);
    clues.pounds = clues.pounds || saysPounds(token);
  }
  return clues;
}

template <class Test>
void renameUnits(TokenList& list, const TCUnit& unit, Test test) {
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (list[i].is(TokenType::unit) && test(i)) replaceByUnit(list, i, i, unit);
  }
}

bool holdsLength(const TokenList& list) {
  for (const Token& token : list) {
    if (token.is(TokenType::unitExpression) && isUnitOfType(token, UnitType::length)) return true;
  }
  return false;
}

void readAsMinutes(TokenList& list) {
  // Amounts from variables are put together by now.
  if (holdsLength(list)) return;
  renameUnits(list, unitOf(UnitIdentifier::minutes), [&list](std::size_t i) {
    if (list[i].stringValue != kMinutesOrMeters || isUnitOfType(list[i], UnitType::duration)) return false;
    const Token* operation = list.tokenAfterMustBe(i, TokenType::operator_, /*ignoreWhitespace=*/true);
    return operation == nullptr || operation->stringValue != Parser::slash;
  });
}

void resolveAmbiguousUnits(TokenList& list, const PassContext& context) {
  const UnitClues clues = cluesIn(list);
  const bool isAboutMoney = clues.types.contains(UnitType::currency);
  if (clues.m && clues.types.contains(UnitType::duration)) {
    readAsMinutes(list);
  } else if (clues.ounces && clues.types.contains(UnitType::volume)) {
    renameUnits(list, preferredUnitFor(unitOf(UnitIdentifier::fluidOunces), context),
                [&list](std::size_t i) { return saysOunces(list[i]) && !isUnitOfType(list[i], UnitType::volume); });
  } else if (clues.pounds && (isAboutMoney || clues.types.contains(UnitType::force))) {
    const std::optional<TCUnit> unit =
        isAboutMoney ? unitNamed("GBP", context)
                     : std::optional(preferredUnitFor(unitOf(UnitIdentifier::poundsOfForce), context));
    if (unit) renameUnits(list, *unit, [&list](std::size_t i) { return saysPounds(list[i]); });
  }
}

// --- Units with exponents -------------------------------------------------------------------------------------------

/// Where the name that ends with the exponent at the index may begin, from the left: "m/s2", "m2".
std::array<std::optional<std::size_t>, 2> startsOfNameWithExponent(const TokenList& list, std::size_t exponent) {
  const bool isQuotient =
      exponent >= 3 && list[exponent - 2].stringValue == Parser::slash && list[exponent - 3].is(TokenType::unit);
  return {isQuotient ? std::optional(exponent - 3) : std::nullopt, exponent - 1};
}

/// "m2". The 3 of "5ft3in" belongs to the inches.
void joinUnitsAndNumbers(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 1;) {
    if (!list[i - 1].is(TokenType::unit) || !list[i].is(TokenType::number)) continue;
    if (i + 1 < list.count() && list[i + 1].is(TokenType::unit)) continue;
    for (const auto first : startsOfNameWithExponent(list, i)) {
      if (!first) continue;
      std::optional<TCUnit> unit = unitNamed(list.slice(*first, i).stringValue(), context);
      if (!unit) continue;
      replaceByUnit(list, *first, i, *std::move(unit));
      i = *first;
      break;
    }
    if (i == 0) return;
  }
}

/// The unit in front of a stroke before the index: the metres of "m / s".
std::optional<std::size_t> numeratorBefore(const TokenList& list, std::size_t index) {
  const auto stroke = list.indexBefore(index, /*ignoreWhitespace=*/true);
  if (!stroke || list[*stroke].stringValue != Parser::slash) return std::nullopt;
  const auto numerator = list.indexBefore(*stroke, /*ignoreWhitespace=*/true);
  return isAt(list, numerator, TokenType::unit) ? numerator : std::nullopt;
}

/// "m^2", "m / s^2".
void joinUnitsAndPowers(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::operator_, TokenSubType::powerOperator)) continue;
    auto first = list.indexBefore(i, /*ignoreWhitespace=*/true);
    const auto exponent = list.indexAfter(i, /*ignoreWhitespace=*/true);
    if (!isAt(list, first, TokenType::unit) || !isAt(list, exponent, TokenType::number)) continue;
    const std::string name = list[*first].stringValue + list[i].stringValue + list[*exponent].stringValue;
    std::optional<TCUnit> unit = unitNamed(name, context);
    if (!unit) {
      first = numeratorBefore(list, *first);
      if (first) unit = unitNamed(list[*first].stringValue + std::string(Parser::slash) + name, context);
    }
    if (!unit) continue;
    replaceByUnit(list, *first, *exponent, *std::move(unit));
    i = *first;
  }
}

}  // namespace

void identifyUnitsIn(TokenList& list, const PassContext& context) {
  if (context.features.additionalOptions.unitDeclarations) replaceCustomUnits(list);
  wrapWords(list, context);
  scaleMoney(list);
  identifyQuotationMarksAsInchesIn(list);
  if (!list.allTypesHaveBeenPresentIn(TokenTypeSet::numberAndUnit)) return;
  resolveAmbiguousUnits(list, context);
  joinUnitsAndNumbers(list, context);
  if (list.allTypesHaveBeenPresentIn(TokenTypeSet::complexUnitExpressionSubtypes)) joinUnitsAndPowers(list, context);
}

}  // namespace tavrine::passes
