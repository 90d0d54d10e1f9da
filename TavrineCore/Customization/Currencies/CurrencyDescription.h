#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The words that mean a currency, plurals included.
struct CurrencyDescription {
  /// The code: "EUR", or the name of a fraction: "cents".
  std::string symbol;
  std::vector<std::string> aliases;

  friend bool operator==(const CurrencyDescription&, const CurrencyDescription&) = default;
};

/// Rates that the engine brings along.
struct DefaultCurrencyRates {
  /// The day of the rates: "2026-09-29".
  std::string date;
  /// Units of the currency per US dollar, by code.
  StringMap<Decimal> rates;
};

/// From [{"symbol": code, "aliases": [words]}].
DecodedResource<std::vector<CurrencyDescription>> currencyDescriptionsFrom(std::string_view bytes);

/// From {"date": day, "base": "USD", "rates": {code: units per dollar}}. Rates that are not above 0 are refused.
DecodedResource<DefaultCurrencyRates> defaultCurrencyRatesFrom(std::string_view bytes);

}  // namespace tavrine
