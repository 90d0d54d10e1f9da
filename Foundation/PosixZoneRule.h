#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// The rule by which a zone goes on for ever, as the last line of a zone file holds it: "EST5EDT,M3.2.0,M11.1.0".
class PosixZoneRule {
 public:
  /// Absent where the text isn't such a rule.
  [[nodiscard]] static std::optional<PosixZoneRule> parse(std::string_view text);

  /// The period that holds a moment, given in seconds since 1970.
  [[nodiscard]] ZonePeriod periodAt(std::int64_t secondsSince1970) const;

 private:
  /// A day of every year with a time on the clocks as they stand before the change.
  struct Change {
    enum class Kind : std::uint8_t {
      weekdayOfMonth,          ///< "M3.2.0": the second Sunday of March
      dayOfYear,               ///< "59": counted from 0, 29 February included
      dayOfYearWithoutLeapDay  ///< "J60": counted from 1, never 29 February
    };
    Kind kind = Kind::weekdayOfMonth;
    int month = 1;
    int week = 1;
    /// The weekday from Sunday, which is 0; or the day of the year.
    int day = 0;
    /// Seconds from the start of the day, which may lie outside of it.
    std::int32_t time = 0;

    /// In seconds since 1970 on those clocks.
    [[nodiscard]] std::int64_t wallTimeIn(std::int64_t year) const;
  };
  /// What the clocks show between two changes.
  struct Clocks {
    std::string name;
    std::int32_t secondsFromGMT = 0;
  };
  class Reader;

  Clocks standard_;
  Clocks daylight_;
  /// To daylight saving time and back; absent in a zone without it.
  std::optional<std::array<Change, 2>> changes_;
};

}  // namespace tavrine::foundation
