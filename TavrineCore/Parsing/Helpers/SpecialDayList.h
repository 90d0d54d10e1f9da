#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"

namespace tavrine {

/// The names of special days: "christmas", "new year's eve".
class SpecialDayList {
 public:
  /// Where several days have a name of one lexeme, the last one counts.
  explicit SpecialDayList(const std::vector<SpecialDay>& days);

  /// False for most words that `specialDayFor` doesn't know.
  [[nodiscard]] bool mayKnow(const HashedWord& word) const { return aliases_.mayContain(word); }
  /// False for most words with which no name of several lexemes begins.
  [[nodiscard]] bool mayBeginPhrase(const HashedWord& word) const { return firstWords_.mayContain(word); }

  /// The day whose name of one lexeme that is, in upper or lower case.
  [[nodiscard]] const SpecialDay* specialDayFor(const HashedWord& fragment) const;

  /// A name of several lexemes.
  struct Phrase {
    SpecialDay day;
    std::string phrase;
    /// The lexemes of the phrase, without white space.
    std::vector<std::string> words;
  };
  /// The names that begin with the word, the longest first; null when there is none.
  [[nodiscard]] const std::vector<Phrase>* multiWordSpecialDaysBeginningWith(const HashedWord& firstWordOfType) const;

 private:
  StringMap<SpecialDay> specialDayAliasCache_;
  StringMap<std::vector<Phrase>> multiWordSpecialDaysByPrefixCache_;
  WordFilter aliases_;
  WordFilter firstWords_;
};

}  // namespace tavrine
