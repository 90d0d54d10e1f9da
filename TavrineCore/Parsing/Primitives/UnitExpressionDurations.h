#pragma once

#include <optional>

#include "Foundation/DateComponents.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

// Durations as quantities ("90 min"), as calendar components (1 hour, 30 minutes), and from the one to the other.

/// The components that a quantity of time makes: 90 minutes are 1 hour and 30 minutes where both are preferred. With
/// `useSingleComponentIfPossible` a whole value in a unit of the calendar stays as it is: 90 minutes, 1 month. Nothing
/// is set for a quantity of another kind, or one too long for the calendar. Fractions are exact to a microsecond.
DateComponents dateComponentsIn(const UnitExpression& expression, bool useSingleComponentIfPossible,
                                const CalendarComponentSet& prefer);

/// A quantity of time as a duration; absent for other kinds and what is too long for the calendar.
std::optional<Timespan> timespanOf(const UnitExpression& expression);
std::optional<Laptime> laptimeOf(const UnitExpression& expression);

/// Whole seconds as they are, a fraction as nanoseconds.
DateComponents dateComponentsFrom(std::optional<std::int64_t> hour, std::optional<std::int64_t> minute,
                                  const std::optional<Decimal>& seconds);

/// Seconds and nanoseconds together; absent without seconds.
std::optional<Decimal> secondsWithNanoseconds(const DateComponents& components);

/// The length in seconds, of average years; months aren't counted.
Decimal decimalTimeInterval(const DateComponents& components);

/// Whether a time of day is told. The zeros of a measured duration, which has a year of 0, tell none.
bool haveTimeComponent(const DateComponents& components);

/// How a date with these components was written.
DatestampType datestampTypeOf(const DateComponents& components);

/// Whether more than one component is there, be it 0.
bool hasMultipleComponents(const Timespan& timespan);
/// The components that are there.
CalendarComponentSet presentComponents(const Timespan& timespan);
/// The count of workdays, if the duration is one. A measured duration has no weekdays, which isn't one.
std::optional<std::int64_t> workdaysOf(const Timespan& timespan);
/// How a date that the duration led to is shown: by the smallest component that isn't 0.
DatestampType appropriateDatestampType(const Timespan& timespan);
/// The duration as one quantity: in seconds where it was measured over months or years, otherwise in the largest unit
/// that it has; in hours if it has hours, else in days if it has days.
UnitExpression unitExpressionValue(const Timespan& timespan);

}  // namespace tavrine
