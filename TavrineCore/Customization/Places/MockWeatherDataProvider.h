#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

#include "TavrineCore/Customization/Places/WeatherDataProvider.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The same weather everywhere and always, for trials and tests.
class MockWeatherDataProvider final : public WeatherDataProvider {
 public:
  explicit MockWeatherDataProvider(std::map<FunctionIdentifier, EvaluationResult> results);

  [[nodiscard]] std::optional<EvaluationResult> resultFor(const WeatherDataRequest& request,
                                                          std::stop_token stop) override;

  /// What has been asked so far, in order.
  [[nodiscard]] std::vector<WeatherDataRequest> requests() const;

 private:
  std::map<FunctionIdentifier, EvaluationResult> results_;
  mutable std::mutex mutex_;
  std::vector<WeatherDataRequest> requests_;
};

}  // namespace tavrine
