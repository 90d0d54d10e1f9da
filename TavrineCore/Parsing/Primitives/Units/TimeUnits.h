#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Durations in seconds, and what is counted per second.
namespace tavrine::units {

inline constexpr auto kDurationUnits = std::to_array<UnitRow>({
    {UnitIdentifier::milliseconds, "ms", "0.001"},
    {UnitIdentifier::microseconds, "µs", "0.000001"},
    {UnitIdentifier::nanoseconds, "ns", "0.000000001"},
    {UnitIdentifier::picoseconds, "picosecond", "1.0e-12"},
    {UnitIdentifier::seconds, "s", "1.0"},
    {UnitIdentifier::minutes, "min", "60.0"},
    {UnitIdentifier::hours, "hr", "3600.0"},
    {UnitIdentifier::days, "day", "86400"},
    {UnitIdentifier::weeks, "week", "604800"},
    // A twelfth of the mean Gregorian year.
    {UnitIdentifier::months, "month", "2629746"},
    {UnitIdentifier::years, "year", "31556952"},
    // A fifth of a week: five workdays make one.
    {UnitIdentifier::weekdays, "workday", "120960"},
    {UnitIdentifier::nights, "night", "86400"},
});
static_assert(rowsAreSound(kDurationUnits));

inline constexpr auto kFrequencyUnits = std::to_array<UnitRow>({
    {UnitIdentifier::terahertz, "THz", "1e12"},
    {UnitIdentifier::gigahertz, "GHz", "1e9"},
    {UnitIdentifier::megahertz, "MHz", "1e6"},
    {UnitIdentifier::kilohertz, "kHz", "1e3"},
    {UnitIdentifier::hertz, "Hz", "1.0"},
    {UnitIdentifier::millihertz, "mHz", "1e-3"},
    {UnitIdentifier::microhertz, "µHz", "1e-6"},
    {UnitIdentifier::nanohertz, "nHz", "1e-9"},
});
static_assert(rowsAreSound(kFrequencyUnits));

inline constexpr auto kPeriodUnits = std::to_array<UnitRow>({
    {UnitIdentifier::cycles, "cycle", "1.0"},
});
static_assert(rowsAreSound(kPeriodUnits));

inline constexpr auto kFramesUnits = std::to_array<UnitRow>({
    {UnitIdentifier::frames, "frames", "1.0"},
});
static_assert(rowsAreSound(kFramesUnits));

inline constexpr auto kFrameRateUnits = std::to_array<UnitRow>({
    {UnitIdentifier::framesPerSecond, "fps", "1.0"},
});
static_assert(rowsAreSound(kFrameRateUnits));

}  // namespace tavrine::units
