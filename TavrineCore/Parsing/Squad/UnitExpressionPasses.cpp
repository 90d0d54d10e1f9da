// Numbers and units: "30 km", "$5", "5 ft 3 in", "5 - 10 km", "10 km a day".

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Squad/AngleReading.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

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
bool isAt(const TokenList& list, std::optional<std::size_t> index, TokenType type, TokenSubType subType) {
  return index && list[*index].is(type, subType);
}

NumberTokenMetadata numberOf(const Token& token) {
  const auto* metadata = token.metadataAs<NumberTokenMetadata>();
  return metadata != nullptr ? *metadata : NumberTokenMetadata(numberIn(token));
}

// --- A number and a unit --------------------------------------------------------------------------------------------

struct Shape {
  bool unitComesFirst;
  bool blankBetween;
};

/// In the order in which they are tried. A unit comes first where it is money: "$5", but not "km 5".
constexpr std::array<Shape, 4> kShapes{{{false, true}, {true, true}, {false, false}, {true, false}}};

bool isCurrency(const Token& token) { return isUnitOfType(token, UnitType::currency); }

/// "$" in "$5", but neither "km" in "km 5" nor "won" in "we won 5 games".
bool standsBeforeNumbers(const Token& token) {
  return isCurrency(token) && !CurrencyList::isOrdinaryWordBeforeNumbers(token.stringValue);
}

/// "$", but not "USD".
bool isSymbolicCurrencyUnit(const Token& token) {
  return token.is(TokenType::unit) && isCurrency(token) && isSingleCluster(token.stringValue);
}
bool isNamedCurrencyUnit(const Token& token) {
  return token.is(TokenType::unit) && isCurrency(token) && !isSingleCluster(token.stringValue);
}

/// "$5 AUD" is 5 Australian dollars: beside a currency's name its sign only says that this is money.
TCUnit unitForUnitExpressionWith(const TokenList& list, std::size_t index) {
  if (isSymbolicCurrencyUnit(list[index])) {
    const Token* neighbour = list.tokenBefore(index, /*ignoreWhitespace=*/true);
    if (neighbour == nullptr || !isNamedCurrencyUnit(*neighbour)) {
      neighbour = list.tokenAfter(index, /*ignoreWhitespace=*/true);
    }
    if (neighbour != nullptr && isNamedCurrencyUnit(*neighbour)) return *unitIn(*neighbour);
  }
  return *unitIn(list[index]);
}

/// The sign in "$5 AUD". In "10 $ 5 AUD" it belongs to the 10.
std::optional<std::size_t> currencySignBefore(const TokenList& list, std::size_t number) {
  const auto sign = before(list, number);
  if (!sign || !isSymbolicCurrencyUnit(list[*sign])) return std::nullopt;
  const bool standsDirectly = *sign + 1 == number;
  return standsDirectly || !isAt(list, before(list, *sign), TokenType::number) ? sign : std::nullopt;
}

/// Amounts that are divided by a unit are rates, which show one unit.
bool isDividedByUnit(const TokenList& list, std::size_t index) {
  const auto stroke = after(list, index);
  return isAt(list, stroke, TokenType::operator_, TokenSubType::divisionOperator) &&
         isAt(list, after(list, *stroke), TokenType::unit);
}

/// The first token of the shape whose last one stands at the index.
std::optional<std::size_t> startOf(Shape shape, const TokenList& list, std::size_t last) {
  const std::size_t distance = shape.blankBetween ? 2 : 1;
  if (last < distance) return std::nullopt;
  const std::size_t first = last - distance;
  if (!list[first].is(shape.unitComesFirst ? TokenType::unit : TokenType::number)) return std::nullopt;
  if (shape.blankBetween && !list[last - 1].is(TokenType::whitespace)) return std::nullopt;
  return first;
}

void wrapAmounts(TokenList& list, Shape shape) {
  if (shape.unitComesFirst && !list.unitTypesCache().contains(UnitType::currency)) return;
  const TokenType typeOfLast = shape.unitComesFirst ? TokenType::number : TokenType::unit;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(typeOfLast)) continue;
    const auto start = startOf(shape, list, i);
    if (!start) continue;
    const std::size_t unit = shape.unitComesFirst ? *start : i;
    const std::size_t number = shape.unitComesFirst ? i : *start;
    if (unitIn(list[unit]) == nullptr || list[number].metadataAs<NumberTokenMetadata>() == nullptr) continue;
    if (shape.unitComesFirst && !standsBeforeNumbers(list[unit])) continue;

    std::size_t first = *start;
    if (!shape.unitComesFirst && isNamedCurrencyUnit(list[unit])) {
      first = currencySignBefore(list, number).value_or(first);
    }
    list.replaceRun(first, i,
                    unitExpressionToken(list.slice(first, i), unitForUnitExpressionWith(list, unit),
                                        numberOf(list[number]), /*prefersCompound=*/!isDividedByUnit(list, i)));
    i = first;
  }
}

// --- Signs of currencies without a number ---------------------------------------------------------------------------

bool isAmountWithCurrencySign(const Token& token) {
  if (!token.is(TokenType::unitExpression) || !isCurrency(token) || !token.subtokens) return false;
  const Token* unit = token.subtokens->firstTokenOfType(TokenType::unit);
  return unit != nullptr && isSingleCluster(unit->stringValue);
}

/// "$5 CAD": the name joins the amount and says which dollars.
bool joinAmountBeside(TokenList& list, std::size_t index) {
  if (CurrencyList::currenciesThatMustBeUppercased.contains(unitIn(list[index])->identifier()) &&
      uppercased(list[index].stringValue) != list[index].stringValue) {
    return false;
  }
  auto amount = before(list, index);
  if (!isAt(list, amount, TokenType::unitExpression)) amount = after(list, index);
  if (!amount || !isAmountWithCurrencySign(list[*amount])) return false;
  const auto* metadata = list[*amount].metadataAs<UnitExpressionTokenMetadata>();
  const std::size_t first = std::min(index, *amount);
  const std::size_t last = std::max(index, *amount);
  list.replaceRun(first, last,
                  unitExpressionToken(list.slice(first, last), *unitIn(list[index]), metadata->numericValue,
                                      metadata->prefersCompoundFormatting));
  return true;
}

/// "$ -5". "$ -5%" is a change.
void joinNegativeNumberBehind(TokenList& list, std::size_t index) {
  const auto minus = after(list, index);
  if (!isAt(list, minus, TokenType::operator_, TokenSubType::subtractionOperator)) return;
  const std::size_t number = *minus + 1;
  if (number >= list.count() || !list[number].is(TokenType::number)) return;
  if (number + 1 < list.count() && list[number + 1].is(TokenType::percentageSymbol)) return;
  NumberTokenMetadata value = numberOf(list[number]);
  value.decimalValue = value.decimalValue.negated();
  list.replaceRun(index, number,
                  unitExpressionToken(list.slice(index, number), *unitIn(list[index]), std::move(value),
                                      /*prefersCompound=*/!isDividedByUnit(list, number)));
}

void handleSpecialDanglingCurrencySymbolCases(TokenList& list) {
  if (!list.unitTypesCache().contains(UnitType::currency)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    // An amount that took in its left neighbour has moved the end of the list.
    if (i >= list.count() || !list[i].is(TokenType::unit) || !isCurrency(list[i])) continue;
    if (!joinAmountBeside(list, i)) joinNegativeNumberBehind(list, i);
  }
}

// --- "in" -----------------------------------------------------------------------------------------------------------

/// What "in" can convert into.
constexpr TokenTypeSet kTargets{TokenType::unit,     TokenType::unitExpression,   TokenType::typeName,
                                TokenType::timezone, TokenType::percentageSymbol, TokenType::dpSpecifier,
                                TokenType::rate,     TokenType::datestamp,        TokenType::dateWord};

bool saysIn(const Token& token) { return equalsIgnoringCase(token.stringValue, Parser::shortInches); }

bool isStroke(const Token& token) {
  return token.is(TokenType::operator_, TokenSubType::divisionOperator) && token.stringValue == Parser::slash;
}

/// The 4 of "3/4".
bool isDenominator(const TokenList& list, std::size_t number) {
  return number >= 2 && isStroke(list[number - 1]) && list[number - 2].is(TokenType::number);
}

bool standsBehindFeet(const TokenList& list, std::size_t number) {
  const auto feet = list.indexBefore(number, /*ignoreWhitespace=*/true, TokenTypeSet::operatorSet);
  return feet && isExpressionWith(list[*feet], UnitIdentifier::feet);
}

/// "5 ft 11 in cm": the 11 is inches without the word, which converts.
bool convertsFeetAndInches(const TokenList& list, std::size_t symbol, std::size_t number) {
  return isExpressionWith(list[*before(list, number)], UnitIdentifier::feet) &&
         isAt(list, after(list, symbol), TokenType::unit);
}

/// An operator that reckons with the amount before it. The stroke of "in / day" belongs to what is converted into.
bool isReckonedWith(const TokenList& list, std::size_t operation) {
  if (!list[operation].is(TokenType::operator_)) return false;
  const bool isPerUnit =
      list[operation].subType == TokenSubType::divisionOperator && isAt(list, after(list, operation), TokenType::unit);
  return !isPerUnit;
}

bool closesBracket(const Token& token) { return token.is(TokenType::bracket) && token.stringValue == ")"; }

/// What may stand behind the last word of an amount.
constexpr TokenTypeSet kBehindAmounts{TokenType::bracket, TokenType::comma, TokenType::semicolon, TokenType::equals,
                                      TokenType::conjunctionWord};

/// "5 ft 3 in", "5 3/4 in", "3 in * 4", and the second of "3 in + 4 in", behind other feet or inches.
bool readsAsInches(const TokenList& list, std::size_t symbol, std::size_t number, bool behindFeetOrInches) {
  if (!saysIn(list[symbol])) return false;
  const auto next = after(list, symbol);
  // Of two in a row the first is a unit: "5 in in cm".
  if (isAt(list, next, TokenType::converterSymbol)) return true;
  if (standsBehindFeet(list, number)) return !convertsFeetAndInches(list, symbol, number);
  if (next && kTargets.contains(list[*next].type)) return false;
  if (isDenominator(list, number)) return true;
  if (next && (isReckonedWith(list, *next) || closesBracket(list[*next]))) return true;
  return behindFeetOrInches && (!next || kBehindAmounts.contains(list[*next].type));
}

/// Gives the index of the amount's token.
std::size_t wrapInches(TokenList& list, std::size_t number, std::size_t symbol) {
  const TCUnit& inches = unitOf(UnitIdentifier::inches);
  const Token word = list[symbol];
  list.replaceAt(symbol, unitToken(word.stringValue, word.range, inches));
  list.replaceRun(number, symbol,
                  unitExpressionToken(list.slice(number, symbol), inches, numberOf(list[number]),
                                      /*prefersCompound=*/false));
  return number;
}

bool isFeetOrInches(const Token& token) {
  return isExpressionWith(token, UnitIdentifier::feet) || isExpressionWith(token, UnitIdentifier::inches);
}

/// "in" is a word of conversion unless something says otherwise.
void handleInAsInchesNotConverter(TokenList& list) {
  if (!list.typePrecheck(TokenType::converterSymbol)) return;
  bool behindFeetOrInches = false;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (list[i].is(TokenType::converterSymbol)) {
      const auto number = before(list, i);
      if (isAt(list, number, TokenType::number) && readsAsInches(list, i, *number, behindFeetOrInches)) {
        i = wrapInches(list, *number, i);
      }
    }
    behindFeetOrInches = behindFeetOrInches || isFeetOrInches(list[i]);
  }
}

// --- Mixed numbers, feet and inches ---------------------------------------------------------------------------------

/// The whole number in front of the fraction whose denominator the amount at the index has taken: "5 3/4 in". Blanks
/// around the stroke are no matter for inches; elsewhere they make it a division.
std::optional<std::size_t> wholeNumberBefore(const TokenList& list, std::size_t amount) {
  const auto stroke = before(list, amount);
  if (!isAt(list, stroke, TokenType::operator_, TokenSubType::divisionOperator)) return std::nullopt;
  const auto numerator = before(list, *stroke);
  if (!isAt(list, numerator, TokenType::number)) return std::nullopt;
  const bool isFraction = *stroke + 1 == amount && *numerator + 1 == *stroke && isStroke(list[*stroke]);
  if (!isFraction && !isExpressionWith(list[amount], UnitIdentifier::inches)) return std::nullopt;
  const auto whole = before(list, *numerator);
  return isAt(list, whole, TokenType::number) ? whole : std::nullopt;
}

/// "5 3/4 in" is 5.75 in, "2 1/2 cups" 2.5 cups.
void joinMixedNumbers(TokenList& list) {
  if (!list.typePrecheck(TokenType::operator_)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* amount =
        list[i].is(TokenType::unitExpression) ? list[i].metadataAs<UnitExpressionTokenMetadata>() : nullptr;
    const auto whole = amount != nullptr ? wholeNumberBefore(list, i) : std::nullopt;
    if (!whole || numberIn(list[i]).isZero()) continue;
    const Decimal wholeValue = numberIn(list[*whole]);
    const Decimal fraction = numberIn(list[*after(list, *whole)]) / numberIn(list[i]);
    const Decimal value = wholeValue.isSignMinus() ? wholeValue - fraction : wholeValue + fraction;
    const bool prefersCompound =
        amount->prefersCompoundFormatting && !isExpressionWith(list[i], UnitIdentifier::inches);
    list.replaceRun(*whole, i,
                    unitExpressionToken(list.slice(*whole, i), amount->unitMetaData.underlyingTCUnit,
                                        NumberTokenMetadata(value), prefersCompound));
    i = *whole;
  }
}

Token compoundOver(TokenSlice slice, const TCUnit& primaryUnit) {
  auto metadata = std::make_shared<const CompoundUnitExpressionTokenMetadata>(UnitTokenMetadata(primaryUnit));
  return std::move(slice).embedInContainerToken(TokenType::compoundUnitExpression, TokenSubType::notSpecified,
                                                std::move(metadata));
}

/// What may stand directly behind the 3 of "5 ft 3": in "5 ft 3%" it counts something else.
constexpr TokenTypeSet kBehindBareInches{TokenType::whitespace, TokenType::operator_, TokenType::bracket,
                                         TokenType::comma,      TokenType::semicolon, TokenType::equals};

bool isBareNumber(const TokenList& list, std::optional<std::size_t> index) {
  if (!isAt(list, index, TokenType::number)) return false;
  if (*index + 1 < list.count() && !kBehindBareInches.contains(list[*index + 1].type)) return false;
  return !isAt(list, after(list, *index), TokenType::percentageSymbol);
}

/// "5 ft 3".
void joinBareInchesToFeet(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!isExpressionWith(list[i], UnitIdentifier::feet)) continue;
    const auto number = after(list, i);
    if (!isBareNumber(list, number)) continue;
    list.replaceAt(*number, unitExpressionToken(list.slice(*number, *number), unitOf(UnitIdentifier::inches),
                                                numberOf(list[*number]), /*prefersCompound=*/false));
    const TCUnit feet = *unitIn(list[i]);
    list.replaceRun(i, *number, compoundOver(list.slice(i, *number), feet));
  }
}

// --- Several amounts that are one -----------------------------------------------------------------------------------

/// Whether the amount to the left belongs to a run of amounts of the kind. Behind degrees the marks ' and " are minutes
/// and seconds, whatever they were read as.
bool fitsInto(UnitType kindOfRun, UnitType kind) {
  if (kind == kindOfRun) return true;
  if (kind == UnitType::frames || kindOfRun == UnitType::frames) {
    return kind == UnitType::duration || kindOfRun == UnitType::duration;
  }
  return kind == UnitType::angle && (kindOfRun == UnitType::duration || kindOfRun == UnitType::length);
}

/// "3 ft, 2 in" is one amount. "5 km, 10 km" are two, "$5, €3" as well, and "45.5°, 120.3°" is a place.
bool commaParts(const TCUnit& left, const TCUnit& right) {
  return left.unitType() == UnitType::currency || left.identifier() == right.identifier();
}

/// The first token of the run of amounts that ends at the index.
std::size_t startOfCompound(const TokenList& list, std::size_t last) {
  const UnitType kind = unitIn(list[last])->unitType();
  std::size_t first = last;
  bool behindComma = false;
  for (std::size_t i = last; i-- > 0;) {
    if (list[i].is(TokenType::whitespace)) continue;
    if (TokenTypeSet::typesInMultiUnitCompounds.contains(list[i].type)) {
      behindComma = true;
      continue;
    }
    if (!list[i].is(TokenType::unitExpression)) break;
    const TCUnit* unit = unitIn(list[i]);
    if (unit == nullptr || !fitsInto(kind, unit->unitType())) break;
    if (behindComma && commaParts(*unit, *unitIn(list[first]))) break;
    first = i;
    behindComma = false;
    // Nothing larger stands in front of degrees: what does is another angle.
    if (unit->identifier() == UnitIdentifier::degrees) break;
  }
  return first;
}

void compoundSequentialUnitExpressions(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::unitExpression) || unitIn(list[i]) == nullptr) continue;
    if (numberIn(list[i]).isSignMinus()) return;
    const std::size_t first = startOfCompound(list, i);
    if (first == i) continue;
    const TCUnit primary = *unitIn(list[first]);
    list.replaceRun(first, i, compoundOver(list.slice(first, i), primary));
    i = first;
  }
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

/// The lower bound of the range that ends at the index.
std::optional<std::size_t> lowerBoundOf(const TokenList& list, std::size_t upper) {
  const auto joint = before(list, upper);
  if (!joint) return std::nullopt;
  const auto lower = before(list, *joint);
  if (!isAt(list, lower, TokenType::number) || !(numberIn(list[*lower]) < numberIn(list[upper]))) return std::nullopt;
  if (list[*joint].is(TokenType::converterSymbol, TokenSubType::converterSymbolTo)) return lower;
  if (!list[*joint].is(TokenType::operator_, TokenSubType::subtractionOperator)) return std::nullopt;
  // Among other operators the dash is a minus.
  if (isAt(list, before(list, *lower), TokenType::operator_)) return std::nullopt;
  if (isAt(list, after(list, upper), TokenType::operator_)) return std::nullopt;
  return lower;
}

/// "5 - 10 km", "5 to 10 km". Money is subtracted.
void identifyUnitRangesIn(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* upper =
        list[i].is(TokenType::unitExpression) ? list[i].metadataAs<UnitExpressionTokenMetadata>() : nullptr;
    if (upper == nullptr || isCurrency(list[i])) continue;
    const auto lower = lowerBoundOf(list, i);
    if (!lower) continue;
    auto metadata = std::make_shared<const UnitRangeTokenMetadata>(upper->unitMetaData, numberOf(list[*lower]),
                                                                   upper->numericValue);
    list.replaceRun(*lower, i,
                    list.slice(*lower, i).embedInContainerToken(TokenType::unitRange, TokenSubType::notSpecified,
                                                                std::move(metadata)));
    i = *lower;
  }
}

// --- "10 km a day" --------------------------------------------------------------------------------------------------

constexpr TokenTypeSet kAmounts{TokenType::unitExpression, TokenType::compoundUnitExpression, TokenType::number,
                                TokenType::percentageSymbol};

/// "a", and "an", which is no word of the vocabulary.
bool isIndefiniteArticle(const Token& token) {
  if (token.is(TokenType::unidentified)) return equalsIgnoringCase(token.stringValue, "an");
  return token.is(TokenType::grammerArticleWord, TokenSubType::indefiniteGrammarArticleWord);
}

void readArticlesAsStrokes(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!isIndefiniteArticle(list[i])) continue;
    if (!isAt(list, after(list, i), TokenType::unit)) continue;
    const auto amount = before(list, i);
    if (!amount || !kAmounts.contains(list[*amount].type)) continue;
    list.replaceAt(i, Token(TokenType::operator_, TokenSubType::divisionOperator, list[i].stringValue, list[i].range));
  }
}

}  // namespace

void identifyUnitExpressionsIn(TokenList& list, const PassContext& context) {
  if (list.typePrecheck(TokenType::unit)) {
    for (const Shape shape : kShapes) wrapAmounts(list, shape);
    handleSpecialDanglingCurrencySymbolCases(list);
  }
  const bool holdsLengths = list.unitTypesCache().contains(UnitType::length);
  // Inches are found before amounts are put together, so that they can be part of one.
  handleInAsInchesNotConverter(list);
  if (!list.typePrecheck(TokenType::unit)) return;
  joinMixedNumbers(list);
  compoundSequentialUnitExpressions(list);
  if (context.features.GPSAndDMS) identifyDMS(list);
  identifyUnitRangesIn(list);
  readArticlesAsStrokes(list);
  if (holdsLengths) joinBareInchesToFeet(list);
}

}  // namespace tavrine::passes
