#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Speeds in meters per second, accelerations in meters per second squared.
namespace tavrine::units {

inline constexpr auto kSpeedUnits = std::to_array<UnitRow>({
    {UnitIdentifier::metersPerSecond, "m/s", "1.0"},
    {UnitIdentifier::feetPerSecond, "ft/s", "0.3048"},
    {UnitIdentifier::kilometersPerHour, "km/h", "0.27777777777777777777777777777777777777777777777778"},
    {UnitIdentifier::milesPerHour, "mph", "0.44704"},
    {UnitIdentifier::knots, "kn", "0.514444444444444444"},
});
static_assert(rowsAreSound(kSpeedUnits));

inline constexpr auto kAccelerationUnits = std::to_array<UnitRow>({
    {UnitIdentifier::metersPerSecondSquared, "m/s²", "1.0"},
    {UnitIdentifier::feetPerSecondSquared, "ft/s²", "0.3048"},
    // Rounded, not the standard 9.80665.
    {UnitIdentifier::gravity, "g", "9.81"},
});
static_assert(rowsAreSound(kAccelerationUnits));

}  // namespace tavrine::units
