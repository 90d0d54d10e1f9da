#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/Calendar.h"
#include "Foundation/Date.h"
#include "Foundation/DateComponents.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"

namespace tavrine {

/// The day, month and year on which a special day falls in a Gregorian year. Absent for one that doesn't fall into the
/// year. Ramadan is told by the evening on which it begins and the last day on which people fast.
[[nodiscard]] std::optional<DateComponents> dateComponentsOf(SpecialDay::SpecialDayType type, std::int64_t year);

/// The start of that day on the calendar.
[[nodiscard]] std::optional<Date> dateOf(SpecialDay::SpecialDayType type, std::int64_t year, const Calendar& calendar);

}  // namespace tavrine
