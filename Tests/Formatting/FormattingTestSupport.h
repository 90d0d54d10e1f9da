#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine::testing {

/// Preferences as a row of a table: what it doesn't name keeps its default.
struct Settings {
  int dp = 10;
  int minimum = 0;
  bool groups = true;
  bool abbreviates = true;
  SIThreshold threshold = SIThreshold::hundredThousand;

  [[nodiscard]] FormattingPreferences preferences() const {
    FormattingPreferences result;
    result.dp = dp;
    result.minimumFractionDigits = minimum;
    result.thousandsSeparatorDisabled = !groups;
    result.notationPreferences = NotationPreferences::off;
    if (abbreviates) result.notationPreferences = {NotationPreferences::NotationStyle::auto_, threshold};
    return result;
  }
};

inline Decimal number(std::string_view text) { return Decimal::parse(text).value_or(Decimal::nan()); }

inline ResultFormatterContext contextFor(std::string_view locale, const FormattingPreferences& preferences = {}) {
  return {nullptr, nullptr, Calendar(Calendar::Identifier::gregorian, Locale(locale), TimeZone::gmt()), Locale(locale),
          preferences, CurrencySymbolSettings::automatic()};
}

}  // namespace tavrine::testing
