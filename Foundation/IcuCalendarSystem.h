#pragma once

#include "Foundation/Calendar.h"
#include "Foundation/CalendarSystem.h"

namespace tavrine::foundation {

/// The calendars whose months follow the moon or tables, by way of ICU.
[[nodiscard]] const CalendarSystem& icuCalendarSystemOf(Calendar::Identifier identifier);

}  // namespace tavrine::foundation
