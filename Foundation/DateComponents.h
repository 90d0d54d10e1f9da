#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "Foundation/Date.h"

namespace tavrine::foundation {

/// Fields of a date on a calendar, or amounts of them; each may be absent. As dates: months and weekdays count from 1,
/// Sunday being weekday 1.
struct DateComponents {
  std::optional<std::int64_t> era = std::nullopt;
  std::optional<std::int64_t> year = std::nullopt;
  std::optional<std::int64_t> month = std::nullopt;
  std::optional<std::int64_t> day = std::nullopt;
  std::optional<std::int64_t> hour = std::nullopt;
  std::optional<std::int64_t> minute = std::nullopt;
  std::optional<std::int64_t> second = std::nullopt;
  std::optional<std::int64_t> nanosecond = std::nullopt;
  std::optional<std::int64_t> weekday = std::nullopt;
  /// The how-manieth such weekday of its month: 2 for the second Tuesday.
  std::optional<std::int64_t> weekdayOrdinal = std::nullopt;
  std::optional<std::int64_t> quarter = std::nullopt;
  std::optional<std::int64_t> weekOfMonth = std::nullopt;
  std::optional<std::int64_t> weekOfYear = std::nullopt;
  std::optional<std::int64_t> yearForWeekOfYear = std::nullopt;

  friend bool operator==(const DateComponents&, const DateComponents&) noexcept = default;
};

/// The time from `start` up to `end`; never negative.
class DateInterval {
 public:
  /// Two moments in either order.
  constexpr DateInterval(Date one, Date other) noexcept
      : start_(one < other ? one : other), end_(one < other ? other : one) {}

  [[nodiscard]] constexpr Date start() const noexcept { return start_; }
  [[nodiscard]] constexpr Date end() const noexcept { return end_; }
  /// Seconds.
  [[nodiscard]] constexpr double duration() const noexcept { return end_.timeIntervalSince(start_); }
  /// Both ends count as inside.
  [[nodiscard]] constexpr bool contains(Date date) const noexcept { return start_ <= date && date <= end_; }

  friend constexpr bool operator==(const DateInterval&, const DateInterval&) noexcept = default;

 private:
  Date start_;
  Date end_;
};

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::DateComponents> {
  std::size_t operator()(const tavrine::foundation::DateComponents& components) const noexcept;
};

template <>
struct std::hash<tavrine::foundation::DateInterval> {
  std::size_t operator()(const tavrine::foundation::DateInterval& interval) const noexcept;
};
