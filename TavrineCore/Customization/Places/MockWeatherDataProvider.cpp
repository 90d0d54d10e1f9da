#include "TavrineCore/Customization/Places/MockWeatherDataProvider.h"

#include <utility>

namespace tavrine {

MockWeatherDataProvider::MockWeatherDataProvider(std::map<FunctionIdentifier, EvaluationResult> results)
    : results_(std::move(results)) {}

std::optional<EvaluationResult> MockWeatherDataProvider::resultFor(const WeatherDataRequest& request,
                                                                   std::stop_token stop) {
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
  }
  const auto found = results_.find(request.function);
  if (stop.stop_requested() || found == results_.end()) return std::nullopt;
  return found->second;
}

std::vector<WeatherDataRequest> MockWeatherDataProvider::requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

}  // namespace tavrine
