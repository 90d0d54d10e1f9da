#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Environment.h"
#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {

/// The environment of this thread with another locale.
inline foundation::Environment environmentIn(std::string_view locale) {
  foundation::Environment::Parts parts = foundation::Environment::current().parts();
  parts.locale = foundation::Locale(locale);
  return foundation::Environment(std::move(parts));
}

/// The words of a table that is nothing but words with blanks between.
inline std::vector<std::string_view> wordsOf(std::string_view file, std::string_view table) {
  std::vector<std::string_view> words;
  for (const Cells& row : cellsOf(file, table)) {
    const auto inRow = foundation::splitAtWhitespace(row.front().text);
    words.insert(words.end(), inRow.begin(), inRow.end());
  }
  return words;
}

}  // namespace tavrine::testing
