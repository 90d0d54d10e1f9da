#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Amounts of data in bytes: decimal multiples by thousands, binary ones by 1024.
namespace tavrine::units {

inline constexpr auto kDataStorageUnits = std::to_array<UnitRow>({
    {UnitIdentifier::bytes, "B", "1.0"},
    {UnitIdentifier::bits, "bit", "0.125"},
    {UnitIdentifier::nibbles, "nibble", "0.5"},
    {UnitIdentifier::kilobytes, "kB", "1e3"},
    {UnitIdentifier::megabytes, "MB", "1e6"},
    {UnitIdentifier::gigabytes, "GB", "1e9"},
    {UnitIdentifier::terabytes, "TB", "1e12"},
    {UnitIdentifier::petabytes, "PB", "1e15"},
    {UnitIdentifier::exabytes, "EB", "1e18"},
    {UnitIdentifier::zettabytes, "ZB", "1e21"},
    {UnitIdentifier::yottabytes, "YB", "1e24"},
    {UnitIdentifier::kilobits, "kbit", over("1e3", "8")},
    {UnitIdentifier::megabits, "Mbit", over("1e6", "8")},
    {UnitIdentifier::gigabits, "Gbit", over("1e9", "8")},
    {UnitIdentifier::terabits, "Tbit", over("1e12", "8")},
    {UnitIdentifier::petabits, "Pbit", over("1e15", "8")},
    {UnitIdentifier::exabits, "Ebit", over("1e18", "8")},
    {UnitIdentifier::zettabits, "Zbit", over("1e21", "8")},
    {UnitIdentifier::yottabits, "Ybit", over("1e24", "8")},
    {UnitIdentifier::kibibytes, "KiB", twoTo(10)},
    {UnitIdentifier::mebibytes, "MiB", twoTo(20)},
    {UnitIdentifier::gibibytes, "GiB", twoTo(30)},
    {UnitIdentifier::tebibytes, "TiB", twoTo(40)},
    {UnitIdentifier::pebibytes, "PiB", twoTo(50)},
    {UnitIdentifier::exbibytes, "EiB", twoTo(60)},
    {UnitIdentifier::zebibytes, "ZiB", twoTo(70)},
    {UnitIdentifier::yobibytes, "YiB", twoTo(80)},
    {UnitIdentifier::kibibits, "Kib", over(twoTo(10), "8")},
    {UnitIdentifier::mebibits, "Mib", over(twoTo(20), "8")},
    {UnitIdentifier::gibibits, "Gib", over(twoTo(30), "8")},
    {UnitIdentifier::tebibits, "Tib", over(twoTo(40), "8")},
    {UnitIdentifier::pebibits, "Pib", over(twoTo(50), "8")},
    {UnitIdentifier::exbibits, "Eib", over(twoTo(60), "8")},
    {UnitIdentifier::zebibits, "Zib", over(twoTo(70), "8")},
    {UnitIdentifier::yobibits, "Yib", over(twoTo(80), "8")},
});
static_assert(rowsAreSound(kDataStorageUnits));

}  // namespace tavrine::units
