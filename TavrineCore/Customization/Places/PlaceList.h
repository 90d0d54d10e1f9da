#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceWords.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/FunctionRef.h"
#include "TavrineCore/Utility/Lazy.h"

namespace tavrine {

class PlaceRows;
class PlaceIndex;

/// The places that a line can name: those of the resources, which are read when a word is met that may name one, and
/// those that a host adds. Copies share all.
class PlaceList {
 public:
  /// Where several places have a name, the last one counts.
  explicit PlaceList(const std::vector<Place>& places);
  /// Further places on top of a list. One under the name of a place of the list stands in for it.
  PlaceList(const PlaceList& base, const std::vector<Place>& additionalPlaces);

  /// The cities, countries and states of the resources, one list a current locale.
  [[nodiscard]] static PlaceList standard();
  /// Of tables that are there already: cities first, since a country or state takes a name that both have.
  PlaceList(std::shared_ptr<const PlaceRows> cities, std::shared_ptr<const PlaceRows> countries,
            std::shared_ptr<const PlaceRows> states, PlaceWords words);

  /// False for most words that `placeFor` doesn't know, told without a table.
  [[nodiscard]] bool mayKnow(const HashedWord& word) const {
    return word.hash == 0 || !addedPlaces_.empty() || (index_ && (*words_)->mayNamePlace(word)) || !isAllLetters(word);
  }
  /// False for most pairs of lexemes that `placeOfPhrase` doesn't know.
  [[nodiscard]] bool mayKnowPhrase(const HashedWord& firstLexeme, const HashedWord& secondLexeme) const {
    return firstLexeme.hash == 0 || secondLexeme.hash == 0 || !addedPhrases_.empty() ||
           (index_ && (*words_)->mayBeginPlace(firstLexeme, secondLexeme.text));
  }

  /// The place with this name or alias, in upper or lower case.
  [[nodiscard]] std::optional<Place> placeFor(const HashedWord& fragment) const;

  /// The places of which a name or alias of at least two lexemes begins with this word, in the order of the list;
  /// absent when there is none. Makes all of them: `placeOfPhrase` finds the one that a text means.
  [[nodiscard]] std::optional<std::vector<Place>> multiWordPlacesBeginningWith(std::string_view firstWordOfPlace) const;

  /// Told a name, how many tokens of the text say it; 0 for none.
  using ExtentOf = FunctionRef<std::size_t(std::string_view phrase)>;
  /// The place whose name of several lexemes covers most of a text that begins with these two lexemes; at equal extent
  /// a place that was added, else the first one. A place of the resources with aliases of several lexemes is known by
  /// these alone, as another one has its name. Reads no table for words that begin no place.
  [[nodiscard]] std::optional<Place> placeOfPhrase(const HashedWord& firstLexeme, const HashedWord& secondLexeme,
                                                   ExtentOf extentOf) const;

  /// Whether the name of a place, in lower case, is an ordinary word as well and should look like a name.
  [[nodiscard]] bool isOrdinaryWord(std::string_view lowercasedName) const;

  /// Whether the tables have been read.
  [[nodiscard]] bool isBuilt() const;

 private:
  struct AddedPhrase {
    std::string text;
    std::shared_ptr<const Place> place;
  };
  using PhrasesByFirstWord = StringMap<std::vector<AddedPhrase>>;

  friend class AirportsList;

  PlaceList(Lazy<PlaceWords> words, Lazy<PlaceIndex> index);
  /// Whether the text is one word of ASCII letters, and so one lexeme.
  [[nodiscard]] static bool isAllLetters(const HashedWord& word) {
    unsigned beyond = 0;
    for (const char c : word.text)
      beyond |= static_cast<unsigned>(((static_cast<unsigned char>(c) | 0x20U) - 'a') >= 26);
    return beyond == 0;
  }
  /// False for most names that the tables don't hold: in lower case, or of ASCII letters in any.
  [[nodiscard]] bool tablesMayName(const HashedWord& fragment) const;
  void cache(const Place& place);

  // Absent in a list of added places alone.
  std::optional<Lazy<PlaceWords>> words_;
  std::optional<Lazy<PlaceIndex>> index_;
  StringMap<std::shared_ptr<const Place>> addedPlaces_;
  PhrasesByFirstWord addedPhrases_;
};

/// The airports by their codes.
class AirportsList {
 public:
  [[nodiscard]] static bool mayBeCode(std::string_view fragment) {
    return fragment.size() == PlaceWords::kLettersInCode;
  }
  /// The airport with this code of three letters, in upper or lower case, in the zone of its city. Absent where its
  /// city or its zone isn't known.
  [[nodiscard]] static std::optional<Place> runQuery(std::string_view fragment);
};

}  // namespace tavrine
