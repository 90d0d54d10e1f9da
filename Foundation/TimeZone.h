#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tavrine::foundation {

/// A time zone by its identifier: "Europe/Paris", "GMT+03:00".
class TimeZone {
 public:
  explicit TimeZone(std::string identifier) : identifier_(std::move(identifier)) {}

  /// The zone of the current environment.
  [[nodiscard]] static TimeZone current();
  [[nodiscard]] static TimeZone gmt() { return TimeZone("GMT"); }

  [[nodiscard]] const std::string& identifier() const noexcept { return identifier_; }

  friend bool operator==(const TimeZone&, const TimeZone&) noexcept = default;

 private:
  std::string identifier_;
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
