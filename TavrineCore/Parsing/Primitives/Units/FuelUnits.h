#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Fuel by distance in liters per kilometer, distance by fuel in kilometers per liter.
namespace tavrine::units {

inline constexpr auto kFuelConsumptionUnits = std::to_array<UnitRow>({
    {UnitIdentifier::litersPerKilometer, "L/km", "1.00"},
    {UnitIdentifier::litersPer100Kilometers, "L/100km", "0.01"},
});
static_assert(rowsAreSound(kFuelConsumptionUnits));

inline constexpr auto kFuelEconomyUnits = std::to_array<UnitRow>({
    {UnitIdentifier::kilometersPerLiter, "km/L", "1.00"},
    {UnitIdentifier::milesPerImperialGallon, "MPG", "0.354006"},
    {UnitIdentifier::milesPerGallon, "MPG", "0.425143707"},
});
static_assert(rowsAreSound(kFuelEconomyUnits));

}  // namespace tavrine::units
