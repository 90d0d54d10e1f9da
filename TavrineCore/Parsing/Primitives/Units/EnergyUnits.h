#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Energies in joules, powers in watts.
namespace tavrine::units {

inline constexpr auto kEnergyUnits = std::to_array<UnitRow>({
    {UnitIdentifier::joules, "J", "1.0"},
    {UnitIdentifier::kilojoules, "kJ", "1e3"},
    {UnitIdentifier::megajoules, "MJ", "1000000"},
    {UnitIdentifier::gigajoules, "GJ", "1000000000"},
    {UnitIdentifier::wattHours, "Wh", "3600"},
    {UnitIdentifier::wattMinutes, "W m", "60"},
    {UnitIdentifier::wattSeconds, "W s", "1"},
    {UnitIdentifier::kilowattHours, "kWh", "3600000.0"},
    {UnitIdentifier::gigawattHours, "GWh", "3600000000000"},
    {UnitIdentifier::megawattHours, "MWh", "3600000000"},
    {UnitIdentifier::terawattHours, "TWh", "3600000000000000"},
    {UnitIdentifier::calories, "cal", "4.184"},
    {UnitIdentifier::kilocalories, "kCal", "4184.0"},
});
static_assert(rowsAreSound(kEnergyUnits));

inline constexpr auto kPowerUnits = std::to_array<UnitRow>({
    {UnitIdentifier::terawatts, "TW", "1e12"},
    {UnitIdentifier::gigawatts, "GW", "1e9"},
    {UnitIdentifier::megawatts, "MW", "1e6"},
    {UnitIdentifier::kilowatts, "kW", "1e3"},
    {UnitIdentifier::watts, "W", "1.0"},
    {UnitIdentifier::milliwatts, "mW", "1e-3"},
    {UnitIdentifier::microwatts, "µW", "1e-6"},
    {UnitIdentifier::nanowatts, "nW", "1e-9"},
    {UnitIdentifier::picowatts, "pW", "1e-12"},
    {UnitIdentifier::femtowatts, "fW", "1e-15"},
    {UnitIdentifier::horsepower, "hp", "745.7"},
});
static_assert(rowsAreSound(kPowerUnits));

}  // namespace tavrine::units
