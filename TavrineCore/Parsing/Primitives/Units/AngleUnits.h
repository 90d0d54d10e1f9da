#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Angles in degrees, angular velocities in radians per second.
namespace tavrine::units {

inline constexpr const char* kPi =
    "3.1415926535897932384626433832795028841971693993751058209749445923078164062862089986280348253421170679";

inline constexpr auto kAngleUnits = std::to_array<UnitRow>({
    {UnitIdentifier::degrees, "°", "1.0"},
    {UnitIdentifier::arcMinutes, "′", over("1", "60")},
    {UnitIdentifier::arcSeconds, "″", over("1", "3600")},
    {UnitIdentifier::radians, "rad", over("180", kPi)},
    {UnitIdentifier::gradians, "grad", "0.9"},
    {UnitIdentifier::revolutions, "rev", "360.0"},
});
static_assert(rowsAreSound(kAngleUnits));

inline constexpr auto kAngularVelocityUnits = std::to_array<UnitRow>({
    {UnitIdentifier::revolutionsPerSecond, "rps", "6.283185307179586"},
    {UnitIdentifier::revolutionsPerMinute, "rpm", "0.10471975511966"},
    {UnitIdentifier::radiansPerSecond, "rad/s", "1.0"},
});
static_assert(rowsAreSound(kAngularVelocityUnits));

}  // namespace tavrine::units
