#include "Foundation/ISO8601DateFormatter.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Foundation/CivilDay.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

void appendPadded(std::int64_t number, std::size_t digits, std::string_view separator, std::string& text) {
  if (number < 0) text += '-';
  const std::string shown = std::to_string(std::abs(number));
  if (shown.size() < digits) text.append(digits - shown.size(), '0');
  text.append(shown).append(separator);
}

}  // namespace

std::string ISO8601DateFormatter::string(Date date) const {
  const WallTime wall = wallTimeOf(momentOf(date).seconds, timeZone_);
  const CivilDay day = civilDayOf(wall.dayNumber);
  std::string text;
  appendPadded(day.year, 4, "-", text);
  appendPadded(day.month, 2, "-", text);
  appendPadded(day.day, 2, "T", text);
  appendPadded(wall.secondOfDay / 3600, 2, ":", text);
  appendPadded(wall.secondOfDay / 60 % 60, 2, ":", text);
  appendPadded(wall.secondOfDay % 60, 2, "", text);
  // Before standard time clocks were seconds off a whole minute, which the format has no place for.
  const std::int32_t minutesFromGMT = timeZone_.secondsFromGMT(date) / 60;
  if (minutesFromGMT == 0) return text.append("Z");
  text += minutesFromGMT < 0 ? '-' : '+';
  appendPadded(std::abs(minutesFromGMT) / 60, 2, ":", text);
  appendPadded(std::abs(minutesFromGMT) % 60, 2, "", text);
  return text;
}

}  // namespace tavrine::foundation
