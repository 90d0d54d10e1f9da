#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

/// How a date was written. It says which parts of the date are meant, and so drives its formatting and arithmetic.
/// Also known as `Datestamp::DatestampType`.
enum class DatestampType : std::uint8_t {
#define DATESTAMP_TYPE(name, ...) name,
#include "TavrineCore/Parsing/Primitives/DatestampType.def"
};

inline constexpr std::size_t kDatestampTypeCount = static_cast<std::size_t>(DatestampType::unspecified) + 1;
static_assert(kDatestampTypeCount == 33);

using DatestampTypeSet = EnumSet<DatestampType, kDatestampTypeCount>;

/// "now" to "this month": moments that move with the clock.
inline constexpr DatestampTypeSet relativeTimeTypes =
    DatestampTypeSet::fromTo(DatestampType::now, DatestampType::thisMonth);
static_assert(relativeTimeTypes.size() == 13);

std::string_view toString(DatestampType type);

/// The components that the text told: day and month for "5 March".
const CalendarComponentSet& calendarComponentsRepresentedBy(DatestampType type);

/// The unit in which two such dates that are equal differ by 0.
UnitIdentifier largestUnitOf(DatestampType type);

/// Whether the type tells day and month, with or without year, weekday or a time.
constexpr bool isDayMonthYear(DatestampType type) {
  constexpr DatestampTypeSet kTypes = {
      DatestampType::dayAndMonth,
      DatestampType::dayMonthYearAndWeekday,
      DatestampType::dayMonthYear,
      DatestampType::dayMonthYearWithClockTimeDownToMinutes,
      DatestampType::dayMonthYearWithClockTimeDownToSeconds,
      DatestampType::dayMonthYearWithClockTimeDownToSubSeconds,
  };
  return kTypes.contains(type);
}

}  // namespace tavrine
