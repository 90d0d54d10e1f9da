#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
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

/// Recognises a number as typed in a locale, strictly: the whole text must be digits with well-placed grouping, an
/// optional decimal separator and digits, an optional exponent ("1e5"). At least one digit; a leading minus, no plus.
///
/// Groups must have their exact sizes ("1234,567" is no number), and one number uses one separator throughout. Besides
/// its own separator a locale accepts any space and any apostrophe, and "." or "," where it uses neither to group nor
/// this one as decimal separator. Digits of all scripts are accepted. Time is linear in the length.
bool isStrictNumber(std::string_view text, const NumberSymbols& symbols);

/// The value of such a text; absent where it isn't one. Beyond 38 digits it is rounded.
std::optional<Decimal> parseStrict(std::string_view text, const NumberSymbols& symbols);

/// The value of digits with an optional sign, the locale's decimal separator and an exponent, without any grouping:
/// what is left of a number after its separators have been removed.
std::optional<Decimal> parseUngrouped(std::string_view text, const NumberSymbols& symbols);

}  // namespace tavrine::foundation
