#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Electric charge, current, potential, resistance, conductance, inductance and capacitance in their SI units.
namespace tavrine::units {

inline constexpr auto kElectricChargeUnits = std::to_array<UnitRow>({
    {UnitIdentifier::coulombs, "coulombs", "1.0"},
    {UnitIdentifier::ampereHours, "Ah", "3600.0"},
    {UnitIdentifier::kiloampereHours, "kAh", "3600000.0"},
    {UnitIdentifier::megaampereHours, "MAh", "3.6e9"},
    {UnitIdentifier::milliampereHours, "mAh", "3.6"},
    {UnitIdentifier::microampereHours, "µAh", "0.0036"},
});
static_assert(rowsAreSound(kElectricChargeUnits));

inline constexpr auto kElectricCurrentUnits = std::to_array<UnitRow>({
    {UnitIdentifier::amperes, "amps", "1.0"},
    {UnitIdentifier::kiloamperes, "kiloamps", "1e3"},
    {UnitIdentifier::megaamperes, "megaamps", "1e6"},
    {UnitIdentifier::milliamperes, "milliamps", "1e-3"},
    {UnitIdentifier::microamperes, "microamps", "1e-6"},
});
static_assert(rowsAreSound(kElectricCurrentUnits));

inline constexpr auto kElectricPotentialUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megavolts, "MV", "1e6"},
    {UnitIdentifier::kilovolts, "kV", "1e3"},
    {UnitIdentifier::volts, "V", "1.0"},
    {UnitIdentifier::millivolts, "mV", "1e-3"},
    {UnitIdentifier::microvolts, "µV", "1e-6"},
});
static_assert(rowsAreSound(kElectricPotentialUnits));

inline constexpr auto kElectricResistanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megaohms, "MΩ", "1e6"},
    {UnitIdentifier::kiloohms, "kΩ", "1e3"},
    {UnitIdentifier::ohms, "Ω", "1.0"},
    {UnitIdentifier::milliohms, "mΩ", "1e-3"},
    {UnitIdentifier::microohms, "µΩ", "1e-6"},
});
static_assert(rowsAreSound(kElectricResistanceUnits));

inline constexpr auto kElectricConductanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megasiemens, "megasiemens", "1e6"},
    {UnitIdentifier::kilosiemens, "kilosiemens", "1e3"},
    {UnitIdentifier::siemens, "siemens", "1.0"},
    {UnitIdentifier::millisiemens, "millisiemens", "1e-3"},
    {UnitIdentifier::microsiemens, "microsiemens", "1e-6"},
});
static_assert(rowsAreSound(kElectricConductanceUnits));

inline constexpr auto kElectricalInductanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megahenrys, "megahenrys", "1e6"},
    {UnitIdentifier::kilohenrys, "kilohenrys", "1e3"},
    {UnitIdentifier::henrys, "henrys", "1.0"},
    {UnitIdentifier::millihenrys, "millihenrys", "1e-3"},
    {UnitIdentifier::microhenrys, "microhenrys", "1e-6"},
});
static_assert(rowsAreSound(kElectricalInductanceUnits));

inline constexpr auto kElectricalCapacitanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megafarads, "megafarads", "1e6"},
    {UnitIdentifier::kilofarads, "kilofarads", "1e3"},
    {UnitIdentifier::farads, "farads", "1.0"},
    {UnitIdentifier::millifarads, "millifarads", "1e-3"},
    {UnitIdentifier::microfarads, "microfarads", "1e-6"},
});
static_assert(rowsAreSound(kElectricalCapacitanceUnits));

}  // namespace tavrine::units
