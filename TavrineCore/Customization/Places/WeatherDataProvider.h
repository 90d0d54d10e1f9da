#pragma once

#include <optional>
#include <stop_token>

#include "Foundation/Date.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

class EvaluationResult;

/// Asks for one aspect of the weather ("high temperature in Paris tomorrow").
struct WeatherDataRequest {
  FunctionIdentifier function = FunctionIdentifier::weatherConditions;
  Place location;
  /// Absent for now.
  std::optional<Date> date = std::nullopt;

  friend bool operator==(const WeatherDataRequest&, const WeatherDataRequest&) = default;
};

/// A host's source of weather.
class WeatherDataProvider {
 public:
  virtual ~WeatherDataProvider() = default;

  /// The answer; blocks, and is called from background threads only, several at a time. Absent when it isn't known or
  /// the request is stopped.
  [[nodiscard]] virtual std::optional<EvaluationResult> resultFor(const WeatherDataRequest& request,
                                                                  std::stop_token stop) = 0;
};

}  // namespace tavrine
