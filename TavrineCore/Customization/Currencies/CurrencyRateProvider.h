#pragma once

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// Asks how much of a currency `baseCurrencyQuantity` of the base currency buys.
struct CurrencyRateRequest {
  UnitIdentifier unitIdentifier = UnitIdentifier::undefined;
  /// "EUR"
  std::string currencyCode;
  std::string baseCurrencyCode = "USD";
  double baseCurrencyQuantity = 1;

  [[nodiscard]] std::size_t hash() const {
    return hashOf(unitIdentifier, currencyCode, baseCurrencyCode, baseCurrencyQuantity);
  }
  friend bool operator==(const CurrencyRateRequest&, const CurrencyRateRequest&) = default;
};

/// A host's source of exchange rates. Called from any thread, several at a time.
class CurrencyRateProvider {
 public:
  virtual ~CurrencyRateProvider() = default;

  /// The rate as last known, at once; absent when the currency is unknown here.
  [[nodiscard]] virtual std::optional<Decimal> rateFor(const CurrencyRateRequest& request) = 0;

  /// Fetches fresh rates; blocks. Whether there are any. When is a host's business: the engine asks for a rate each
  /// time that it meets a currency, so that an update counts from the next line on.
  virtual bool updateRates(std::stop_token /*stop*/) { return false; }
};

}  // namespace tavrine
