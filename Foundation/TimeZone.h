#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Date.h"

namespace tavrine::foundation {

class Locale;

/// A stretch of time in which the clocks of a zone keep one distance from GMT.
struct ZonePeriod {
  /// In seconds since 1970; the end is not part of it. The first period begins and the last one ends at the limits of
  /// the type.
  std::int64_t start = 0;
  std::int64_t end = 0;
  /// Seconds that the clocks are ahead of GMT; negative in the west.
  std::int32_t secondsFromGMT = 0;
  bool isDaylightSavingTime = false;
  /// "EST", "CEST", "+03". Lives as long as the zone.
  std::string_view abbreviation;
};

/// A time zone by its identifier: "Europe/Paris", "GMT+03:00". A value that is cheap to copy; its rules are read from
/// the zone files of the machine when first asked for, once for all copies, on any thread.
class TimeZone {
 public:
  enum class NameStyle : std::uint8_t {
    longName,   ///< "Central European Summer Time": as the clocks stand at the moment
    shortName,  ///< "EDT", or "GMT+2" where the locale has no short name
    generic,    ///< "Central European Time": summer or winter
  };

  /// Any text makes a zone; one that nobody knows keeps GMT. See `withIdentifier` where that matters.
  explicit TimeZone(std::string_view identifier);

  /// The zone of the current environment.
  [[nodiscard]] static TimeZone current();
  [[nodiscard]] static TimeZone gmt();

  /// Absent for an identifier that nobody knows: letters count as they are written.
  [[nodiscard]] static std::optional<TimeZone> withIdentifier(std::string_view identifier);
  /// A zone with one offset for all time, "GMT+03:00"; "GMT" for 0. Absent beyond 18 hours.
  [[nodiscard]] static std::optional<TimeZone> withSecondsFromGMT(std::int64_t seconds);

  [[nodiscard]] const std::string& identifier() const noexcept;

  /// Seconds that the clocks are ahead of GMT at the moment.
  [[nodiscard]] std::int32_t secondsFromGMT(Date date) const;
  [[nodiscard]] bool isDaylightSavingTime(Date date) const;
  /// "EST", "CEST", "+03"; of a fixed zone its identifier.
  [[nodiscard]] std::string_view abbreviation(Date date) const;
  [[nodiscard]] std::string localizedName(NameStyle style, Date date, const Locale& locale) const;

  /// The period that holds the moment, given in seconds since 1970.
  [[nodiscard]] ZonePeriod periodAt(std::int64_t secondsSince1970) const;

  friend bool operator==(const TimeZone& left, const TimeZone& right) noexcept {
    return left.data_ == right.data_ || left.identifier() == right.identifier();
  }

 private:
  struct Data;
  explicit TimeZone(std::shared_ptr<const Data> data) noexcept;

  std::shared_ptr<const Data> data_;
};

/// The identifier of the zone that the machine is set to: from TZ, else from the link /etc/localtime, else "GMT".
[[nodiscard]] std::string systemTimeZoneIdentifier();

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::TimeZone> {
  std::size_t operator()(const tavrine::foundation::TimeZone& zone) const noexcept {
    return std::hash<std::string>{}(zone.identifier());
  }
};
