#pragma once

#include <array>

#include "Foundation/Calendar.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

using CalendarComponentSet = Calendar::ComponentSet;
static_assert(static_cast<int>(Calendar::Component::timeZone) == 15);

/// The components that the engine calculates with, from the largest to the smallest.
inline constexpr std::array orderedTavrineSupportedComponents = {
    Calendar::Component::year,   Calendar::Component::month,   Calendar::Component::weekOfYear,
    Calendar::Component::day,    Calendar::Component::weekday, Calendar::Component::hour,
    Calendar::Component::minute, Calendar::Component::second,  Calendar::Component::nanosecond,
};

/// The same without an order.
inline constexpr CalendarComponentSet tavrineSupportedComponents = {
    Calendar::Component::year,   Calendar::Component::month,   Calendar::Component::weekOfYear,
    Calendar::Component::day,    Calendar::Component::weekday, Calendar::Component::hour,
    Calendar::Component::minute, Calendar::Component::second,  Calendar::Component::nanosecond,
};

/// What a time of day is made of.
inline constexpr CalendarComponentSet timespanComponents = {Calendar::Component::hour, Calendar::Component::minute,
                                                            Calendar::Component::second};

/// What a number of seconds is split into, by what it is split for.
inline constexpr CalendarComponentSet timespanCalendarComponets = {
    Calendar::Component::weekOfYear, Calendar::Component::day,    Calendar::Component::hour,
    Calendar::Component::minute,     Calendar::Component::second, Calendar::Component::nanosecond};
inline constexpr CalendarComponentSet laptimeCalendarComponets = {
    Calendar::Component::hour, Calendar::Component::minute, Calendar::Component::second,
    Calendar::Component::nanosecond};
inline constexpr CalendarComponentSet frametimeCalendarComponets = {
    Calendar::Component::hour, Calendar::Component::minute, Calendar::Component::second};

}  // namespace tavrine
