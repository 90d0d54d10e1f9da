#include "TavrineCore/Customization/Places/PlaceList.h"

#include <algorithm>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/PerCurrentLocale.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Places/NameLexemes.h"
#include "TavrineCore/Customization/Places/PlaceIndex.h"
#include "TavrineCore/Customization/Places/PlaceRows.h"

namespace tavrine {

PlaceList::PlaceList(Lazy<PlaceWords> words, Lazy<PlaceIndex> index)
    : words_(std::move(words)), index_(std::move(index)) {}

PlaceList::PlaceList(std::shared_ptr<const PlaceRows> cities, std::shared_ptr<const PlaceRows> countries,
                     std::shared_ptr<const PlaceRows> states, PlaceWords words)
    : PlaceList(Lazy<PlaceWords>(std::make_shared<const PlaceWords>(std::move(words))),
                Lazy<PlaceIndex>(
                    std::make_shared<const PlaceIndex>(std::move(cities), std::move(countries), std::move(states)))) {}

PlaceList::PlaceList(const std::vector<Place>& places) {
  for (const Place& place : places) cache(place);
}

PlaceList::PlaceList(const PlaceList& base, const std::vector<Place>& additionalPlaces) : PlaceList(base) {
  for (const Place& place : additionalPlaces) cache(place);
}

PlaceList PlaceList::standard() {
  static auto& lists = *new PerCurrentLocale<PlaceList>;  // never destroyed, as the resources behind them
  return lists.get([](const Locale&) {
    return PlaceList(Lazy<PlaceWords>([] { return StaticResouces::localizedPlaceWords(); }), Lazy<PlaceIndex>([] {
                       return PlaceIndex(StaticResouces::localizedCities(), StaticResouces::localizedCountries(),
                                         StaticResouces::localizedStates());
                     }));
  });
}

void PlaceList::cache(const Place& place) {
  const auto shared = std::make_shared<const Place>(place);
  addedPlaces_[lowercased(place.name)] = shared;
  for (const std::string& alias : place.aliases.value_or(std::vector<std::string>{})) {
    addedPlaces_[lowercased(alias)] = shared;
  }
  std::vector<std::string> phrases = place.multiWordAliases();
  if (leadingLexemesOf(place.name).areSeveral()) phrases.push_back(place.name);
  for (std::string& phrase : phrases) {
    const std::string firstWord = lowercased(leadingLexemesOf(phrase).first);
    std::vector<AddedPhrase>& known = addedPhrases_[firstWord];
    std::erase_if(known, [&phrase](const AddedPhrase& old) { return equalsIgnoringCase(old.text, phrase); });
    known.push_back({std::move(phrase), shared});
  }
}

bool PlaceList::tablesMayName(const HashedWord& fragment) const {
  if (!index_) return false;
  const NameLexemes lexemes = leadingLexemesOf(fragment.text);
  return lexemes.areSeveral() ? (*words_)->mayBeginPlace(lexemes.first, lexemes.second)
                              : (*words_)->mayNamePlace(fragment);
}

std::optional<Place> PlaceList::placeFor(const HashedWord& fragment) const {
  const std::string_view name = fragment.text;
  if (!mayKnow(fragment)) return std::nullopt;
  if (!isLowercased(name)) return placeFor(lowercased(name));
  if (!addedPlaces_.empty()) {
    if (const auto found = addedPlaces_.find(name); found != addedPlaces_.end()) return *found->second;
  }
  return tablesMayName(fragment) ? (*index_)->placeNamed(name) : std::nullopt;
}

std::optional<std::vector<Place>> PlaceList::multiWordPlacesBeginningWith(std::string_view firstWordOfPlace) const {
  const std::string word = lowercased(firstWordOfPlace);
  std::vector<Place> result;
  if (index_) result = (*index_)->placesBeginningWith(word);
  if (const auto found = addedPhrases_.find(word); found != addedPhrases_.end()) {
    for (const AddedPhrase& phrase : found->second) {
      if (std::find(result.begin(), result.end(), *phrase.place) == result.end()) result.push_back(*phrase.place);
    }
  }
  if (result.empty()) return std::nullopt;
  return result;
}

std::optional<Place> PlaceList::placeOfPhrase(const HashedWord& firstWord, const HashedWord& secondWord,
                                              ExtentOf extentOf) const {
  if (!mayKnowPhrase(firstWord, secondWord)) return std::nullopt;
  const std::string_view firstLexeme = firstWord.text;
  const std::string_view secondLexeme = secondWord.text;
  if (!isLowercased(firstLexeme) || !isLowercased(secondLexeme)) {
    return placeOfPhrase(lowercased(firstLexeme), lowercased(secondLexeme), extentOf);
  }
  std::size_t longest = 0;
  const Place* added = nullptr;
  if (!addedPhrases_.empty()) {
    if (const auto found = addedPhrases_.find(firstLexeme); found != addedPhrases_.end()) {
      for (const AddedPhrase& phrase : found->second) {
        const std::size_t extent = extentOf(phrase.text);
        if (extent <= longest) continue;
        longest = extent;
        added = phrase.place.get();
      }
    }
  }
  if (index_ && (*words_)->mayBeginPlace(firstWord, secondLexeme)) {
    std::optional<PlaceIndex::Match> match = (*index_)->longestPhrase(firstLexeme, secondLexeme, extentOf);
    if (match && match->extent > longest) return std::move(match->place);
  }
  return added == nullptr ? std::nullopt : std::optional(*added);
}

bool PlaceList::isOrdinaryWord(std::string_view lowercasedName) const {
  // Whoever adds a place means its name.
  if (addedPlaces_.contains(lowercasedName)) return false;
  return words_ && (*words_)->isOrdinary(lowercasedName);
}

bool PlaceList::isBuilt() const { return index_ && index_->isBuilt(); }

std::optional<Place> AirportsList::runQuery(std::string_view fragment) {
  if (!mayBeCode(fragment)) return std::nullopt;
  // The set of codes answers for most words, so that the airports are read only for one of them.
  static const Lazy<PlaceWords> words = PlaceList::standard().words_.value();
  std::string code = lowercased(fragment);
  if (!words->isAirportCode(code)) return std::nullopt;
  for (char& c : code) c = static_cast<char>(c - 'a' + 'A');
  const std::shared_ptr<const PlaceRows> airports = StaticResouces::airports();
  const std::optional<std::size_t> row = airports ? airports->rowWithKey(code) : std::nullopt;
  const std::optional<Airport> airport = row ? airports->airport(*row) : std::nullopt;
  return airport ? airport->place() : std::nullopt;
}

}  // namespace tavrine
