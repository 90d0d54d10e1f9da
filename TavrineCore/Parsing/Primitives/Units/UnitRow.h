#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine::units {

/// How many base units one unit is: `text` × `factor` × 2^`powerOfTwo` ÷ `divisor`. All are exact decimal text, for no
/// binary fraction is exact; what digits can't say exactly is computed, once, when the unit is made.
struct UnitCoefficient {
  std::string_view text;
  std::string_view factor = "1";
  std::string_view divisor = "1";
  int powerOfTwo = 0;

  constexpr UnitCoefficient(const char* decimalText) : text(decimalText) {}  // NOLINT(google-explicit-constructor)
};

/// `over("1", "60")`: a sixtieth.
constexpr UnitCoefficient over(UnitCoefficient dividend, std::string_view divisor) {
  dividend.divisor = divisor;
  return dividend;
}
/// `times("2.54", "12")`.
constexpr UnitCoefficient times(UnitCoefficient multiplicand, std::string_view factor) {
  multiplicand.factor = factor;
  return multiplicand;
}
/// `twoTo(10)`: 1024.
constexpr UnitCoefficient twoTo(int power) {
  UnitCoefficient result("1");
  result.powerOfTwo = power;
  return result;
}

/// A unit of the kind that `unitTypeOf(identifier)` tells.
struct UnitRow {
  UnitIdentifier identifier;
  /// What is shown behind a number. Units of different countries share symbols.
  std::string_view symbol;
  UnitCoefficient coefficient;
  /// What a value of 0 is in base units.
  std::string_view constant = "0";
};

/// `digits[.digits][e[-]digits]`, positive: what all numbers of the tables look like.
constexpr bool isDecimalText(std::string_view text) {
  std::size_t i = 0;
  const auto skipDigits = [&] {
    const std::size_t start = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
    return i > start;
  };
  if (!skipDigits()) return false;
  if (i < text.size() && text[i] == '.') {
    ++i;
    if (!skipDigits()) return false;
  }
  if (i < text.size() && text[i] == 'e') {
    ++i;
    if (i < text.size() && text[i] == '-') ++i;
    if (!skipDigits()) return false;
  }
  return i == text.size();
}

/// Whether each row has a symbol and decimal text in all its numbers, and none has another's identifier.
template <std::size_t count>
constexpr bool rowsAreSound(const std::array<UnitRow, count>& rows) {
  for (std::size_t i = 0; i < count; ++i) {
    const UnitRow& row = rows[i];
    if (row.symbol.empty() || !isDecimalText(row.coefficient.text) || !isDecimalText(row.coefficient.factor) ||
        !isDecimalText(row.coefficient.divisor) || !isDecimalText(row.constant)) {
      return false;
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (rows[j].identifier == row.identifier) return false;
    }
  }
  return true;
}

}  // namespace tavrine::units
