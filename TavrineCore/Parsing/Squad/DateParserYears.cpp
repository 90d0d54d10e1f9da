// Years and months that stand alone: "days in 2024", "years since 1990", "2019 to 2022 in days", "2020 + 3 years".

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"

namespace tavrine {

namespace {

constexpr std::string_view kRangeWord = "to";

bool isUnit(const Token* token) { return token != nullptr && token->is(TokenType::unit); }

/// The number becomes a year. It is never certain that a number is one.
void replaceWithYearStamp(TokenList& list, std::size_t number, std::int64_t year) {
  DateComponents components;
  components.year = year;
  replaceRunByComponents(list, number, number, {components, DatestampType::nakedYear, /*ambiguous=*/true});
}

/// "days in 2024": the year behind "in".
void identifyYearBehind(TokenList& list, std::size_t symbol) {
  constexpr TokenTypeSet kWhatAYearHolds{TokenType::unit, TokenType::unidentified, TokenType::number};
  if (list.tokenBeforeMustBe(symbol, kWhatAYearHolds, /*ignoreWhitespace=*/true) == nullptr) return;
  const auto number = list.indexAfter(symbol, /*ignoreWhitespace=*/true);
  const auto year = number ? definiteYearIn(&list[*number]) : std::nullopt;
  // "5 km in 2000 steps" may hold a year; "in 2000 m" holds none.
  if (!year || isUnit(list.tokenAfter(*number, /*ignoreWhitespace=*/true))) return;
  replaceWithYearStamp(list, *number, *year);
}

/// "2019 to 2022 in days", "days from 2019 to 2022", "March 2020 to 2022".
void identifyYearsOnBothSides(TokenList& list, std::size_t word) {
  constexpr TokenTypeSet kSides{TokenType::number, TokenType::dateComponents};
  constexpr TokenTypeSet kTargets{TokenType::unit, TokenType::typeName};
  const auto left = list.indexBefore(word, /*ignoreWhitespace=*/true);
  const auto right = list.indexAfter(word, /*ignoreWhitespace=*/true);
  if (!left || !right || !kSides.contains(list[*left].type) || !kSides.contains(list[*right].type)) return;

  bool areYears = list[*left].is(TokenType::dateComponents) || list[*right].is(TokenType::dateComponents);
  if (!areYears) {
    const auto symbol = list.indexAfter(*right, /*ignoreWhitespace=*/true);
    const bool isConverted = symbol && list[*symbol].is(TokenType::converterSymbol) &&
                             list.tokenAfterMustBe(*symbol, kTargets, /*ignoreWhitespace=*/true) != nullptr;
    areYears = isConverted || isUnit(list.tokenBefore(*left, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords));
  }
  if (!areYears) return;
  for (const std::size_t side : {*left, *right}) {
    if (const auto year = definiteYearIn(&list[side])) replaceWithYearStamp(list, side, *year);
  }
}

/// Whether days or more are counted up to the word: "2 weeks before". "10 minutes before 2000" tells a time.
bool standsBehindDaysOrMore(const TokenList& list, std::size_t word) {
  constexpr CalendarComponentSet kDaysOrMore{Calendar::Component::year, Calendar::Component::month,
                                             Calendar::Component::weekOfYear, Calendar::Component::day,
                                             Calendar::Component::weekday};
  const Token* unit = list.tokenBefore(word, /*ignoreWhitespace=*/true);
  const auto component = isUnit(unit) ? unit->calendarComponentValue() : std::nullopt;
  return component && kDaysOrMore.contains(*component);
}

/// "years since 1990", "5 years before 2020", "days between 2019 and 2022".
void identifyYearsBehindCount(TokenList& list, std::size_t word) {
  if (!standsBehindDaysOrMore(list, word)) return;
  const auto number = list.indexAfter(word, /*ignoreWhitespace=*/true);
  const auto year = number ? definiteYearIn(&list[*number]) : std::nullopt;
  if (!year || isUnit(list.tokenAfter(*number, /*ignoreWhitespace=*/true))) return;
  const auto conjunction = list.indexAfter(*number, /*ignoreWhitespace=*/true);
  if (conjunction && list[*conjunction].is(TokenType::conjunctionWord)) {
    const auto other = list.indexAfter(*conjunction, /*ignoreWhitespace=*/true);
    if (const auto end = other ? definiteYearIn(&list[*other]) : std::nullopt) replaceWithYearStamp(list, *other, *end);
  }
  replaceWithYearStamp(list, *number, *year);
}

bool leadsToDate(const Token& preposition) {
  constexpr std::array<std::string_view, 6> kWords{"since", "until", "till", "before", "after", "between"};
  return std::find(kWords.begin(), kWords.end(), lowercased(preposition.stringValue)) != kWords.end();
}

void identifyNakedYearsAround(TokenList& list, TokenType type) {
  if (!list.typePrecheck(type)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(type)) continue;
    if (list[i].subType == TokenSubType::converterSymbolIn) identifyYearBehind(list, i);
    if (leadsToDate(list[i])) identifyYearsBehindCount(list, i);
    if (!equalsIgnoringCase(list[i].stringValue, kRangeWord)) continue;
    if (list.anyTypesHaveBeenPresentIn({TokenType::percentageSymbol, TokenType::multiplier})) continue;
    identifyYearsOnBothSides(list, i);
  }
}

/// Whether "+ 3 weeks" follows the token.
bool isMovedByTimespan(const TokenList& list, std::size_t index) {
  const auto sign = list.indexAfter(index, /*ignoreWhitespace=*/true);
  if (!sign || (!list[*sign].is(TokenType::operator_, TokenSubType::additionOperator) &&
                !list[*sign].is(TokenType::operator_, TokenSubType::subtractionOperator))) {
    return false;
  }
  const auto number = list.indexAfter(*sign, /*ignoreWhitespace=*/true);
  if (!number || !list[*number].is(TokenType::number)) return false;
  return isDurationUnit(list.tokenAfter(*number, /*ignoreWhitespace=*/true));
}

/// Whether the number is a value of its own: no "$2020", no "5 * 2020".
bool beginsValue(const TokenList& list, std::size_t number) {
  const Token* before = list.tokenBefore(number, /*ignoreWhitespace=*/true);
  return before == nullptr || (!before->is(TokenType::operator_) && !before->is(TokenType::unit));
}

}  // namespace

void DateParser::identifyNakedYearsAroundConverters(TokenList& list) {
  if (!list.anyTypesHaveBeenPresentIn({TokenType::number, TokenType::dateComponents})) return;
  identifyNakedYearsAround(list, TokenType::prepositionWord);
  identifyNakedYearsAround(list, TokenType::converterSymbol);
}

void DateParser::identifyNakedYearPlusOrMinusThenTimespan(TokenList& list) {
  if (!list.typesPrecheck({TokenType::number, TokenType::operator_, TokenType::unit})) return;
  constexpr std::size_t kDigitsOfYear = 4;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::number) || list[i].stringValue.size() < kDigitsOfYear) continue;
    const auto number = dateNumberIn(list[i]);
    const auto year = number ? recentYear(*number) : std::nullopt;
    if (year && beginsValue(list, i) && isMovedByTimespan(list, i)) replaceWithYearStamp(list, i, *year);
  }
}

// Most months are pieces of dates by now. What is left had a day that the month lacks: "31 April + 3 days".
void DateParser::identifyNakedMonthPlusOrMinusThenTimespan(TokenList& list) {
  if (!list.typesPrecheck({TokenType::dateWord, TokenType::operator_, TokenType::unit})) return;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::dateWord) || !isMovedByTimespan(list, i)) continue;
    const auto* metadata = list[i].metadataAs<DateWordTokenMetadata>();
    if (metadata == nullptr || metadata->dateWord.type != DateWordType::month || !metadata->dateWord.index) continue;
    DateComponents components;
    components.month = *metadata->dateWord.index;
    replaceRunByComponents(list, i, i, {components, DatestampType::nakedMonth});
  }
}

}  // namespace tavrine
