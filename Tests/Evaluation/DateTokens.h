#pragma once

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine::testing {

/// The evaluated token of a text, what a parser would leave of it:
///   "date 2024-03-05 dayMonthYear", "date 2026-06-10T14:00 clockTime Asia/Tokyo" (an explicit zone),
///   "iso 2024-03-05T14:30", "dates 2024-04-01 2024-06-30", "between 2024-03-05 2024-04-01" (a measured duration),
///   "span 1y 2mo 3w 4d 5wd 6h 7m 8s", "lap 1:30:00", "lap 20:15.5", "code 1:30:15:10", "code 1:30:15:10@30",
///   "stamp 1700000000"; anything else as `valueToken` reads it.
Token timeToken(std::string_view text);

/// The other way. Of durations the parts that aren't 0 are told ("span 3h 20m", "span" if none), of dates the zone
/// where it is an explicit one.
std::string describeTime(const Token& token);

}  // namespace tavrine::testing
