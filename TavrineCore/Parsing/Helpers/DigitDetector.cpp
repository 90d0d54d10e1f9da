#include "TavrineCore/Parsing/Helpers/DigitDetector.h"

#include "Foundation/Locale.h"
#include "Foundation/NumberSymbols.h"
#include "Foundation/Text.h"

namespace tavrine {

bool DigitDetector::firstCharacterIsDecimalPointIn(std::string_view text, const Locale& locale) {
  if (text.empty()) return false;
  const NumberSymbols& symbols = NumberSymbols::forLocale(locale.identifier());
  if (!symbols.decimalSeparator.empty() && text.starts_with(symbols.decimalSeparator)) return true;
  return text.front() == '.' && !symbols.groupingSeparator.empty() && trimmed(symbols.groupingSeparator).empty();
}

}  // namespace tavrine
