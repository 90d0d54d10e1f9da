#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Places/NameLexemes.h"
#include "TavrineCore/Customization/Places/PlaceList.h"
#include "TavrineCore/Customization/Places/PlaceRows.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "Tests/Customization/CustomizationTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;
using testing::wordsOf;

std::vector<std::string> lexemesOf(std::string_view text) {
  std::vector<std::string> result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(text, Locale::current())) {
    if (lexeme.type != LexemeType::whitespace) result.push_back(lowercased(lexeme.string));
  }
  return result;
}

/// The place that the beginning of the text names, by a phrase or else by one word, as a line would find it.
std::optional<Place> placeIn(const PlaceList& places, std::string_view text) {
  const std::vector<std::string> words = lexemesOf(text);
  if (words.size() >= 2) {
    auto place = places.placeOfPhrase(words[0], words[1], [&](std::string_view phrase) -> std::size_t {
      const std::vector<std::string> wanted = lexemesOf(phrase);
      if (wanted.size() > words.size() || !std::equal(wanted.begin(), wanted.end(), words.begin())) return 0;
      return wanted.size();
    });
    if (place) return place;
  }
  return words.size() == 1 ? places.placeFor(text) : std::nullopt;
}

std::string nameIn(const PlaceList& places, std::string_view text) {
  const std::optional<Place> place = placeIn(places, text);
  return place ? place->name + " " + place->timeZone.identifier() : "none";
}

Place customPlace(std::string name, std::string_view zone, std::optional<std::vector<std::string>> aliases = {}) {
  const TimeZone timeZone{std::string(zone)};
  return {.name = name, .aliases = std::move(aliases), .timeZone = timeZone, .type = CustomPlace{name, timeZone, {}}};
}

TEST(PlaceListTest, EveryRowCanBeNamed) {
  const PlaceList places = PlaceList::standard();
  const auto cities = StaticResouces::localizedCities();
  const auto countries = StaticResouces::localizedCountries();
  const auto states = StaticResouces::localizedStates();
  ASSERT_TRUE(cities && countries && states);
  EXPECT_GT(cities->count(), 7000U);

  const auto expectReachable = [&](const PlaceRows& rows, auto isRow) {
    for (std::size_t row = 0; row < rows.count(); ++row) {
      bool isReachable = false;
      std::string names;
      for (const std::string& name : rows.namesOfRow(row)) {
        const std::optional<Place> place = placeIn(places, name);
        isReachable = isReachable || (place && isRow(row, *place));
        names += name + "|";
      }
      EXPECT_TRUE(isReachable) << names;
    }
  };
  expectReachable(*cities, [&](std::size_t row, const Place& place) {
    if (place.city() != nullptr) return place.city()->identifier == cities->city(row)->identifier;
    // A country or a state takes a name of one word from the city: Lebanon, Ontario, Formosa.
    return place.country() != nullptr;
  });
  // A city takes a name of several words: New York, San Marino.
  expectReachable(*countries,
                  [&](std::size_t row, const Place& place) { return place.name == countries->country(row)->name; });
  expectReachable(*states,
                  [&](std::size_t row, const Place& place) { return place.name == states->country(row)->name; });
}

TEST(PlaceListTest, EveryAirportHasACityAndAZone) {
  const auto airports = StaticResouces::airports();
  ASSERT_TRUE(airports);
  EXPECT_GT(airports->count(), 3000U);
  for (std::size_t row = 0; row < airports->count(); ++row) {
    const std::optional<Airport> airport = airports->airport(row);
    ASSERT_TRUE(airport) << row;
    const std::optional<Place> place = AirportsList::runQuery(airport->iata_code);
    ASSERT_TRUE(place && place->airport() != nullptr) << airport->iata_code;
    EXPECT_EQ(place->name, airport->name);
    EXPECT_TRUE(place->airport()->associatedCityName) << airport->iata_code;
    EXPECT_TRUE(place->gpsCoordinates()) << airport->iata_code;
  }
  EXPECT_EQ(AirportsList::runQuery("jfk")->timeZone.identifier(), "America/New_York");
  EXPECT_EQ(AirportsList::runQuery("JFK")->airport()->associatedCityName, "New York");
  for (const std::string_view word : {"", "jf", "jfkx", "qqq", "j1k", "gas", "bus", "the"}) {
    EXPECT_FALSE(AirportsList::runQuery(word)) << word;
  }
}

TEST(PlaceListTest, NamesAndTheirZones) {
  struct Case {
    std::string_view text;
    std::string_view place;
  };
  const PlaceList places = PlaceList::standard();
  for (const Case& c : rowsOf<Case>("Customization/PlaceListTests", "NamesAndTheirZones"))
    EXPECT_EQ(nameIn(places, c.text), c.place) << c.text;

  const auto beginningWithNew = places.multiWordPlacesBeginningWith("New");
  ASSERT_TRUE(beginningWithNew);
  EXPECT_TRUE(std::any_of(beginningWithNew->begin(), beginningWithNew->end(),
                          [](const Place& place) { return place.name == "New York"; }));
  EXPECT_FALSE(places.multiWordPlacesBeginningWith("paris"));
}

TEST(PlaceListTest, OrdinaryWordsAreNoPlaces) {
  // What people write around sums; a word that is a place as well has to be told from it by its looks.
  const PlaceList places = PlaceList::standard();
  for (const std::string_view word : wordsOf("Customization/PlaceListTests", "OrdinaryWordsAreNoPlaces")) {
    if (places.isOrdinaryWord(word)) continue;
    EXPECT_FALSE(places.placeFor(word)) << word;
    EXPECT_FALSE(AirportsList::runQuery(word)) << word;
  }
}

TEST(PlaceListTest, CustomPlacesStandInForOthers) {
  const PlaceList places(
      PlaceList::standard(),
      {customPlace("Paris", "America/Chicago"), customPlace("New York", "Asia/Tokyo"),
       customPlace("San Francisco", "Asia/Seoul"), customPlace("office", "Europe/Rome", {{"Head Office", "HQ"}}),
       customPlace("Old Mill", "Europe/Oslo", {{"the river house"}}), customPlace("nice", "Asia/Tokyo")});
  struct Case {
    std::string_view text;
    std::string_view place;
  };
  for (const Case& c : rowsOf<Case>("Customization/PlaceListTests", "CustomPlacesStandInForOthers"))
    EXPECT_EQ(nameIn(places, c.text), c.place) << c.text;
  EXPECT_FALSE(places.isOrdinaryWord("nice"));

  const PlaceList alone({customPlace("home", "Asia/Tokyo"), customPlace("Home", "Asia/Seoul")});
  EXPECT_EQ(nameIn(alone, "home"), "Home Asia/Seoul");
  EXPECT_EQ(nameIn(alone, "paris"), "none");
}

TEST(PlaceRowsTest, FilesThatAreNoGood) {
  for (const char* const bytes : {"", "[", "[{\"identifier\":\"1\"}]", "[{\"name\":\"A\"},]", "{\"name\":1}"}) {
    EXPECT_FALSE(PlaceRows::from(bytes).content) << bytes;
  }
  const auto rows = PlaceRows::from(
      R"([{"name":"Caf\u00e9 \"Bay\"","identifier":"7","aliases":["Tea \/ Bay"],"timezone_id":"Europe/Rome"},{"name":"x"}])");
  ASSERT_TRUE(rows.content) << rows.error;
  EXPECT_EQ(rows.content->namesOfRow(0), (std::vector<std::string>{"Café \"Bay\"", "Tea / Bay"}));
  EXPECT_EQ(rows.content->city(0)->name, "Café \"Bay\"");
  EXPECT_FALSE(rows.content->city(1));
  EXPECT_EQ(rows.content->rowWithKey("7"), 0U);
  EXPECT_EQ(rows.content->rowWithKey("8"), std::nullopt);

  PlaceRows both = *rows.content;
  both.append(*PlaceRows::from(R"([{"name":"Ostia","identifier":"8","timezone_id":"Europe/Rome"}])").content);
  EXPECT_EQ(both.city(*both.rowWithKey("8"))->name, "Ostia");
  EXPECT_EQ(both.namesOfRow(2), std::vector<std::string>{"Ostia"});
}

}  // namespace
}  // namespace tavrine
