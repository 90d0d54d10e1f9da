#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A number in words: "twelve" is 12.
struct NumberWord {
  std::string fragment;
  std::int64_t number = 0;

  friend bool operator==(const NumberWord&, const NumberWord&) = default;
};

/// The number words of a language: 0 to 99, and the round numbers up to a trillion with their last words ("hundred").
/// Costly to make, since every word is spelled out. Chinese has none: its numerals are digits there.
class NumberWordsList {
 public:
  explicit NumberWordsList(const Locale& locale);

  /// The number that the fragment stands for, in upper or lower case; null when it is no number word.
  const NumberWord* numberWordFor(std::string_view fragment) const;

  /// In the order in which they were found, each in lower case.
  const std::vector<NumberWord>& allNumberWords() const { return allNumberWords_; }

 private:
  void add(std::string word, std::int64_t number);

  std::vector<NumberWord> allNumberWords_;
  StringMap<std::size_t> cachedIdentifiers_;  // index into allNumberWords_
};

}  // namespace tavrine
