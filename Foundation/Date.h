#pragma once

#include <compare>
#include <cstddef>
#include <functional>

namespace tavrine::foundation {

/// A moment, as seconds since 1970-01-01 00:00:00 UTC, leap seconds not counted. It knows no calendar and no zone.
class Date {
 public:
  /// The start of 1970.
  constexpr Date() noexcept = default;
  explicit constexpr Date(double secondsSince1970) noexcept : secondsSince1970_(secondsSince1970) {}

  /// The moment that the clock of the current environment tells.
  [[nodiscard]] static Date now();

  [[nodiscard]] constexpr double timeIntervalSince1970() const noexcept { return secondsSince1970_; }
  /// Seconds from `other` to this date; negative when this one is earlier.
  [[nodiscard]] constexpr double timeIntervalSince(Date other) const noexcept {
    return secondsSince1970_ - other.secondsSince1970_;
  }
  [[nodiscard]] constexpr Date addingTimeInterval(double seconds) const noexcept {
    return Date(secondsSince1970_ + seconds);
  }

  friend constexpr auto operator<=>(const Date&, const Date&) noexcept = default;

 private:
  double secondsSince1970_ = 0;
};

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::Date> {
  std::size_t operator()(tavrine::foundation::Date date) const noexcept {
    return std::hash<double>{}(date.timeIntervalSince1970());
  }
};
