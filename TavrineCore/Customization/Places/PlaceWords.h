#pragma once

#include <cstddef>
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
  /// Of an airport.
  static constexpr std::size_t kLettersInCode = 3;

  /// The decoder of {"filterBits", "filterProbes", "places", "airports", "ordinary"}: a Bloom filter over names of one
  /// lexeme and the first two lexemes of longer ones (with a blank between), one bit a code of three letters from "aaa"
  /// on, both in base 64, and a list of words.
  static DecodedResource<PlaceWords> from(std::string_view bytes);

  /// Whether there may be a place of that name; now and then wrong where it says yes. ASCII letters may be in capitals
  /// here.
  [[nodiscard]] bool mayNamePlace(const HashedWord& word) const { return passesFilter(hashOf(word)); }
  /// Whether a place of several words may begin with these two, ASCII letters in any case.
  [[nodiscard]] bool mayBeginPlace(const HashedWord& firstWord, std::string_view secondWord) const {
    return passesFilter(foldedHash(secondWord, foldedHash(" ", hashOf(firstWord))));
  }
  /// Whether the word is the code of an airport.
  [[nodiscard]] bool isAirportCode(std::string_view word) const;
  /// Whether the name or code means something else in most texts: "nice", "us", "sea".
  [[nodiscard]] bool isOrdinary(std::string_view word) const { return ordinary_.contains(word); }

 private:
  /// What is wrong with the object; empty when nothing is.
  [[nodiscard]] std::string_view takeFrom(const FlatRow& object);
  /// Of the whole word, in whatever script.
  [[nodiscard]] static std::uint64_t hashOf(const HashedWord& word) {
    return word.hash != 0 ? word.hash : foldedHash(word.text);
  }
  [[nodiscard]] bool passesFilter(std::uint64_t hash) const {
    const std::uint64_t mask = filter_.size() * 8 - 1;
    const std::uint64_t step = hash >> 32 | 1;
    for (unsigned probe = 0; probe < probes_; ++probe, hash += step) {
      if ((filter_[(hash & mask) / 8] >> (hash & 7) & 1) == 0) return false;
    }
    return true;
  }

  std::vector<std::uint8_t> filter_;  // a power of two of bits, or empty where there is nothing to probe
  unsigned probes_ = 0;               // none: all pass
  std::vector<std::uint8_t> codes_;
  StringSet ordinary_;
};

}  // namespace tavrine
