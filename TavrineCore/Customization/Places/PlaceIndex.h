#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceRows.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// The names of tables of places, by hash: of whole names, and of the first two lexemes of longer ones.
class PlaceIndex {
 public:
  /// Cities, countries, states; null for a table that isn't there. A later table takes the names of an earlier one.
  PlaceIndex(std::shared_ptr<const PlaceRows> cities, std::shared_ptr<const PlaceRows> countries,
             std::shared_ptr<const PlaceRows> states);

  /// The last place with this name or alias, given in lower case.
  [[nodiscard]] std::optional<Place> placeNamed(std::string_view lowercasedName) const;

  struct Match {
    Place place;
    std::size_t extent = 0;
  };
  /// The first among the longest of the phrases that begin with the two lexemes, given in lower case.
  [[nodiscard]] std::optional<Match> longestPhrase(std::string_view firstLexeme, std::string_view secondLexeme,
                                                   FunctionRef<std::size_t(std::string_view phrase)> extentOf) const;

  /// The places with a name of several lexemes that begins so, in order. Walks all names.
  [[nodiscard]] std::vector<Place> placesBeginningWith(std::string_view firstLexeme) const;

 private:
  static constexpr std::size_t kTables = 3;
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct NameReference {
    std::uint8_t table = 0;
    std::uint32_t name = 0;
  };
  struct Slot {
    std::uint32_t tag = 0;
    std::uint32_t value = kNone;
  };
  struct Phrase {
    std::uint32_t tag = 0;
    std::uint32_t name = 0;
    std::uint32_t next = kNone;
  };

  [[nodiscard]] NameReference referenceOf(std::uint32_t globalName) const;
  [[nodiscard]] std::optional<Place> placeOfName(std::uint32_t globalName) const;
  [[nodiscard]] std::optional<Place> placeReadFor(std::uint32_t globalName) const;
  [[nodiscard]] std::string_view textOf(std::uint32_t globalName) const;
  void enterName(std::uint64_t hash, std::uint32_t globalName);
  void enterPhrasesOfRow(std::size_t table, std::size_t firstName, std::size_t endName);

  class ReadPlaces;

  std::shared_ptr<ReadPlaces> readPlaces_;
  std::array<std::shared_ptr<const PlaceRows>, kTables> tables_;
  std::array<std::uint32_t, kTables> firstNames_{};  // the global number of each table's first name
  std::vector<Slot> slots_;                          // a power of two, probed one after the other
  std::vector<std::uint32_t> heads_;                 // of the chains of phrases, a power of two
  std::vector<Phrase> phrases_;                      // in order
};

}  // namespace tavrine
