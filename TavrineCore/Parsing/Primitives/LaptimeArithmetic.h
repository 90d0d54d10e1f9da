#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "Foundation/DateComponents.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"

namespace tavrine {

/// A reading of these components; 75 minutes become 1 hour and 15 minutes. Absent seconds become 0.
Laptime laptimeFrom(DateComponents components);
DateComponents dateComponentsOf(const Laptime& laptime);
/// Hours, minutes and seconds in seconds.
Decimal totalSecondsOf(const Laptime& laptime);
bool isNegative(const Laptime& laptime);

Laptime operator+(const Laptime& left, const Laptime& right);
Laptime operator-(const Laptime& left, const Laptime& right);
Laptime operator*(const Laptime& laptime, const Decimal& factor);
Laptime operator/(const Laptime& laptime, const Decimal& divisor);
Decimal operator/(const Laptime& left, const Laptime& right);

/// The reading as a time code; the fraction of its seconds becomes frames.
Frametime frametimeValueAt(const Decimal& fps, const Laptime& laptime);

/// The time code of so many frames; below 1 frame it is 00:00:00:00.
Frametime frametimeFrom(const Decimal& totalFrames, const Decimal& fps);
Decimal totalFramesOf(const Frametime& frametime);
Decimal totalSecondsOf(const Frametime& frametime);
/// The rate that the time codes are calculated in: the first one that isn't the default.
Decimal fpsFor(const std::vector<Frametime>& frameTimes);
/// Each at that rate.
std::vector<Frametime> standardizedByFPS(const std::vector<Frametime>& frameTimes);

Frametime operator+(const Frametime& left, const Frametime& right);
Frametime operator-(const Frametime& left, const Frametime& right);
Frametime operator*(const Frametime& frametime, const Decimal& factor);
Frametime operator/(const Frametime& frametime, const Decimal& divisor);
Decimal operator/(const Frametime& left, const Frametime& right);

}  // namespace tavrine
