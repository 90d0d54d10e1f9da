#pragma once

#include <mutex>
#include <optional>
#include <stop_token>

#include "Foundation/Decimal.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Currencies/CurrencyRateProvider.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A source with a fixed set of rates, for trials and tests.
class MockCurrencyRateProvider final : public CurrencyRateProvider {
 public:
  /// Units of a currency per US dollar, by code.
  explicit MockCurrencyRateProvider(StringMap<Decimal> rates);

  /// What `updateRates` will bring.
  void setRatesOfNextUpdate(StringMap<Decimal> rates);

  [[nodiscard]] std::optional<Decimal> rateFor(const CurrencyRateRequest& request) override;
  bool updateRates(std::stop_token stop) override;

 private:
  std::mutex mutex_;
  StringMap<Decimal> rates_;
  std::optional<StringMap<Decimal>> ratesOfNextUpdate_;
};

}  // namespace tavrine
