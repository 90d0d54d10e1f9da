#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Amounts in moles, concentrations by mass, by amount and by parts.
namespace tavrine::units {

inline constexpr auto kAmountOfSubstanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::moles, "mol", "1.0"},
    {UnitIdentifier::millimoles, "mmol", "0.001"},
    {UnitIdentifier::micromoles, "µmol", "1e-6"},
    {UnitIdentifier::nanomoles, "nmol", "1e-9"},
});
static_assert(rowsAreSound(kAmountOfSubstanceUnits));

inline constexpr auto kConcentrationMassUnits = std::to_array<UnitRow>({
    {UnitIdentifier::gramsPerLiter, "g/L", "1.0"},
    {UnitIdentifier::milligramsPerDeciliter, "mg/dL", "0.01"},
});
static_assert(rowsAreSound(kConcentrationMassUnits));

inline constexpr auto kSubstanceConcentraionUnits = std::to_array<UnitRow>({
    {UnitIdentifier::molar, "ᴍ", "1.0"},
});
static_assert(rowsAreSound(kSubstanceConcentraionUnits));

inline constexpr auto kDispersionUnits = std::to_array<UnitRow>({
    {UnitIdentifier::partsPerMillion, "ppm", "1.0"},
});
static_assert(rowsAreSound(kDispersionUnits));

}  // namespace tavrine::units
