#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Masses in kilograms.
namespace tavrine::units {

inline constexpr auto kMassUnits = std::to_array<UnitRow>({
    {UnitIdentifier::kilograms, "kg", "1.0"},
    {UnitIdentifier::grams, "g", "1e-3"},
    {UnitIdentifier::decigrams, "dg", "1e-4"},
    {UnitIdentifier::centigrams, "cg", "1e-5"},
    {UnitIdentifier::milligrams, "mg", "1e-6"},
    {UnitIdentifier::micrograms, "µg", "1e-9"},
    {UnitIdentifier::nanograms, "ng", "1e-12"},
    {UnitIdentifier::picograms, "pg", "1e-15"},
    {UnitIdentifier::ounces, "oz", "0.028349523125"},
    {UnitIdentifier::pounds, "lb", "0.45359237"},
    {UnitIdentifier::stones, "st", "6.35029318"},
    {UnitIdentifier::metricTons, "t", "1000.0"},
    {UnitIdentifier::shortTons, "ton", "907.1849"},
    {UnitIdentifier::carats, "ct", "0.0002"},
    {UnitIdentifier::ouncesTroy, "oz t", "0.03110348"},
    {UnitIdentifier::slugs, "slug", "14.5939"},
});
static_assert(rowsAreSound(kMassUnits));

}  // namespace tavrine::units
