#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Illuminance in lux, screen density in pixels per inch.
namespace tavrine::units {

inline constexpr auto kIlluminanceUnits = std::to_array<UnitRow>({
    {UnitIdentifier::lux, "lx", "1.0"},
});
static_assert(rowsAreSound(kIlluminanceUnits));

inline constexpr auto kScreenDensityUnits = std::to_array<UnitRow>({
    {UnitIdentifier::ppi, "PPI", "1.0"},
});
static_assert(rowsAreSound(kScreenDensityUnits));

}  // namespace tavrine::units
