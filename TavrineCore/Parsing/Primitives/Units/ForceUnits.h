#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Forces in newtons, pressures in pascals, torques in newton meters.
namespace tavrine::units {

inline constexpr auto kForceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::newtons, "N", "1.0"},
    {UnitIdentifier::kilonewtons, "kN", "1e3"},
    {UnitIdentifier::meganewtons, "MN", "1e6"},
    {UnitIdentifier::giganewtons, "GN", "1e9"},
    {UnitIdentifier::millinewtons, "mN", "1e-3"},
    // With a Greek mu, where all other kinds have the micro sign.
    {UnitIdentifier::micronewtons, "μN", "1e-6"},
    {UnitIdentifier::nanonewtons, "nN", "1e-9"},
    {UnitIdentifier::poundals, "pdl", "0.138254954376"},
    {UnitIdentifier::poundsOfForce, "lbf", "4.4482216152605"},
    {UnitIdentifier::ouncesOfForce, "ozf", "0.278014"},
});
static_assert(rowsAreSound(kForceUnits));

inline constexpr auto kPressureUnits = std::to_array<UnitRow>({
    {UnitIdentifier::pascals, "Pa", "1.0"},
    {UnitIdentifier::hectopascals, "hPa", "1e2"},
    {UnitIdentifier::kilopascals, "kPa", "1e3"},
    {UnitIdentifier::megapascals, "MPa", "1e6"},
    {UnitIdentifier::gigapascals, "GPa", "1e9"},
    {UnitIdentifier::atmospheres, "atm", "101325"},
    {UnitIdentifier::poundsForcePerSquareInch, "psi", "6894.76"},
    {UnitIdentifier::kilopoundsForcePerSquareInch, "ksi", "6894760.0"},
    {UnitIdentifier::megapoundsForcePerSquareInch, "Mpsi", "6894760000.0"},
    {UnitIdentifier::millimetersOfMercury, "mmHg", "133.322"},
    {UnitIdentifier::inchesOfMercury, "inHg", "3386.39"},
    {UnitIdentifier::bars, "bar", "1e5"},
    {UnitIdentifier::millibars, "mbar", "1e2"},
});
static_assert(rowsAreSound(kPressureUnits));

inline constexpr auto kTorqueUnits = std::to_array<UnitRow>({
    {UnitIdentifier::newtonMeters, "N⋅m", "1.0"},
    {UnitIdentifier::poundFeet, "lbf⋅ft", "1.35582"},
    {UnitIdentifier::poundInches, "lbf⋅in", "0.1129848"},
    {UnitIdentifier::ounceInches, "ozf⋅in", "0.007062"},
});
static_assert(rowsAreSound(kTorqueUnits));

}  // namespace tavrine::units
