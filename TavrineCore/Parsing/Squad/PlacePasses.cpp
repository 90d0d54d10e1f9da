// Zones, places and special days: words that say where or on which day, before dates are read.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Parsing/Helpers/TimeZoneAbbreviationDetector.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

// What a name of several words can begin with: "St. Louis" begins like "1st" or like a unit, "Mar del Plata" like a
// month, "The Hague" with an article.
constexpr TokenTypeSet kPhraseStarts{TokenType::unidentified, TokenType::ordinalSuffix, TokenType::dateWord,
                                     TokenType::unit, TokenType::grammerArticleWord};

TokenMetadataRef metadataOf(const Place& place) {
  return std::make_shared<const TimezoneTokenMetadata>(place.timeZone, place);
}

void becomePlace(TokenList& list, std::size_t first, std::size_t last, const Place& place) {
  list.replace(list.slice(first, last), TokenType::timezone, metadataOf(place));
}

void becomeSpecialDay(TokenList& list, std::size_t first, std::size_t last, SpecialDay::SpecialDayType type) {
  list.replace(list.slice(first, last), TokenType::specialDay, std::make_shared<const SpecialDayTokenMetadata>(type));
}

using NextWord = std::optional<std::size_t> (*)(const TokenList& list, std::size_t index);

std::optional<std::size_t> nextWord(const TokenList& list, std::size_t index) {
  return list.indexAfter(index, /*ignoreWhitespace=*/true);
}

/// Past a comma that is written onto the word as well: "Portland, Maine" is "Portland Maine".
std::optional<std::size_t> nextWordOfName(const TokenList& list, std::size_t index) {
  std::size_t next = index + 1;
  if (next < list.count() && list[next].is(TokenType::comma)) ++next;
  while (next < list.count() && list[next].is(TokenType::whitespace)) ++next;
  return next < list.count() ? std::optional(next) : std::nullopt;
}

/// The tokens from the index on that say the words, what stands between them included; 0 if they don't.
template <class Words>
std::size_t extentOf(const TokenList& list, std::size_t index, const Words& words, NextWord next) {
  std::optional<std::size_t> at = index;
  std::size_t last = index;
  for (const auto& word : words) {
    if (!at || !equalsIgnoringCase(list[*at].stringValue, word)) return 0;
    last = *at;
    at = next(list, last);
  }
  return last - index + 1;
}

std::size_t extentOfName(const TokenList& list, std::size_t index, std::string_view name) {
  std::vector<std::string_view> words;
  const auto isLetterOrBlank = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == ' '; };
  if (std::all_of(name.begin(), name.end(), isLetterOrBlank)) {
    // Nearly all names, where a lexeme is what stands between blanks.
    for (std::size_t start = 0; start < name.size();) {
      const std::size_t end = std::min(name.find(' ', start), name.size());
      if (end > start) words.push_back(name.substr(start, end - start));
      start = end + 1;
    }
    return extentOf(list, index, words, nextWordOfName);
  }
  for (const Lexeme& lexeme : Lexer::lexemesFor(name, Locale::current())) {
    if (lexeme.type != LexemeType::whitespace && lexeme.string != ",") words.push_back(lexeme.string);
  }
  return extentOf(list, index, words, nextWordOfName);
}

/// "in", "at" or "to" behind a word or a time, where a place is likely: "time in nice", "5pm in nice". Behind an amount
/// it is a conversion or a container: "2 l in bath".
bool standsBehindPlacePreposition(const TokenList& list, std::size_t index) {
  const auto preposition = list.indexBefore(index, /*ignoreWhitespace=*/true);
  if (!preposition) return false;
  const Token& token = list[*preposition];
  if (!token.is(TokenType::converterSymbol) && !token.is(TokenType::prepositionWord)) return false;
  const Token* const before = list.tokenBefore(*preposition, /*ignoreWhitespace=*/true);
  return before != nullptr &&
         TokenTypeSet{TokenType::unidentified, TokenType::dateWord, TokenType::timezone, TokenType::specialDay}
             .contains(before->type);
}

bool isInCapitals(std::string_view text) { return !containsLowercaseLetter(text); }

bool beginsWithCapital(std::string_view text) { return !text.empty() && !isLowercased(firstCluster(text)); }

/// Where a name with its article begins: "the UK".
std::size_t startWithArticle(const TokenList& list, std::size_t index) {
  const auto article = list.indexBefore(index, /*ignoreWhitespace=*/true);
  const bool isThere = article && list[*article].subType == TokenSubType::definiteGrammarArticleWord;
  return isThere ? *article : index;
}

/// Whether a word is meant as the name that it is. Codes are told by their capitals, names by the first letter.
bool isMeantAsName(const TokenList& list, std::size_t index, const PlaceList& places, bool isCode) {
  const std::string& text = list[index].stringValue;
  constexpr std::size_t kLongestShortForm = 2;
  if (!places.isOrdinaryWord(lowercased(text))) return true;
  if (isCode || text.size() <= kLongestShortForm ? isInCapitals(text) : beginsWithCapital(text)) return true;
  return standsBehindPlacePreposition(list, index);
}

/// "+5", "-3", "+5:30" behind "GMT", as hours, and the last token of it. Not where the number counts something: "now
/// UTC + 5 hours" adds.
struct Offset {
  TimeZone zone;
  std::size_t last = 0;
};
std::optional<Offset> offsetBehind(const TokenList& list, std::size_t index) {
  const auto sign = list.indexAfter(index, /*ignoreWhitespace=*/true);
  if (!sign || !list[*sign].is(TokenType::operator_)) return std::nullopt;
  const bool isEast = list[*sign].subType == TokenSubType::additionOperator;
  if (!isEast && list[*sign].subType != TokenSubType::subtractionOperator) return std::nullopt;
  const auto number = list.indexAfter(*sign, /*ignoreWhitespace=*/true);
  if (!number || !list[*number].is(TokenType::number)) return std::nullopt;
  const Token* const counted = list.tokenAfter(*number, /*ignoreWhitespace=*/true);
  if (counted != nullptr && counted->is(TokenType::unit)) return std::nullopt;

  std::optional<TimeZone> zone =
      TimeZoneAbbreviationDetector::timezoneWithGMTOffsetString((isEast ? "+" : "-") + list[*number].stringValue);
  if (!zone) return std::nullopt;
  std::size_t last = *number;
  const std::size_t minutes = *number + 2;
  if (minutes < list.count() && list[*number + 1].is(TokenType::colon) && list[minutes].is(TokenType::number) &&
      list[minutes].stringValue.size() == 2) {
    constexpr std::int64_t kSecondsPerMinute = 60;
    const std::optional<Decimal> value = Decimal::parse(list[minutes].stringValue);
    const std::int64_t count = value ? value->intValue() : kSecondsPerMinute;
    const std::int64_t seconds = zone->secondsFromGMT(Date()) + (isEast ? count : -count) * kSecondsPerMinute;
    const std::optional<TimeZone> precise = TimeZone::withSecondsFromGMT(seconds);
    if (count < kSecondsPerMinute && precise) {
      zone = precise;
      last = minutes;
    }
  }
  return Offset{*zone, last};
}

bool identifyTimeZoneCode(TokenList& list, std::size_t index, const PassContext& context) {
  const std::optional<TimeZone> zone = TimeZoneAbbreviationDetector::timezoneFor(
      list[index].word(), context.features.timezoneCodeAutocorrectionBehavior);
  if (!zone || !isMeantAsName(list, index, *context.content.placeList, /*isCode=*/true)) return false;
  if (zone->secondsFromGMT(Date::now()) == 0) {
    if (const std::optional<Offset> offset = offsetBehind(list, index)) {
      list.replace(list.slice(index, offset->last), TokenType::timezone,
                   std::make_shared<const TimezoneTokenMetadata>(offset->zone));
      return true;
    }
  }
  list.replace(list.slice(index, index), TokenType::timezone, std::make_shared<const TimezoneTokenMetadata>(*zone));
  return true;
}

constexpr std::string_view kTime = "time";

/// Whether a place of several words may be named here, told for most words without a table.
bool mayBeginPlace(const TokenList& list, std::size_t index, const HashedWord& word, const PlaceList& places) {
  const auto second = nextWordOfName(list, index);
  if (!second) return false;
  return list[*second].stringValue.size() == kTime.size() || places.mayKnowPhrase(word, list[*second].word());
}

bool identifyMultiWordPlaces(TokenList& list, std::size_t index, const PassContext& context) {
  const auto second = nextWordOfName(list, index);
  if (!second) return false;
  std::size_t longest = 0;
  const std::optional<Place> place =
      context.content.placeList->placeOfPhrase(list[index].word(), list[*second].word(), [&](std::string_view phrase) {
        const std::size_t extent = extentOfName(list, index, phrase);
        longest = std::max(longest, extent);
        return extent;
      });
  if (place) {
    becomePlace(list, index, index + longest - 1, *place);
    return true;
  }
  const std::string& secondWord = list[*second].stringValue;
  if (secondWord.size() != kTime.size() || !context.features.shortFormUSTimezones) return false;
  if (!equalsIgnoringCase(secondWord, kTime)) return false;
  const std::string word = lowercased(list[index].stringValue);
  if (!USNamedTimezoneAbbreviations::beginsName(word)) return false;
  const std::optional<Place> zone = USNamedTimezoneAbbreviations::timezoneFor(word + " time");
  if (!zone) return false;
  becomePlace(list, index, *second, *zone);
  return true;
}

bool identifyMultiWordSpecialDays(TokenList& list, std::size_t index, const SpecialDayList& days) {
  const auto* const phrases = days.multiWordSpecialDaysBeginningWith(list[index].word());
  if (phrases == nullptr) return false;
  for (const SpecialDayList::Phrase& phrase : *phrases) {
    const std::size_t extent = extentOf(list, index, phrase.words, nextWord);
    if (extent == 0) continue;
    becomeSpecialDay(list, index, index + extent - 1, phrase.day.type);
    return true;
  }
  return false;
}

bool identifyPlaceOfOneWord(TokenList& list, std::size_t index, const PassContext& context) {
  const PlaceList& places = *context.content.placeList;
  const std::string& text = list[index].stringValue;
  std::optional<Place> place = places.placeFor(list[index].word());
  if (place && !isMeantAsName(list, index, places, /*isCode=*/false)) {
    const bool isCountry = place->country() != nullptr;
    if (!isCountry || !standsBehindPlacePreposition(list, startWithArticle(list, index))) place.reset();
  }
  if (!place) {
    place = AirportsList::runQuery(text);
    if (place && !isMeantAsName(list, index, places, /*isCode=*/true)) place.reset();
  }
  if (!place) return false;
  becomePlace(list, index, index, *place);
  return true;
}

/// Whether a phrase may begin at a token that has a meaning of its own. "3 St Pauls" counts streets, and "the villages"
/// are any.
bool mayBeginPhrase(const TokenList& list, std::size_t index) {
  const Token* const before = list.tokenBefore(index, /*ignoreWhitespace=*/true);
  if (before != nullptr && before->is(TokenType::number)) return false;
  if (!list[index].is(TokenType::grammerArticleWord)) return true;
  const Token* const name = list.tokenAfter(index, /*ignoreWhitespace=*/true);
  return name != nullptr && (beginsWithCapital(name->stringValue) || standsBehindPlacePreposition(list, index));
}

/// "the UK": the article of a country says nothing, and would stand between the name and the words around it.
void takeInArticlesOfCountries(TokenList& list) {
  if (!list.typesPrecheck({TokenType::grammerArticleWord, TokenType::timezone})) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::timezone)) continue;
    const std::size_t start = startWithArticle(list, i);
    const std::optional<Place> place = start < i ? list[i].placeValue() : std::nullopt;
    if (!place || place->country() == nullptr) continue;
    becomePlace(list, start, i, *place);
    i = start;
  }
}

}  // namespace

void identifyTimezonesInAndSpecialDaysIn(TokenList& list, const PassContext& context) {
  const PlaceList& places = *context.content.placeList;
  const SpecialDayList* const days = context.features.specialDays ? context.content.specialDayList.get() : nullptr;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!kPhraseStarts.contains(list[i].type)) continue;
    const bool isWord = list[i].is(TokenType::unidentified);
    if (!isWord && !mayBeginPhrase(list, i)) continue;
    const HashedWord word = list[i].word();
    if (isWord && TimeZoneAbbreviationDetector::mayBeCode(word) && identifyTimeZoneCode(list, i, context)) continue;
    if (mayBeginPlace(list, i, word, places) && identifyMultiWordPlaces(list, i, context)) continue;
    if (days != nullptr && days->mayBeginPhrase(word) && identifyMultiWordSpecialDays(list, i, *days)) continue;
    if (!isWord) continue;
    const bool mayBePlace = AirportsList::mayBeCode(word.text) || places.mayKnow(word);
    if (mayBePlace && identifyPlaceOfOneWord(list, i, context)) continue;
    if (days == nullptr || !days->mayKnow(word)) continue;
    if (const SpecialDay* const day = days->specialDayFor(word)) becomeSpecialDay(list, i, i, day->type);
  }
  takeInArticlesOfCountries(list);
}

void identifyRelativePlacesIn(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::relativePlaceWord) || list[i].subType != TokenSubType::relativePlaceWordHere) continue;
    list.replace(list.slice(i, i), TokenType::timezone,
                 std::make_shared<const TimezoneTokenMetadata>(context.customization.calendar().timeZone()));
  }
}

}  // namespace tavrine::passes
