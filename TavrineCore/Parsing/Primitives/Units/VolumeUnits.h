#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Volumes in cubic meters. Spoons, ounces, pints and gallons share their symbols between countries.
namespace tavrine::units {

inline constexpr auto kVolumeUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megaliters, "ML", "1000"},
    {UnitIdentifier::kiloliters, "kL", "1.0"},
    {UnitIdentifier::liters, "L", "0.001"},
    {UnitIdentifier::deciliters, "dL", "0.0001"},
    {UnitIdentifier::centiliters, "cL", "0.00001"},
    {UnitIdentifier::milliliters, "mL", "1e-6"},
    {UnitIdentifier::microliters, "µL", "1e-9"},
    {UnitIdentifier::nanoliters, "nL", "1e-12"},
    {UnitIdentifier::cubicKilometers, "km³", "1e9"},
    {UnitIdentifier::cubicMeters, "m³", "1.0"},
    {UnitIdentifier::cubicDecimeters, "dm³", "0.001"},
    {UnitIdentifier::cubicCentimeters, "cm³", "1e-6"},
    {UnitIdentifier::cubicMillimeters, "mm³", "1e-9"},
    {UnitIdentifier::cubicNanometers, "nm³", "1e-27"},
    {UnitIdentifier::cubicInches, "in³", "0.000016387064"},
    {UnitIdentifier::cubicFeet, "ft³", "0.028316846592"},
    {UnitIdentifier::cubicYards, "yd³", "0.764554857984"},
    {UnitIdentifier::cubicMiles, "mi³", "4.168181825440579584e9"},
    {UnitIdentifier::acreFeet, "af", "1233.48183"},
    {UnitIdentifier::bushels, "bsh", "0.0352391"},
    {UnitIdentifier::teaspoons, "tsp", "4.92892159375e-6"},
    {UnitIdentifier::tablespoons, "tbsp", "0.00001478676478125"},
    {UnitIdentifier::fluidOunces, "fl oz", "0.0000295735295625"},
    {UnitIdentifier::cups, "cup", "0.0002365882365"},
    {UnitIdentifier::pints, "pt", "0.000473176473"},
    {UnitIdentifier::quarts, "qt", "0.000946352946"},
    {UnitIdentifier::gallons, "gal", "0.003785411784"},
    {UnitIdentifier::imperialTeaspoons, "tsp", "0.00000591938802083333"},
    {UnitIdentifier::imperialTablespoons, "tbsp", "0.0000177581640625"},
    {UnitIdentifier::imperialFluidOunces, "fl oz", "0.0000284130625"},
    {UnitIdentifier::imperialPints, "pt", "0.000568261"},
    {UnitIdentifier::imperialQuarts, "qt", "0.00113652"},
    {UnitIdentifier::imperialGallons, "gal", "0.00454609"},
    {UnitIdentifier::metricCups, "metric cup", "0.00025"},
    {UnitIdentifier::metricTeaspoons, "tsp", "5.0e-6"},
    {UnitIdentifier::metricTablespoons, "tbsp", "1.5e-5"},
    {UnitIdentifier::metricAUTablespoons, "tbsp", "2e-5"},
});
static_assert(rowsAreSound(kVolumeUnits));

}  // namespace tavrine::units
