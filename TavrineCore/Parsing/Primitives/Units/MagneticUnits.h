#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Magnetic flux in webers, its density in teslas.
namespace tavrine::units {

inline constexpr auto kMagneticFluxUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megawebers, "MWb", "1e6"},
    {UnitIdentifier::kilowebers, "kWb", "1e3"},
    {UnitIdentifier::webers, "Wb", "1.0"},
    {UnitIdentifier::milliwebers, "mWb", "1e-3"},
    {UnitIdentifier::microwebers, "µWb", "1e-6"},
});
static_assert(rowsAreSound(kMagneticFluxUnits));

inline constexpr auto kMagneticFluxDensityUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megateslas, "megateslas", "1e6"},
    {UnitIdentifier::kiloteslas, "kiloteslas", "1e3"},
    {UnitIdentifier::teslas, "teslas", "1.0"},
    {UnitIdentifier::milliteslas, "milliteslas", "1e-3"},
    {UnitIdentifier::microteslas, "microteslas", "1e-6"},
});
static_assert(rowsAreSound(kMagneticFluxDensityUnits));

}  // namespace tavrine::units
