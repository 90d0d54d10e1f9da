#pragma once

#include <cstdint>

namespace tavrine::foundation {

// The Gregorian calendar on day numbers, day 0 being 1970-01-01, for every year that 64 bits hold with room to spare.
// `std::chrono::year` ends at 32767 and wraps beyond, so these do the work of its conversions.

/// A day by year, month (from 1) and day (from 1). The year before 1 is 0.
struct CivilDay {
  std::int64_t year = 1970;
  int month = 1;
  int day = 1;

  friend constexpr bool operator==(const CivilDay&, const CivilDay&) noexcept = default;
};

inline constexpr std::int64_t kSecondsPerDay = 86'400;
/// Gregorian dates and weekdays repeat after 400 years.
inline constexpr std::int64_t kDaysPerCycle = 146'097;
inline constexpr std::int64_t kYearsPerCycle = 400;

[[nodiscard]] constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) noexcept {
  return dividend / divisor - (dividend % divisor != 0 && (dividend < 0) != (divisor < 0) ? 1 : 0);
}
[[nodiscard]] constexpr std::int64_t floorModulo(std::int64_t dividend, std::int64_t divisor) noexcept {
  return dividend - floorDivide(dividend, divisor) * divisor;
}

[[nodiscard]] constexpr bool isLeapYear(std::int64_t year) noexcept {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}
[[nodiscard]] constexpr int daysInCivilMonth(std::int64_t year, int month) noexcept {
  if (month == 2) return isLeapYear(year) ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// The number of the first day of a month, from 1 to 12. Years are counted from March, so that the leap day is the last
/// one of its year and the lengths before it follow one line.
[[nodiscard]] constexpr std::int64_t dayNumberOf(const CivilDay& civil) noexcept {
  const std::int64_t year = civil.year - (civil.month <= 2 ? 1 : 0);
  const std::int64_t cycle = floorDivide(year, kYearsPerCycle);
  const std::int64_t yearOfCycle = year - cycle * kYearsPerCycle;
  const std::int64_t dayOfYear = (153 * (civil.month > 2 ? civil.month - 3 : civil.month + 9) + 2) / 5 + civil.day - 1;
  const std::int64_t dayOfCycle = yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
  constexpr std::int64_t daysTo1970 = 719'468;  // from 0000-03-01
  return cycle * kDaysPerCycle + dayOfCycle - daysTo1970;
}

[[nodiscard]] constexpr CivilDay civilDayOf(std::int64_t dayNumber) noexcept {
  const std::int64_t days = dayNumber + 719'468;
  const std::int64_t cycle = floorDivide(days, kDaysPerCycle);
  const std::int64_t dayOfCycle = days - cycle * kDaysPerCycle;
  const std::int64_t yearOfCycle = (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36'524 - dayOfCycle / 146'096) / 365;
  const std::int64_t dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
  const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  const auto day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
  const auto month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
  return {yearOfCycle + cycle * kYearsPerCycle + (month <= 2 ? 1 : 0), month, day};
}

/// Sunday is 1.
[[nodiscard]] constexpr int weekdayOf(std::int64_t dayNumber) noexcept {
  return static_cast<int>(floorModulo(dayNumber + 4, 7)) + 1;
}

static_assert(dayNumberOf({1970, 1, 1}) == 0 && weekdayOf(0) == 5);
static_assert(civilDayOf(dayNumberOf({2024, 2, 29})) == CivilDay{2024, 2, 29});

}  // namespace tavrine::foundation
