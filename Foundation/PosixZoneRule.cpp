#include "Foundation/PosixZoneRule.h"

#include <limits>

#include "Foundation/CivilDay.h"

namespace tavrine::foundation {

/// Reads the parts of a rule from left to right. Every part that isn't there is absent.
class PosixZoneRule::Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool atEnd() const { return rest_.empty(); }

  bool skip(char expected) {
    if (rest_.empty() || rest_.front() != expected) return false;
    rest_.remove_prefix(1);
    return true;
  }

  /// "EST", or "<-03>" where it holds more than letters.
  std::optional<std::string> name() {
    if (skip('<')) {
      const std::size_t end = rest_.find('>');
      if (end == std::string_view::npos) return std::nullopt;
      std::string result(rest_.substr(0, end));
      rest_.remove_prefix(end + 1);
      return result;
    }
    std::size_t length = 0;
    while (length < rest_.size() && isLetter(rest_[length])) ++length;
    if (length < 3) return std::nullopt;
    std::string result(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return result;
  }

  /// "5", "-3:30", "+167:59:59", in seconds.
  std::optional<std::int32_t> time() {
    const bool isNegative = skip('-');
    if (!isNegative) skip('+');
    const auto hours = number(167);
    if (!hours) return std::nullopt;
    std::int32_t seconds = *hours * 3600;
    for (const std::int32_t unit : {60, 1}) {
      if (!skip(':')) break;
      const auto value = number(59);
      if (!value) return std::nullopt;
      seconds += *value * unit;
    }
    return isNegative ? -seconds : seconds;
  }

  std::optional<Change> change() {
    Change result;
    if (skip('M')) {
      const auto month = number(12);
      if (!month || *month < 1 || !skip('.')) return std::nullopt;
      const auto week = number(5);
      if (!week || *week < 1 || !skip('.')) return std::nullopt;
      const auto day = number(6);
      if (!day) return std::nullopt;
      result = {Change::Kind::weekdayOfMonth, *month, *week, *day, 0};
    } else {
      const bool withoutLeapDay = skip('J');
      const auto day = number(365);
      if (!day || (withoutLeapDay && *day < 1)) return std::nullopt;
      result.kind = withoutLeapDay ? Change::Kind::dayOfYearWithoutLeapDay : Change::Kind::dayOfYear;
      result.day = *day;
    }
    result.time = 2 * 3600;
    if (skip('/')) {
      const auto given = time();
      if (!given) return std::nullopt;
      result.time = *given;
    }
    return result;
  }

 private:
  static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

  std::optional<std::int32_t> number(std::int32_t largest) {
    std::int32_t value = 0;
    std::size_t length = 0;
    for (; length < rest_.size() && rest_[length] >= '0' && rest_[length] <= '9'; ++length) {
      value = value * 10 + (rest_[length] - '0');
      if (value > largest) return std::nullopt;
    }
    if (length == 0) return std::nullopt;
    rest_.remove_prefix(length);
    return value;
  }

  std::string_view rest_;
};

std::optional<PosixZoneRule> PosixZoneRule::parse(std::string_view text) {
  Reader reader(text);
  PosixZoneRule rule;

  // Offsets in such a rule count westwards.
  auto name = reader.name();
  const auto offset = name ? reader.time() : std::nullopt;
  if (!offset) return std::nullopt;
  rule.standard_ = {std::move(*name), -*offset};
  if (reader.atEnd()) return rule;

  name = reader.name();
  if (!name) return std::nullopt;
  rule.daylight_ = {std::move(*name), rule.standard_.secondsFromGMT + 3600};
  if (!reader.atEnd() && !reader.skip(',')) {
    const auto daylightOffset = reader.time();
    if (!daylightOffset || !reader.skip(',')) return std::nullopt;
    rule.daylight_.secondsFromGMT = -*daylightOffset;
  }
  const auto start = reader.change();
  if (!start || !reader.skip(',')) return std::nullopt;
  const auto end = reader.change();
  if (!end || !reader.atEnd()) return std::nullopt;
  rule.changes_ = {*start, *end};
  return rule;
}

std::int64_t PosixZoneRule::Change::wallTimeIn(std::int64_t year) const {
  std::int64_t dayNumber = dayNumberOf({year, 1, 1});
  switch (kind) {
    case Kind::weekdayOfMonth: {
      const std::int64_t first = dayNumberOf({year, month, 1});
      std::int64_t dayOfMonth = floorModulo(day - (weekdayOf(first) - 1), 7) + (week - 1) * 7;
      // The fifth one is the last, whether or not the month has five.
      if (dayOfMonth >= daysInCivilMonth(year, month)) dayOfMonth -= 7;
      dayNumber = first + dayOfMonth;
      break;
    }
    case Kind::dayOfYear:
      dayNumber += day;
      break;
    case Kind::dayOfYearWithoutLeapDay:
      dayNumber += day - 1 + (isLeapYear(year) && day >= 60 ? 1 : 0);
      break;
  }
  return dayNumber * kSecondsPerDay + time;
}

ZonePeriod PosixZoneRule::periodAt(std::int64_t secondsSince1970) const {
  ZonePeriod period{std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                    standard_.secondsFromGMT, false, standard_.name};
  if (!changes_) return period;

  // The changes of the neighbouring years bound the periods around New Year.
  const std::int64_t year = civilDayOf(floorDivide(secondsSince1970, kSecondsPerDay)).year;
  bool isDaylight = false;
  for (std::int64_t y = year - 1; y <= year + 1; ++y) {
    const std::int64_t toDaylight = (*changes_)[0].wallTimeIn(y) - standard_.secondsFromGMT;
    const std::int64_t toStandard = (*changes_)[1].wallTimeIn(y) - daylight_.secondsFromGMT;
    for (const std::int64_t moment : {toDaylight, toStandard}) {
      if (moment <= secondsSince1970 && moment >= period.start) {
        period.start = moment;
        isDaylight = moment == toDaylight;
      } else if (moment > secondsSince1970 && moment < period.end) {
        period.end = moment;
      }
    }
  }
  if (isDaylight) {
    period.secondsFromGMT = daylight_.secondsFromGMT;
    period.isDaylightSavingTime = true;
    period.abbreviation = daylight_.name;
  }
  return period;
}

}  // namespace tavrine::foundation
