#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// A calendar system with the locale that gives its customs (first weekday) and the zone that gives its wall time.
class Calendar {
 public:
  enum class Identifier : std::uint8_t {
    gregorian,
    buddhist,
    chinese,
    coptic,
    ethiopicAmeteMihret,
    ethiopicAmeteAlem,
    hebrew,
    iso8601,
    indian,
    islamic,
    islamicCivil,
    japanese,
    persian,
    republicOfChina,
    islamicTabular,
    islamicUmmAlQura,
  };
  enum class Component : std::uint8_t {
    era,
    year,
    month,
    day,
    hour,
    minute,
    second,
    weekday,
    weekdayOrdinal,
    quarter,
    weekOfMonth,
    weekOfYear,
    yearForWeekOfYear,
    nanosecond,
    calendar,
    timeZone,
  };
  enum class SearchDirection : std::uint8_t { forward, backward };

  /// With the locale and zone of the current environment.
  explicit Calendar(Identifier identifier);
  Calendar(Identifier identifier, Locale locale, TimeZone timeZone)
      : identifier_(identifier), locale_(std::move(locale)), timeZone_(std::move(timeZone)) {}

  /// The calendar, locale and zone of the current environment.
  [[nodiscard]] static Calendar current();

  [[nodiscard]] Identifier identifier() const noexcept { return identifier_; }
  [[nodiscard]] const Locale& locale() const noexcept { return locale_; }
  [[nodiscard]] const TimeZone& timeZone() const noexcept { return timeZone_; }
  void setLocale(Locale locale) { locale_ = std::move(locale); }
  void setTimeZone(TimeZone timeZone) { timeZone_ = std::move(timeZone); }

  friend bool operator==(const Calendar&, const Calendar&) noexcept = default;

 private:
  Identifier identifier_;
  Locale locale_;
  TimeZone timeZone_;
};

/// "gregorian", "islamicUmmAlQura": the name of the case.
[[nodiscard]] std::string_view toString(Calendar::Identifier identifier) noexcept;
[[nodiscard]] std::optional<Calendar::Identifier> calendarIdentifierFrom(std::string_view name) noexcept;
[[nodiscard]] std::string_view toString(Calendar::Component component) noexcept;

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::Calendar> {
  std::size_t operator()(const tavrine::foundation::Calendar& calendar) const noexcept;
};
