#pragma once

#include <memory>

#include "Foundation/Calendar.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

class TokenList;
class UnitList;

/// What a formatter may know besides the result. Made once a result.
struct ResultFormatterContext {
  /// The line as it was parsed, which some formatters look into; null for a result that came from elsewhere.
  std::shared_ptr<const TokenList> originalTokenList;
  std::shared_ptr<const UnitList> unitList;
  Calendar calendar;
  Locale locale;
  FormattingPreferences formattingPreferences;
  /// The signs of money: those of the locale unless the host has set others.
  CurrencySymbolSettings currencySymbolSettings;
};

}  // namespace tavrine
