#include "TavrineCore/ResultFormatting/ResultFormatter.h"

#include <algorithm>

#include "Foundation/Locale.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {
namespace {

// A host's minimum of places is padded with zeros; nobody reads more of them, and a slip must not cost gigabytes.
constexpr int kMostPaddedPlaces = 512;

}  // namespace

const NumberSymbols& numberSymbolsFor(const Locale& locale) {
  struct Remembered {
    Locale locale;  // a copy, so that its identity can't be taken by another locale
    const NumberSymbols* symbols;
  };
  thread_local Remembered remembered{locale, &NumberSymbols::forLocale(locale.identifier())};
  if (remembered.locale != locale) {
    remembered.locale = locale;
    remembered.symbols = &NumberSymbols::forLocale(locale.identifier());
  }
  return *remembered.symbols;
}

NumberFormatter resultNumberFormatter(const FormattingPreferences& preferences, const Locale& locale) {
  NumberFormatter formatter(numberSymbolsFor(locale));
  formatter.usesGroupingSeparator = !preferences.thousandsSeparatorDisabled;
  formatter.roundingMode = RoundingMode::plain;
  formatter.maximumFractionDigits = preferences.dp;
  formatter.minimumFractionDigits = std::min(preferences.minimumFractionDigits, kMostPaddedPlaces);
  return formatter;
}

}  // namespace tavrine
