#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/DateWord.h"

namespace tavrine {

/// The calendar words of a language, with the English ones beside them.
class DateWordsList {
 public:
  explicit DateWordsList(const Calendar& calendar);

  /// What the fragment stands for, in upper or lower case; null when it is no calendar word.
  const DateWord* dateWordFor(std::string_view fragment) const;

  /// Each in lower case.
  const std::vector<DateWord>& allDateWords() const { return allDateWords_; }

 private:
  void addWordsOf(const Calendar& calendar);
  void add(DateWordType type, std::string_view word, std::optional<int> index);
  void addAbbreviation(DateWordType type, std::string_view word, std::optional<int> index);

  std::vector<DateWord> allDateWords_;
  StringMap<std::size_t> cachedIdentifiers_;  // index into allDateWords_
};

}  // namespace tavrine
