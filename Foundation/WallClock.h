#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/CivilDay.h"
#include "Foundation/Date.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// The limits of calendar arithmetic: as far as dates can be written out, and far from where numbers would wrap.
inline constexpr std::int64_t kFirstYear = -5'000'000;
inline constexpr std::int64_t kLastYear = 5'000'000;
inline constexpr std::int64_t kFirstDay = dayNumberOf({kFirstYear, 1, 1});
inline constexpr std::int64_t kLastDay = dayNumberOf({kLastYear, 12, 31});

inline constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

/// A moment in whole numbers.
struct Moment {
  /// Since 1970-01-01 00:00 UTC.
  std::int64_t seconds = 0;
  /// 0 to 999,999,999.
  std::int32_t nanoseconds = 0;

  friend constexpr auto operator<=>(const Moment&, const Moment&) noexcept = default;
};

/// Held to the limits. The fraction is rounded to what the number of seconds leaves room for, so that a tenth of a
/// second is 100,000,000 nanoseconds and not 99,999,905.
[[nodiscard]] Moment momentOf(Date date);
[[nodiscard]] Date dateOf(Moment moment);
/// Whether the second lies within the limits.
[[nodiscard]] constexpr bool isWithinLimits(std::int64_t seconds) noexcept {
  return seconds >= kFirstDay * kSecondsPerDay && seconds < (kLastDay + 1) * kSecondsPerDay;
}

/// What the clocks and the calendar on the wall show.
struct WallTime {
  std::int64_t dayNumber = 0;
  /// 0 to 86,399.
  std::int64_t secondOfDay = 0;

  [[nodiscard]] constexpr std::int64_t seconds() const noexcept { return dayNumber * kSecondsPerDay + secondOfDay; }
};

[[nodiscard]] WallTime wallTimeOf(std::int64_t seconds, const TimeZone& zone);

/// The moments, in seconds since 1970, at which the clocks show a time.
struct WallTimeMoments {
  /// The first one. Of a time that is skipped, as far behind the gap as it lies in it.
  std::int64_t first = 0;
  /// Differs from `first` for a time that comes twice.
  std::int64_t last = 0;
  /// When the clocks are set forward, if the time is skipped.
  std::optional<std::int64_t> skippedAt;
  /// How much is skipped there.
  std::int64_t skippedSeconds = 0;
};

/// `wallSeconds` are counted from 1970-01-01 00:00 on the clocks of the zone.
[[nodiscard]] WallTimeMoments momentsOf(std::int64_t wallSeconds, const TimeZone& zone);

/// The first moment of a day; where its midnight is skipped, the moment when the clocks are set forward.
[[nodiscard]] std::int64_t startOfDayNumber(std::int64_t dayNumber, const TimeZone& zone);

}  // namespace tavrine::foundation
