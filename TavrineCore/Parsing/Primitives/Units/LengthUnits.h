#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Lengths in meters.
namespace tavrine::units {

/// A 72nd of an inch. Pixels are three quarters of it, and an em is 16 pixels.
inline constexpr const char* kPoint = "0.00035277777777777777777777777777778";

inline constexpr auto kLengthUnits = std::to_array<UnitRow>({
    {UnitIdentifier::megameters, "Mm", "1e6"},
    {UnitIdentifier::hectokilometers, "hkm", "1e5"},
    {UnitIdentifier::kilometers, "km", "1e3"},
    {UnitIdentifier::hectometers, "hm", "1e2"},
    {UnitIdentifier::decameters, "dam", "1e1"},
    {UnitIdentifier::meters, "m", "1.0"},
    {UnitIdentifier::decimeters, "dm", "1e-1"},
    {UnitIdentifier::centimeters, "cm", "1e-2"},
    {UnitIdentifier::millimeters, "mm", "1e-3"},
    {UnitIdentifier::micrometers, "µm", "1e-6"},
    {UnitIdentifier::nanometers, "nm", "1e-9"},
    {UnitIdentifier::picometers, "pm", "1e-12"},
    {UnitIdentifier::inches, "in", "0.0254"},
    {UnitIdentifier::feet, "ft", "0.3048"},
    {UnitIdentifier::yards, "yd", "0.9144"},
    {UnitIdentifier::miles, "mi", "1609.344"},
    {UnitIdentifier::scandinavianMiles, "smi", "10000.0"},
    {UnitIdentifier::lightyears, "ly", "9460730472580800"},
    {UnitIdentifier::nauticalMiles, "NM", "1852.0"},
    {UnitIdentifier::fathoms, "ftm", "1.8288"},
    {UnitIdentifier::furlongs, "fur", "201.168"},
    {UnitIdentifier::astronomicalUnits, "ua", "149597870700"},
    {UnitIdentifier::parsecs, "pc", "30856775814913673"},
    {UnitIdentifier::pixel, "px", times(kPoint, "0.75")},
    {UnitIdentifier::em, "em", times(kPoint, "12")},
    {UnitIdentifier::rem, "rem", times(kPoint, "12")},
    {UnitIdentifier::point, "pt", kPoint},
});
static_assert(rowsAreSound(kLengthUnits));

}  // namespace tavrine::units
