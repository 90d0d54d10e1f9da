#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/Date.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

// Workdays are the days that are neither in a weekend of the calendar's region nor a holiday. Walks end after a
// thousand years.

[[nodiscard]] bool isWorkday(const CalendarEnvironment& environment, Date date);

/// Steps forward and counts the workdays that it reaches: 2 from a Friday is the Tuesday.
[[nodiscard]] Date dateByAddingWorkdays(const CalendarEnvironment& environment, std::int64_t workdays, Date to);
/// Counts the given day first, if it is a workday, and ends on the day before the last one counted.
[[nodiscard]] Date dateBySubtractingWorkdays(const CalendarEnvironment& environment, std::int64_t workdays, Date from);
/// The workdays from the one date on, without the day of the other.
[[nodiscard]] std::int64_t workdaysBetween(const CalendarEnvironment& environment, Date fromDate, Date toDate);

/// The components with their signs turned; absent where one can't be.
[[nodiscard]] std::optional<DateComponents> negated(const DateComponents& components);
/// Goes back by the components, or by workdays where they count those. What wouldn't lead back stays where it is;
/// absent beyond the limits of the calendar.
[[nodiscard]] std::optional<Date> dateSubtracting(const CalendarEnvironment& environment,
                                                  const DateComponents& components, Date from);

/// What lies between two dates in a unit of the calendar; absent in other units.
[[nodiscard]] std::optional<UnitExpression> calculateInterval(const CalendarEnvironment& environment, Date from,
                                                              Date to, const TCUnit& inTermsOf, bool roundToWholeUnit);

// A day of the week, Sunday being 1, in the week of now, the one before it and the one behind it.

[[nodiscard]] std::optional<Date> dayThisWeek(const Calendar& calendar, int dayIndex);
[[nodiscard]] std::optional<Date> dayLastWeek(const Calendar& calendar, int dayIndex);
[[nodiscard]] std::optional<Date> dayNextWeek(const Calendar& calendar, int dayIndex);

}  // namespace tavrine
