#pragma once

#include <optional>
#include <span>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Places/WeatherDataProvider.h"

namespace tavrine {

class Token;

/// What a phrase about the weather asks, from what stood at its gaps: where, by a place or by a day that names one
/// ("tomorrow in Paris"), and when, if a day is told. Nothing where no place is told.
[[nodiscard]] std::optional<WeatherDataRequest> weatherRequestFor(FunctionIdentifier function,
                                                                  std::span<const Token> arguments);

}  // namespace tavrine
