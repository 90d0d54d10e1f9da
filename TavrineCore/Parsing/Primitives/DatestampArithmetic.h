#pragma once

#include <optional>
#include <variant>

#include "Foundation/Calendar.h"
#include "Foundation/Date.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

/// The moment so many seconds from 1970 on, on the clocks of here; absent beyond the calendar.
std::optional<Datestamp> datestampOfUnixTime(const Decimal& seconds);

/// The time of day as a duration; absent where the date wasn't written with one.
std::optional<Timespan> timespanOf(const Datestamp& datestamp);

/// The two times of day added, each as what has passed of its day.
Timespan operator+(const Datestamp& left, const Datestamp& right);

/// What lies between two dates: how far two zones are apart, in hours, for two clock times in different zones; nothing
/// in the right one's unit where they are equal; otherwise the duration from the earlier to the later one.
using DatestampDifference = std::variant<UnitExpression, Timespan>;
DatestampDifference operator-(const Datestamp& left, const Datestamp& right);

DateInterval dateIntervalValue(const Datespan& datespan);
/// The duration of the span. Absent where the end lies before the start, which is told on the standard output.
std::optional<Timespan> timespanIn(const Calendar& calendar, const Datespan& datespan);
/// The quarter of a year by its index, 0 to 3, from its first day to its last one.
std::optional<Datespan> datespanFor(const Calendar& calendar, std::int64_t quarterIndex, std::int64_t year);

// Dates beside others, in the calendar of the environment unless one is named.

/// Today, yesterday or tomorrow.
bool isWithinADayOfNow(Date date);
Date startOfFollowingYear(Date date);
Date startOfMonth(Date date);
/// The last second.
Date endOfMonth(Date date);
Date endOfDay(Date date);
bool isInTodayIn(const TimeZone& timezone, Date date);
/// The day of the one date with the time of day of the other.
std::optional<Date> sameTimeAs(Date other, Date date);

}  // namespace tavrine
