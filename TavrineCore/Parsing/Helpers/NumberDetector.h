#pragma once

#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
struct NumberSymbols;
}

namespace tavrine {

/// Reads the value of a numeric text under a locale: "1,234.5" in en_US, "1.234,5" in de_DE, "½" everywhere.
///
/// Immutable, so that one detector serves a parser on any number of threads.
class NumberDetector {
 public:
  NumberDetector(const Locale& locale, MisplacedThousandsSeparatorBehavior behavior);

  /// The value of `text`, the whole of it; absent when it is no number. A whole number with a fraction character
  /// behind it is their sum ("5½" is 5.5). What a grouping separator at the wrong place means ("1,23") is told by the
  /// detector's behaviour: skipped (123), refused, or a decimal point of another locale (1.23).
  std::optional<Decimal> decimalValueOf(std::string_view text) const;

  const Locale& locale() const { return locale_; }
  const NumberSymbols& symbols() const { return *symbols_; }
  MisplacedThousandsSeparatorBehavior misplacedThousandsSeparatorBehavior() const { return behavior_; }

 private:
  Locale locale_;
  const NumberSymbols* symbols_;  // interned per locale, lives for ever
  MisplacedThousandsSeparatorBehavior behavior_;
};

}  // namespace tavrine
