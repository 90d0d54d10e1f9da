#pragma once

#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Locale;
}

namespace tavrine {

struct FormattingPreferences;

/// What every formatter of numbers starts from: the locale's separators, grouping unless the preferences turn it off,
/// half away from zero, at most `dp` and at least `minimumFractionDigits` places. The style is `decimal`; a formatter
/// that wants another one sets it.
///
/// A plain value that costs a few loads, so there is no shared formatter to guard.
[[nodiscard]] NumberFormatter resultNumberFormatter(const FormattingPreferences& preferences, const Locale& locale);

/// The symbols of a locale. Remembers the last locale of the thread, since results come in runs of one.
[[nodiscard]] const NumberSymbols& numberSymbolsFor(const Locale& locale);

}  // namespace tavrine
