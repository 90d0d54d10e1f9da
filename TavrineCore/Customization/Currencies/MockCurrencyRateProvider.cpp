#include "TavrineCore/Customization/Currencies/MockCurrencyRateProvider.h"

#include <utility>

namespace tavrine {

MockCurrencyRateProvider::MockCurrencyRateProvider(StringMap<Decimal> rates) : rates_(std::move(rates)) {}

void MockCurrencyRateProvider::setRatesOfNextUpdate(StringMap<Decimal> rates) {
  const std::lock_guard lock(mutex_);
  ratesOfNextUpdate_ = std::move(rates);
}

std::optional<Decimal> MockCurrencyRateProvider::rateFor(const CurrencyRateRequest& request) {
  const std::lock_guard lock(mutex_);
  const auto found = rates_.find(request.currencyCode);
  if (found == rates_.end()) return std::nullopt;
  return found->second;
}

bool MockCurrencyRateProvider::updateRates(std::stop_token stop) {
  const std::lock_guard lock(mutex_);
  if (stop.stop_requested() || !ratesOfNextUpdate_) return false;
  rates_ = std::move(*ratesOfNextUpdate_);
  ratesOfNextUpdate_.reset();
  return true;
}

}  // namespace tavrine
