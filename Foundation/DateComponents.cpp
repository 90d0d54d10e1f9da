#include "Foundation/DateComponents.h"

#include "Foundation/Hashing.h"

std::size_t std::hash<tavrine::foundation::DateComponents>::operator()(
    const tavrine::foundation::DateComponents& components) const noexcept {
  return tavrine::foundation::hashOf(components.era, components.year, components.month, components.day, components.hour,
                                     components.minute, components.second, components.nanosecond, components.weekday,
                                     components.weekdayOrdinal, components.quarter, components.weekOfMonth,
                                     components.weekOfYear, components.yearForWeekOfYear);
}

std::size_t std::hash<tavrine::foundation::DateInterval>::operator()(
    const tavrine::foundation::DateInterval& interval) const noexcept {
  return tavrine::foundation::hashOf(interval.start(), interval.end());
}
