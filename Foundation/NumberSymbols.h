#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavrine::foundation {

/// What numbers are written with in a locale; plain English ones by default. Read once from the locale data, then
/// shared by all threads.
struct NumberSymbols {
  std::string decimalSeparator = ".";
  std::string groupingSeparator = ",";  ///< empty where the locale has none
  std::string minusSign = "-";
  std::string plusSign = "+";
  std::string exponentSymbol = "E";
  std::string infinity = "∞";
  std::string notANumber = "NaN";

  /// What stands around the digits of a number, and of a percentage: "%" with the blank of the locale, on its side.
  std::string negativePrefix = "-";
  std::string negativeSuffix;
  std::string percentPrefix;
  std::string percentSuffix = "%";
  std::string percentNegativePrefix = "-";
  std::string percentNegativeSuffix = "%";

  /// The digits 0 to 9 as the locale writes them.
  std::array<std::string, 10> digits = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  bool usesLatinDigits = true;

  /// Digits in the last group and in the others: 3 and 3 mostly, 3 and 2 in India. 0 where numbers aren't grouped.
  int primaryGroupingSize = 3;
  int secondaryGroupingSize = 3;
  /// Digits before the first separator that make it appear.
  int minimumGroupingDigits = 1;

  /// The symbols of a locale identifier ("en_US", "de-CH"). An empty or POSIX identifier reads as en_US, an unknown one
  /// as the nearest that is known. The reference stays good for the life of the process; any thread may ask.
  static const NumberSymbols& forLocale(std::string_view identifier);
};

}  // namespace tavrine::foundation
