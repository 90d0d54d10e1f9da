#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Rates of data in bytes per second; as many as there are amounts of data, nibbles left out.
namespace tavrine::units {

inline constexpr auto kDataTransferUnits = std::to_array<UnitRow>({
    {UnitIdentifier::bytesPerSecond, "Bps", "1.0"},
    {UnitIdentifier::bitsPerSecond, "bps", "0.125"},
    {UnitIdentifier::kilobytesPerSecond, "KBps", "1e3"},
    {UnitIdentifier::megabytesPerSecond, "MBps", "1e6"},
    {UnitIdentifier::gigabytesPerSecond, "GBps", "1e9"},
    {UnitIdentifier::terabytesPerSecond, "TBps", "1e12"},
    {UnitIdentifier::petabytesPerSecond, "PBps", "1e15"},
    {UnitIdentifier::exabytesPerSecond, "EBps", "1e18"},
    {UnitIdentifier::zettabytesPerSecond, "ZBps", "1e21"},
    {UnitIdentifier::yottabytesPerSecond, "YBps", "1e24"},
    {UnitIdentifier::kilobitsPerSecond, "Kbps", over("1e3", "8")},
    {UnitIdentifier::megabitsPerSecond, "Mbps", over("1e6", "8")},
    {UnitIdentifier::gigabitsPerSecond, "Gbps", over("1e9", "8")},
    {UnitIdentifier::terabitsPerSecond, "Tbps", over("1e12", "8")},
    {UnitIdentifier::petabitsPerSecond, "Pbps", over("1e15", "8")},
    {UnitIdentifier::exabitsPerSecond, "Ebps", over("1e18", "8")},
    {UnitIdentifier::zettabitsPerSecond, "Zbps", over("1e21", "8")},
    {UnitIdentifier::yottabitsPerSecond, "Ybps", over("1e24", "8")},
    {UnitIdentifier::kibibytesPerSecond, "KiBps", twoTo(10)},
    {UnitIdentifier::mebibytesPerSecond, "MiBps", twoTo(20)},
    {UnitIdentifier::gibibytesPerSecond, "GiBps", twoTo(30)},
    {UnitIdentifier::tebibytesPerSecond, "TiBps", twoTo(40)},
    {UnitIdentifier::pebibytesPerSecond, "PiBps", twoTo(50)},
    {UnitIdentifier::exbibytesPerSecond, "EiBps", twoTo(60)},
    {UnitIdentifier::zebibytesPerSecond, "ZiBps", twoTo(70)},
    {UnitIdentifier::yobibytesPerSecond, "YiBps", twoTo(80)},
    {UnitIdentifier::kibibitsPerSecond, "Kibps", over(twoTo(10), "8")},
    {UnitIdentifier::mebibitsPerSecond, "Mibps", over(twoTo(20), "8")},
    {UnitIdentifier::gibibitsPerSecond, "Gibps", over(twoTo(30), "8")},
    {UnitIdentifier::tebibitsPerSecond, "Tibps", over(twoTo(40), "8")},
    {UnitIdentifier::pebibitsPerSecond, "Pibps", over(twoTo(50), "8")},
    {UnitIdentifier::exbibitsPerSecond, "Eibps", over(twoTo(60), "8")},
    {UnitIdentifier::zebibitsPerSecond, "Zibps", over(twoTo(70), "8")},
    {UnitIdentifier::yobibitsPerSecond, "Yibps", over(twoTo(80), "8")},
});
static_assert(rowsAreSound(kDataTransferUnits));

}  // namespace tavrine::units
