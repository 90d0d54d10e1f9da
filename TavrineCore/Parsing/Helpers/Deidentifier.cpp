#include "TavrineCore/Parsing/Helpers/Deidentifier.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/TokenDeidentificationItem.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

using Item = TokenDeidentificationItem;
using enum DeidentifierAction::Kind;

constexpr TokenTypeSet kNeverActedOn{TokenType::wordComment, TokenType::whitespace};

// --- Numbers --------------------------------------------------------------------------------------------------------

/// "5abc": an ASCII letter, digit or sign that is no punctuation, right behind the number.
bool isGluedToWord(const Item& item) {
  const Token* after = item.followedBy(TokenType::wordComment, /*ignoreWhitespace=*/false);
  if (after == nullptr || after->stringValue.empty()) return false;
  const std::string_view first = firstCluster(after->stringValue);
  return isAscii(first) && !isPunctuation(firstScalar(first));
}

/// "foo-5", where the word is no operand: no operator follows it.
bool isHyphenated(const Item& item, const NumberTokenMetadata& metadata) {
  if (!metadata.decimalValue.isSignMinus()) return false;
  const Token* word = item.precededBy(TokenType::wordComment, /*ignoreWhitespace=*/false);
  if (word == nullptr) return false;
  return item.list().tokenAfterMustBe(item.index() - 1, TokenType::operator_, /*ignoreWhitespace=*/true,
                                      TokenTypeSet::commentTypes) == nullptr;
}

bool holdsNumberWord(const TokenList& subtokens) {
  return std::any_of(subtokens.begin(), subtokens.end(), [](const Token& token) {
    const auto* number = token.metadataAs<NumberTokenMetadata>();
    return number != nullptr && number->representsNumberWord;
  });
}

DeidentifierAction actionForNumber(const Item& item) {
  const auto* metadata = item.token().metadataAs<NumberTokenMetadata>();
  if (metadata == nullptr) return none;
  const bool mayTouchWord = item.list().typePrecheck(TokenType::wordComment);
  if (mayTouchWord && (isGluedToWord(item) || isHyphenated(item, *metadata))) return deidentify;
  if (item.token().subtokens && !holdsNumberWord(*item.token().subtokens)) return dropSubtokens;
  return none;
}

// --- Operators ------------------------------------------------------------------------------------------------------

constexpr TokenTypeSet kBeforeAmpersand{TokenType::unit, TokenType::wordComment};

DeidentifierAction actionForOperator(const Item& item) {
  switch (item.token().subType) {
    case TokenSubType::bitwiseAndOperator:
      // "bed & breakfast".
      if (item.precededBy(kBeforeAmpersand, /*ignoreWhitespace=*/true) != nullptr) return deidentify;
      break;
    case TokenSubType::subtractionOperator:
    case TokenSubType::additionOperator:
    case TokenSubType::multiplicationOperator:
      return item.isAlone() ? deidentify : none;
    default:
      break;
  }
  // Words that say operators at the start of a line are words.
  const bool isWord = !isSingleCluster(item.token().stringValue);
  return isWord && !item.proceededByMeaningfulToken() ? deidentify : none;
}

// --- Units ----------------------------------------------------------------------------------------------------------

constexpr TokenSubTypeSet kSubTypesThatKeepUnits{TokenSubType::divisionOperator, TokenSubType::multiplicationOperator,
                                                 TokenSubType::indefiniteGrammarArticleWord};

bool hasNeighbourPassing(const Item& item) {
  const auto passes = [](const Token* neighbour) {
    return neighbour != nullptr &&
           (Deidentifier::validNeighboursStoppingUnitDeidentification.contains(neighbour->type) ||
            kSubTypesThatKeepUnits.contains(neighbour->subType));
  };
  return passes(item.list().tokenBefore(item.index(), /*ignoreWhitespace=*/true)) ||
         passes(item.list().tokenAfter(item.index(), /*ignoreWhitespace=*/true));
}

DeidentifierAction actionForUnit(const Item& item) {
  if (item.parent() != nullptr && !TokenTypeSet::commentAndSubexpressionTypes.contains(item.parent()->type)) {
    return none;
  }
  if (item.precededBy(TokenType::functionExpression, /*ignoreWhitespace=*/true) != nullptr) return none;
  if (item.followedBy(TokenType::number, /*ignoreWhitespace=*/false) != nullptr) return deidentifyWithFollowingToken;
  if (!item.list().anyTypesHaveBeenPresentIn(Deidentifier::deidentifyUnitIfNotPresent)) return deidentify;
  return hasNeighbourPassing(item) ? none : deidentify;
}

/// Codes that are words of everyday language in lower case: "5 top".
DeidentifierAction actionForUnitExpression(const Item& item) {
  if (!item.token().subtokens) return none;
  for (const Token& subtoken : *item.token().subtokens) {
    const auto* unit = subtoken.is(TokenType::unit) ? subtoken.metadataAs<UnitTokenMetadata>() : nullptr;
    if (unit == nullptr) continue;
    if (!CurrencyList::currenciesThatMustBeUppercased.contains(unit->underlyingTCUnit.identifier())) continue;
    if (uppercased(subtoken.stringValue) != subtoken.stringValue) return deidentify;
  }
  return none;
}

// --- Dates ----------------------------------------------------------------------------------------------------------

constexpr TokenSubTypeSet kPlusAndMinus{TokenSubType::additionOperator, TokenSubType::subtractionOperator};
constexpr std::int64_t kSecondsInDay = 86400;

/// Roughly, as far as months and years go: what matters is whether a day is reached.
double roughSecondsIn(const DateComponents& span) {
  struct Part {
    const std::optional<std::int64_t>& count;
    double seconds;
  };
  constexpr double kDay = kSecondsInDay;
  double seconds = 0;
  for (const Part& part : {Part{span.year, 365 * kDay}, Part{span.quarter, 91 * kDay}, Part{span.month, 30 * kDay},
                           Part{span.weekOfYear, 7 * kDay}, Part{span.weekOfMonth, 7 * kDay}, Part{span.day, kDay},
                           Part{span.weekday, kDay}, Part{span.hour, 3600}, Part{span.minute, 60}, Part{span.second, 1},
                           Part{span.nanosecond, 1e-9}}) {
    seconds += static_cast<double>(part.count.value_or(0)) * part.seconds;
  }
  return seconds;
}

/// Date arithmetic with at least a day is meant as a date: "3/4 + 2 weeks".
bool isFollowedByTimespanOfDays(const Item& item) {
  const auto operation = item.list().indexAfter(item.index(), /*ignoreWhitespace=*/true);
  if (!operation || !item.list()[*operation].is(TokenType::operator_)) return false;
  if (!kPlusAndMinus.contains(item.list()[*operation].subType)) return false;
  const Token* span = item.list().tokenAfterMustBe(*operation, TokenTypeSet::timeyTypes, /*ignoreWhitespace=*/true);
  // By now a duration of one amount is that amount again.
  const auto timespan = span != nullptr ? span->timespanValue() : std::nullopt;
  return timespan && roughSecondsIn(timespan->dateComponents) >= kSecondsInDay;
}

DeidentifierAction actionForAmbiguousDatestamp(const Item& item, const Datestamp& datestamp) {
  if (isFollowedByTimespanOfDays(item)) return none;
  if (datestamp.type != DatestampType::nakedYear) return reparse;
  const Token* left =
      item.list().tokenBefore(item.index(), /*ignoreWhitespace=*/true, TokenTypeSet::converterSymbolSet);
  if (left != nullptr && TokenTypeSet::validNeighbourTypesToNakedYear.contains(left->type)) return none;
  const bool isFollowed =
      item.followedBy(TokenTypeSet::validNeighbourTypesToNakedYear, /*ignoreWhitespace=*/true) != nullptr;
  return isFollowed ? none : reparse;
}

bool saysLittleAlone(DatestampType type) {
  return type == DatestampType::nakedMonth || type == DatestampType::now || type == DatestampType::today ||
         type == DatestampType::tomorrow || type == DatestampType::yesterday;
}

/// "tue" in "mon 8 + tue 7", "mon" in "8 mon + 7 tue": the name of a day or month that stands between an operator and
/// the amount that it goes with.
bool namesAmount(const Item& item, DatestampType type) {
  constexpr TokenTypeSet kAmounts{TokenType::number, TokenType::unitExpression, TokenType::compoundUnitExpression,
                                  TokenType::timespan, TokenType::percentage};
  if (type != DatestampType::weekDay && !saysLittleAlone(type)) return false;
  if (isFollowedByTimespanOfDays(item)) return false;
  const auto standsBetween = [&](const TokenTypeSet& before, const TokenTypeSet& after) {
    return item.precededBy(before, /*ignoreWhitespace=*/true) != nullptr &&
           item.followedBy(after, /*ignoreWhitespace=*/true) != nullptr;
  };
  return standsBetween(TokenType::operator_, kAmounts) || standsBetween(kAmounts, TokenType::operator_);
}

DeidentifierAction actionForDatestamp(const Item& item, const EngineFeatureFlags& features) {
  const auto* metadata = item.token().metadataAs<DatestampTokenMetadata>();
  if (metadata == nullptr || features.seeksFutureDate) return none;
  if (item.parentIs({TokenType::wordFunction, TokenType::variableDeclaration})) return none;
  const Datestamp& datestamp = metadata->datestamp;
  if (datestamp.isAmbiguous) return actionForAmbiguousDatestamp(item, datestamp);
  if (saysLittleAlone(datestamp.type) && item.list().hasMeaninglessNeighbours(item.token())) return deidentify;
  if (namesAmount(item, datestamp.type)) return deidentify;
  return none;
}

// --- The rest -------------------------------------------------------------------------------------------------------

constexpr TokenTypeSet kDeidentifiedWithConverter{TokenType::converterSymbol,
                                                  TokenType::operator_,
                                                  TokenType::percentageSymbol,
                                                  TokenType::timezone,
                                                  TokenType::dpSpecifier,
                                                  TokenType::typeName,
                                                  TokenType::unit};

DeidentifierAction actionForTimezone(const Item& item) {
  if (item.parentIs(TokenType::variableDeclaration)) {
    const bool isValue = item.precededBy(TokenType::variableAssignmentOperator, /*ignoreWhitespace=*/true) != nullptr;
    return isValue ? none : deidentify;
  }
  return item.action(deidentify, {TokenType::datestamp, TokenType::converter, TokenType::wordFunction});
}

DeidentifierAction actionForSubstance(const Item& item) {
  if (item.parentIs(TokenType::wordFunction)) return none;
  const bool belongsToAmount = item.precededBy(TokenType::unitExpression, /*ignoreWhitespace=*/true) != nullptr &&
                               !item.list().indexAfter(item.index(), /*ignoreWhitespace=*/true);
  return belongsToAmount ? none : deidentify;
}

DeidentifierAction actionFor(const Item& item, const EngineFeatureFlags& features) {
  switch (item.token().type) {
    case TokenType::number:
      return actionForNumber(item);
    case TokenType::operator_:
      return actionForOperator(item);
    case TokenType::unit:
      return actionForUnit(item);
    case TokenType::unitExpression:
      return actionForUnitExpression(item);
    case TokenType::datestamp:
      return actionForDatestamp(item, features);
    case TokenType::timezone:
      return actionForTimezone(item);
    case TokenType::substance:
      return actionForSubstance(item);
    case TokenType::converterSymbol:
      return item.action(deidentify, TokenType::converter);
    case TokenType::typeName:
      return item.action(deidentify, {TokenType::converter, TokenType::dpSpecifier});
    case TokenType::conditionalKeyword:
      return item.action(deidentify, TokenType::conditionalExpression);
    case TokenType::conjunctionWord:
      // "3 km and 4 km" are two amounts, "3 km 4 km" is one: the evaluation still has to see the "and".
      return item.action(deidentifyRetainingSubtype, TokenType::wordFunction);
    case TokenType::numberWord:
    case TokenType::statisticType:
    case TokenType::customType:
      return item.action(deidentify, TokenType::wordFunction);
    case TokenType::prepositionWord:
      return features.additionalOptions.tripPlanning ? none : deidentify;
    case TokenType::grammerArticleWord:
    case TokenType::unidentified:
      return deidentify;
    case TokenType::functionName:
      if (item.token().subType == TokenSubType::squareRootSymbol) return none;
      return item.action(deidentify, TokenType::functionExpression);
    case TokenType::comma:
    case TokenType::dot:
    case TokenType::quotationMark:
    case TokenType::questionMark:
      return item.action(deidentify, TokenType::remoteQuery);
    case TokenType::fraction:
    case TokenType::resolution:
      return item.action(unpack, TokenType::wordFunction);
    case TokenType::converter:
      if (item.proceededByMeaningfulToken()) return none;
      // A word that converts by itself: "rounded 5.4".
      if (!item.token().subtokens) return deidentify;
      return DeidentifierAction::unpackingAndDeidentifying(kDeidentifiedWithConverter);
    case TokenType::iso8601:
    case TokenType::labelExpression:
      return deidentifyAllSubtokens;
    case TokenType::dateWord:
    case TokenType::specialDay:
    case TokenType::dateQualifier:
      return item.action(deidentify, {TokenType::datestamp, TokenType::wordFunction});
    case TokenType::pitch:
      return item.followedBy(TokenType::converter, /*ignoreWhitespace=*/true) != nullptr ? none : deidentify;
    case TokenType::ordinalSuffix:
      // "4th root of 81" needs its 4.
      return item.action(item.precededBy(TokenType::number, /*ignoreWhitespace=*/false) != nullptr
                             ? deidentifyWithPrecedingToken
                             : deidentify,
                         TokenType::wordFunction);
    case TokenType::dpSpecifier:
      return item.action(unpack, TokenType::converter);
    case TokenType::list:
      return item.action(unpack, {TokenType::wordFunction, TokenType::functionExpression});
    default:
      return none;
  }
}

// --- Carrying out ---------------------------------------------------------------------------------------------------

Token asWord(const Token& token) {
  TokenList list;
  list.append(token);
  list.deidentify(token);
  return list[0];
}

void replaceBy(std::vector<Token> tokens, TokenList& list, std::size_t index) {
  if (tokens.empty()) return;
  list.replaceAt(index, std::move(tokens.front()));
  for (std::size_t i = 1; i < tokens.size(); ++i) list.insertAt(index + i, std::move(tokens[i]));
}

void unpackAt(TokenList& list, std::size_t index, const TokenTypeSet& typesToDeidentify) {
  if (!list[index].subtokens) return;
  std::vector<Token> tokens;
  for (const Token& subtoken : *list[index].subtokens) {
    tokens.push_back(typesToDeidentify.contains(subtoken.type) ? asWord(subtoken) : subtoken);
  }
  replaceBy(std::move(tokens), list, index);
}

void appendWordsOf(const TokenList& list, std::vector<Token>& words) {
  for (const Token& token : list) {
    if (token.subtokens) {
      appendWordsOf(*token.subtokens, words);
    } else {
      words.push_back(token.is(TokenType::whitespace) ? token : asWord(token));
    }
  }
}

TokenListRef wordsIn(const Token& token) {
  if (!token.subtokens) return nullptr;
  std::vector<Token> words;
  appendWordsOf(*token.subtokens, words);
  return TokenList::frozen(std::move(words));
}

std::vector<Token> readAgain(const Token& token, const EngineCustomization& customization,
                             const VariableList& variables) {
  const TokenList simple = Parser(customization).simpleTokenListFrom(token.stringValue, variables);
  const TokenList placed = simple.listWithRecalculatedTokenRanges(token.range.location, /*updateParentsStrings=*/false);
  return {placed.begin(), placed.end()};
}

Token withSubtokens(Token token, TokenListRef subtokens) {
  token.subtokens = std::move(subtokens);
  return token;
}

}  // namespace

void Deidentifier::process(const DeidentifierAction& action, TokenList& list, std::size_t index) const {
  const auto deidentifyAt = [&list](std::size_t at, bool retainSubtype = false) {
    if (at < list.count()) list.deidentify(list[at], retainSubtype);
  };
  switch (action.kind) {
    case none:
      return;
    case deidentify:
      return deidentifyAt(index);
    case deidentifyRetainingSubtype:
      return deidentifyAt(index, /*retainSubtype=*/true);
    case deidentifyWithFollowingToken:
      deidentifyAt(index);
      return deidentifyAt(index + 1);
    case deidentifyWithPrecedingToken:
      deidentifyAt(index);
      if (index > 0) deidentifyAt(index - 1);
      return;
    case unpack:
    case unpackAndDeidentify:
      return unpackAt(list, index, action.types);
    case dropSubtokens:
      return list.replaceAt(index, withSubtokens(list[index], nullptr));
    case deidentifyAllSubtokens:
      return list.replaceAt(index, withSubtokens(list[index], wordsIn(list[index])));
    case reparse:
      return replaceBy(readAgain(list[index], engineCustomization_, variableList_), list, index);
  }
}

namespace {

/// Whether the list holds single words alone: acting on one leaves the number of tokens as it is.
bool isFlat(const TokenList& list) {
  return !list.typePrecheck(TokenType::datestamp) &&
         std::none_of(list.begin(), list.end(), [](const Token& token) { return token.subtokens != nullptr; });
}

/// The token with other subtokens, put in the place that it still has, if it has one.
Token replaceInside(TokenList& list, const Token& token, TokenListRef subtokens) {
  list.formCacheUnionWith(*subtokens);
  Token changed = withSubtokens(token, std::move(subtokens));
  const auto index = list.indexOf(token);
  if (!index) return changed;
  list.replaceAt(*index, std::move(changed));
  return list[*index];
}

}  // namespace

// Most lines are clean: a copy is made for the first token that there is something to do with.
std::optional<TokenList> Deidentifier::cleaned(const TokenList& list, const Token* parent, MeaningScan& scan) const {
  std::optional<TokenList> copy;
  const auto editable = [&]() -> TokenList& {
    if (!copy) copy.emplace(list);
    return *copy;
  };
  for (std::size_t i = 0; i < list.count(); ++i) {
    const Token* token = &list[i];
    std::optional<Token> changed;
    if (token->subtokens) {
      if (std::optional<TokenList> inside = cleaned(*token->subtokens, token, scan)) {
        changed = replaceInside(editable(), *token, TokenList::frozen(*std::move(inside)));
        token = &*changed;
      }
    }
    if (kNeverActedOn.contains(token->type)) continue;
    // An earlier token may have taken this one along.
    const auto index = copy ? copy->indexOf(*token) : i;
    if (!index) continue;
    const Item item(parent, copy ? *copy : list, *index, scan);
    const DeidentifierAction action = actionFor(item, engineCustomization_.featureFlags());
    if (action.kind != none) process(action, editable(), *index);
  }
  return copy;
}

void Deidentifier::deidentifyStragglers() {
  const EngineFeatureFlags& features = engineCustomization_.featureFlags();
  if (features.preserveAllParsedTokenTypes) return;
  if (!features.variableDeclarations && tokenList_.firstTokenOfType(TokenType::equals) != nullptr) {
    for (std::size_t i = 0; i < tokenList_.count(); ++i) {
      if (!kNeverActedOn.contains(tokenList_[i].type)) tokenList_.deidentify(tokenList_[i]);
    }
    return;
  }
  MeaningScan scan;
  if (isFlat(tokenList_)) {
    for (std::size_t i = 0; i < tokenList_.count(); ++i) {
      if (kNeverActedOn.contains(tokenList_[i].type)) continue;
      process(actionFor(Item(nullptr, tokenList_, i, scan), features), tokenList_, i);
    }
    return;
  }
  if (std::optional<TokenList> clean = cleaned(tokenList_, nullptr, scan)) {
    clean->formCacheUnionWith(tokenList_);
    tokenList_ = *std::move(clean);
  }
}

}  // namespace tavrine
