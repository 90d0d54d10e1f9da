#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/HashedWord.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

class FlatRow;

/// What can be told of a word without the tables of places: whether it may name one, so that a process that meets no
/// place reads no table, and whether it is an ordinary word as well. All texts are in lower case.
///
/// Without the resource every word may name a place, and none is ordinary.
class PlaceWords {
 public:
  /// The decoder of {"filterBits", "filterProbes", "places", "airports", "ordinary"}: a Bloom filter over names of one
  /// lexeme and the first two lexemes of longer ones (with a blank between), one bit a code of three letters from "aaa"
  /// on, both in base 64, and a list of words.
  static DecodedResource<PlaceWords> from(std::string_view bytes);

  /// Whether there may be a place of that name; now and then wrong where it says yes. ASCII letters may be in capitals
  /// here.
  [[nodiscard]] bool mayNamePlace(const HashedWord& word) const;
  /// Whether a place of several words may begin with these two, ASCII letters in any case.
  [[nodiscard]] bool mayBeginPlace(const HashedWord& firstWord, std::string_view secondWord) const;
  /// Whether the word is the code of an airport.
  [[nodiscard]] bool isAirportCode(std::string_view word) const;
  /// Whether the name or code means something else in most texts: "nice", "us", "sea".
  [[nodiscard]] bool isOrdinary(std::string_view word) const { return ordinary_.contains(word); }

 private:
  /// What is wrong with the object; empty when nothing is.
  [[nodiscard]] std::string_view takeFrom(const FlatRow& object);
  [[nodiscard]] bool passesFilter(std::uint64_t hash) const;

  std::vector<std::uint8_t> filter_;  // a power of two of bits, or empty: all pass
  unsigned probes_ = 0;
  std::vector<std::uint8_t> codes_;
  StringSet ordinary_;
};

}  // namespace tavrine
