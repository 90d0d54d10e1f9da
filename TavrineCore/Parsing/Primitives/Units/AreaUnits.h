#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Areas in square meters.
namespace tavrine::units {

inline constexpr auto kAreaUnits = std::to_array<UnitRow>({
    {UnitIdentifier::squareMegameters, "Mm²", "1e12"},
    {UnitIdentifier::squareKilometers, "km²", "1e6"},
    {UnitIdentifier::squareMeters, "m²", "1.0"},
    {UnitIdentifier::squareDecimeters, "dm²", "1e-2"},
    {UnitIdentifier::squareCentimeters, "cm²", "1e-4"},
    {UnitIdentifier::squareMillimeters, "mm²", "1e-6"},
    {UnitIdentifier::squareMicrometers, "µm²", "1e-12"},
    {UnitIdentifier::squareNanometers, "nm²", "1e-18"},
    {UnitIdentifier::squareInches, "in²", "0.00064516"},
    {UnitIdentifier::squareFeet, "ft²", "0.09290304"},
    {UnitIdentifier::squareYards, "yd²", "0.83612736"},
    {UnitIdentifier::squareMiles, "mi²", "2589988.110336"},
    {UnitIdentifier::acres, "ac", "4046.8564224"},
    {UnitIdentifier::ares, "ares", "100.0"},
    {UnitIdentifier::hectares, "ha", "10000.0"},
});
static_assert(rowsAreSound(kAreaUnits));

}  // namespace tavrine::units
