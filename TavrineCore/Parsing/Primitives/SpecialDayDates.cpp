#include "TavrineCore/Parsing/Primitives/SpecialDayDates.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <mutex>
#include <unordered_map>

#include "Foundation/Hashing.h"
#include "Foundation/TimeZone.h"

namespace tavrine {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

// Feasts that follow the moon are looked up in calendars that know the sky of some thousand years.
constexpr std::int64_t kFirstLunarYear = 1;
constexpr std::int64_t kLastLunarYear = 3000;
// The years that the calendar types of the standard library say, less one at the end to look beyond.
constexpr std::int64_t kFirstYear = 1;
constexpr std::int64_t kLastYear = 32766;

year_month_day dayOf(int year, unsigned month, unsigned day) {
  return {std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
}

/// The rule for the Gregorian calendar of Meeus, Jones and Butcher, in whole numbers.
year_month_day easterDay(int year) {
  const int a = year % 19;
  const int b = year / 100;
  const int c = year % 100;
  const int d = b / 4;
  const int e = b % 4;
  const int g = (8 * b + 13) / 25;
  const int h = (19 * a + b - d - g + 15) % 30;
  const int i = c / 4;
  const int k = c % 4;
  const int l = (32 + 2 * e + 2 * i - h - k) % 7;
  const int m = (a + 11 * h + 19 * l) / 433;
  const int month = (h + l - 7 * m + 90) / 25;
  const int day = (h + l - 7 * m + 33 * month + 19) % 32;
  return dayOf(year, static_cast<unsigned>(month), static_cast<unsigned>(day));
}

/// The fourth Thursday of November.
year_month_day thanksgivingDay(int year) {
  return sys_days(std::chrono::year(year) / std::chrono::November / std::chrono::Thursday[4]);
}

Date noonOf(sys_days day) {
  constexpr double kSecondsPerDay = 86400;
  return Date((static_cast<double>(day.time_since_epoch().count()) + 0.5) * kSecondsPerDay);
}

/// The first Gregorian day of the year that begins the month of the other calendar. Months of the moon have 29 days, or
/// 28 where a table corrects them, so that many can be stepped over at once.
std::optional<sys_days> firstBeginningOf(std::int64_t month, int year, Calendar::Identifier identifier) {
  constexpr std::int64_t kShortestMonth = 28;
  const Calendar calendar(identifier, Locale("en_US"), TimeZone::gmt());
  const sys_days end = dayOf(year + 1, 1, 1);
  for (sys_days day = dayOf(year, 1, 1); day < end;) {
    const Date noon = noonOf(day);
    const std::int64_t dayOfMonth = calendar.component(Calendar::Component::day, noon);
    if (dayOfMonth == 1 && calendar.component(Calendar::Component::month, noon) == month) return day;
    day += days(std::max<std::int64_t>(1, kShortestMonth + 1 - dayOfMonth));
  }
  return std::nullopt;
}

std::optional<year_month_day> lookUpLunarDay(SpecialDay::SpecialDayType type, int year) {
  constexpr std::int64_t kRamadan = 9;
  constexpr std::int64_t kShawwal = 10;
  std::optional<sys_days> found;
  if (type == SpecialDay::SpecialDayType::chineseNewYear) {
    found = firstBeginningOf(1, year, Calendar::Identifier::chinese);
  } else {
    const bool isEnd = type == SpecialDay::SpecialDayType::ramadanEnd;
    found = firstBeginningOf(isEnd ? kShawwal : kRamadan, year, Calendar::Identifier::islamicUmmAlQura);
    if (found) *found -= days(1);
  }
  if (!found) return std::nullopt;
  return year_month_day(*found);
}

/// Remembers the days that took a look at the moon, since a sheet names the same few on many lines.
class LunarDays {
 public:
  std::optional<year_month_day> day(SpecialDay::SpecialDayType type, int year) {
    const std::size_t key = hashOf(static_cast<int>(type)) ^ static_cast<std::size_t>(year);
    const Key wanted{type, year};
    {
      const std::lock_guard lock(mutex_);
      const auto known = days_.find(key);
      if (known != days_.end() && known->second.key == wanted) return known->second.day;
    }
    const std::optional<year_month_day> day = lookUpLunarDay(type, year);
    const std::lock_guard lock(mutex_);
    if (days_.size() >= kMaximumCount) days_.clear();
    days_.insert_or_assign(key, Entry{wanted, day});
    return day;
  }

 private:
  static constexpr std::size_t kMaximumCount = 256;
  struct Key {
    SpecialDay::SpecialDayType type;
    int year;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Entry {
    Key key;
    std::optional<year_month_day> day;
  };

  std::mutex mutex_;
  std::unordered_map<std::size_t, Entry> days_;
};

std::optional<year_month_day> lunarDay(SpecialDay::SpecialDayType type, int year) {
  static LunarDays known;
  if (year < kFirstLunarYear || year > kLastLunarYear) return std::nullopt;
  return known.day(type, year);
}

std::optional<year_month_day> dayOfYear(SpecialDay::SpecialDayType type, int year) {
  using enum SpecialDay::SpecialDayType;
  switch (type) {
    case christmasEve:
      return dayOf(year, 12, 24);
    case christmasDay:
      return dayOf(year, 12, 25);
    case boxingDay:
      return dayOf(year, 12, 26);
    case newYearsEve:
      return dayOf(year, 12, 31);
    case newYearsDay:
      return dayOf(year, 1, 1);
    case valentinesDay:
      return dayOf(year, 2, 14);
    case halloween:
      return dayOf(year, 10, 31);
    case easterSunday:
      return easterDay(year);
    case goodFriday:
      return year_month_day(sys_days(easterDay(year)) - days(2));
    case thanksgiving:
      return thanksgivingDay(year);
    case blackFriday:
      return year_month_day(sys_days(thanksgivingDay(year)) + days(1));
    case chineseNewYear:
    case ramadanStart:
    case ramadanEnd:
      return lunarDay(type, year);
  }
  return std::nullopt;
}

}  // namespace

std::optional<DateComponents> dateComponentsOf(SpecialDay::SpecialDayType type, std::int64_t year) {
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  const std::optional<year_month_day> day = dayOfYear(type, static_cast<int>(year));
  if (!day) return std::nullopt;
  DateComponents components;
  components.year = static_cast<int>(day->year());
  components.month = static_cast<unsigned>(day->month());
  components.day = static_cast<unsigned>(day->day());
  return components;
}

std::optional<Date> dateOf(SpecialDay::SpecialDayType type, std::int64_t year, const Calendar& calendar) {
  const std::optional<DateComponents> components = dateComponentsOf(type, year);
  return components ? calendar.dateFrom(*components) : std::nullopt;
}

}  // namespace tavrine
