#include "TavrineCore/ResultFormatting/CurrencySigns.h"

#include <algorithm>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {
namespace {

using Signs = std::vector<UnitSymbolReplacement>;

const Signs& signsInForce(const ResultFormatterContext& context) {
  if (const Signs* own = context.currencySymbolSettings.symbols()) return *own;
  // Results come in runs of one locale, and making its signs costs more than a line.
  struct Remembered {
    Locale locale;
    Signs signs;
  };
  constexpr auto signsOf = &UnitSymbolReplacement::standardCustomSymbolsFor;
  thread_local Remembered remembered{context.locale, signsOf(context.locale)};
  if (remembered.locale != context.locale) remembered = {context.locale, signsOf(context.locale)};
  return remembered.signs;
}

}  // namespace

const UnitSymbolReplacement* signReplacing(std::string_view symbol, const ResultFormatterContext& context) {
  const Signs& signs = signsInForce(context);
  const auto found = std::ranges::find(signs, symbol, &UnitSymbolReplacement::originalSymbol);
  return found == signs.end() ? nullptr : &*found;
}

const UnitSymbolReplacement* shownSignReplacing(std::string_view symbol, const ResultFormatterContext& context) {
  const Signs& signs = signsInForce(context);
  const auto found = std::ranges::find_if(signs, [symbol](const UnitSymbolReplacement& sign) {
    return sign.originalSymbol == symbol && sign.replacementSymbol != "NULL";
  });
  return found == signs.end() ? nullptr : &*found;
}

}  // namespace tavrine
