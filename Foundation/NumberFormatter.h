#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/NumberRecognition.h"  // IWYU pragma: export
#include "Foundation/NumberSymbols.h"

namespace tavrine::foundation {

enum class NumberStyle : std::uint8_t {
  none,        ///< whole numbers without grouping: 1234568
  decimal,     ///< 1,234,567.5
  percent,     ///< the value times 100, with the sign of the locale: 20%
  scientific,  ///< one digit before the point, an exponent always: 1.5E-7
};

/// Writes decimal numbers as a locale does. A plain value: copy it, change its fields, use it on any thread.
struct NumberFormatter {
  NumberFormatter() : NumberFormatter("en_US") {}
  explicit NumberFormatter(std::string_view localeIdentifier) : symbols(&NumberSymbols::forLocale(localeIdentifier)) {}
  explicit NumberFormatter(const NumberSymbols& localeSymbols) : symbols(&localeSymbols) {}

  const NumberSymbols* symbols;
  NumberStyle numberStyle = NumberStyle::decimal;

  /// Places behind the point; ignored by the style `none`. Negative ones count as 0; a minimum above the maximum wins.
  /// In the style `scientific`: both 0 for all digits; a minimum of 0 for at most maximum + 1 significant digits;
  /// otherwise from minimum to maximum *significant* digits.
  int minimumFractionDigits = 0;
  int maximumFractionDigits = 3;

  /// Ignored by the styles `none` and `scientific`, which never group.
  bool usesGroupingSeparator = true;

  /// Absent: half away from zero, or half to even in the style `none`.
  std::optional<RoundingMode> roundingMode;

  /// Appends the text of a value. The sign stays on a value that rounds to zero ("-0.00"). Not a number becomes the
  /// locale's symbol for it.
  void append(const Decimal& value, std::string& text) const;

  std::string string(const Decimal& value) const;
};

}  // namespace tavrine::foundation
