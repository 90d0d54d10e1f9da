#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"
#include "Tests/Support/Table.h"

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

/// "dp=2; groups=false", or "-".
inline void readCell(std::string_view text, Settings& settings) {
  eachMember(text, [&settings](std::string_view name, const Cell& value) {
    if (name == "dp") settings.dp = value;
    if (name == "minimum") settings.minimum = value;
    if (name == "groups") settings.groups = value;
    if (name == "abbreviates") settings.abbreviates = value;
    if (name == "threshold") settings.threshold = value;
  });
}

inline Decimal number(std::string_view text) { return Decimal::parse(text).value_or(Decimal::nan()); }

inline ResultFormatterContext contextFor(std::string_view locale, const FormattingPreferences& preferences = {}) {
  return {nullptr,        nullptr,     Calendar(Calendar::Identifier::gregorian, Locale(locale), TimeZone::gmt()),
          Locale(locale), preferences, CurrencySymbolSettings::automatic()};
}

}  // namespace tavrine::testing
