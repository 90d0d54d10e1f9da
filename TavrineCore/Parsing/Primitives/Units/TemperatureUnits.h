#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Temperatures in kelvin: the only units with a constant.
namespace tavrine::units {

inline constexpr auto kTemperatureUnits = std::to_array<UnitRow>({
    {UnitIdentifier::kelvin, "K", "1.0"},
    {UnitIdentifier::celsius, "°C", "1.0", "273.15"},
    // 32 °F is 273.15 K: the constant is 273.15 less 32 times five ninths.
    {UnitIdentifier::fahrenheit, "°F", over("5", "9"), "255.37222222222222222222222222222222222"},
});
static_assert(rowsAreSound(kTemperatureUnits));

}  // namespace tavrine::units
