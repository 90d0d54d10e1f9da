#pragma once

#include <algorithm>
#include <string_view>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Locale;
}

namespace tavrine {

/// Questions about the ASCII digits of a text.
class DigitDetector {
 public:
  static constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

  static bool firstCharacterIsDigitIn(std::string_view text) { return !text.empty() && isDigit(text.front()); }
  static bool lastCharacterIsDigitIn(std::string_view text) { return !text.empty() && isDigit(text.back()); }
  static bool containsDigit(std::string_view text) { return std::any_of(text.begin(), text.end(), isDigit); }

  /// Whether a number under `locale` may open with the first character of `text` as its decimal point: the locale's
  /// decimal separator, and "." too where the locale groups by whitespace.
  static bool firstCharacterIsDecimalPointIn(std::string_view text, const Locale& locale);
};

}  // namespace tavrine
