#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "Foundation/Date.h"
#include "Foundation/DateComponents.h"
#include "Foundation/EnumSet.h"
#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// A calendar system with the locale that gives its customs (first weekday) and the zone that gives its wall time.
///
/// Its arithmetic covers the years from about -5,000,000 to 5,000,000. What would leave them is absent; a moment beyond
/// them reads as the nearest one within. The Gregorian calendar reaches back before 1582 by its own rules, and the year
/// before 1 is year 1 of era 0.
///
/// Wall times that the clocks skip in spring are moved forward by as much as they skip; of those that come twice in
/// autumn the first is taken.
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
  using ComponentSet = EnumSet<Component, 16>;
  enum class SearchDirection : std::uint8_t { forward, backward };
  /// What a search takes where the wall time it looks for is skipped on a day.
  enum class MatchingPolicy : std::uint8_t {
    nextTime,                             ///< the first moment behind the gap
    nextTimePreservingSmallerComponents,  ///< as much behind the gap as the time lies in it
    previousTimePreservingSmallerComponents,
    strict,  ///< goes on to the next day that has the time
  };
  /// What a search takes of a wall time that comes twice.
  enum class RepeatedTimePolicy : std::uint8_t { first, last };

  /// From `lower` up to `upper`, which is not part of it.
  struct Range {
    std::int64_t lower = 0;
    std::int64_t upper = 0;
    [[nodiscard]] constexpr std::int64_t count() const noexcept { return upper - lower; }
    friend constexpr bool operator==(const Range&, const Range&) noexcept = default;
  };

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
  /// The same calendar on the clocks of another zone.
  [[nodiscard]] Calendar in(TimeZone timeZone) const { return {identifier_, locale_, std::move(timeZone)}; }

  /// The weekday with which weeks begin, Sunday being 1.
  [[nodiscard]] int firstWeekday() const;
  /// How many days of a year its first week has at least.
  [[nodiscard]] int minimumDaysInFirstWeek() const;

  /// One component of a moment on the wall clock. Weekdays count from Sunday, which is 1; hours from 0. 0 for
  /// `calendar` and `timeZone`, which are no numbers.
  [[nodiscard]] std::int64_t component(Component component, Date date) const;
  /// Those components of a moment; the others stay absent.
  [[nodiscard]] DateComponents dateComponents(const ComponentSet& components, Date date) const;
  /// How much lies between two moments, the largest component first, each in what the larger ones leave; negative
  /// where `to` is the earlier one. "2024-01-31" to "2024-03-01" in months and days: 1 month, 1 day. Weekdays count as
  /// days.
  [[nodiscard]] DateComponents dateComponents(const ComponentSet& components, Date from, Date to) const;

  /// The moment with these components. Absent ones are the first of their kind (year 1, month 1, day 1, 0 h); those
  /// beyond their range run over into the larger ones: 30 February is 1 or 2 March. A day takes precedence over a
  /// weekday with ordinal, that over a week of month, that over a week of the year.
  [[nodiscard]] std::optional<Date> dateFrom(const DateComponents& components) const;
  /// Whether the components name a moment without running over: not 30 February, not 24:00. Times that the clocks of
  /// the zone skip are valid.
  [[nodiscard]] bool isValidDate(const DateComponents& components) const;

  /// Adds the largest components first. A day that the month reached lacks becomes its last: 31 January and 1 month is
  /// 28 or 29 February. Years to days keep the time on the wall clock, hours and below count as they pass.
  [[nodiscard]] std::optional<Date> dateByAdding(const DateComponents& components, Date date) const;
  [[nodiscard]] std::optional<Date> dateByAdding(Component component, std::int64_t value, Date date) const;

  /// The next moment after (or before) `date`, never `date` itself, that has these components. Those below the largest
  /// given ones are 0 or 1 where absent: a weekday alone means its start. Absent when there is none within 12 years of
  /// the date, or of the year that is asked for.
  [[nodiscard]] std::optional<Date> nextDate(Date after, const DateComponents& matching,
                                             MatchingPolicy matchingPolicy = MatchingPolicy::nextTime,
                                             RepeatedTimePolicy repeatedTimePolicy = RepeatedTimePolicy::first,
                                             SearchDirection direction = SearchDirection::forward) const;

  /// The number of the smaller component within the larger one, from 1: the day in the year. Absent for pairs that
  /// have no such number.
  [[nodiscard]] std::optional<std::int64_t> ordinalityOf(Component smaller, Component larger, Date date) const;
  /// The values that the smaller component takes within the larger one around the moment: {1, 30} for the days of a
  /// February in a leap year.
  [[nodiscard]] std::optional<Range> rangeOf(Component smaller, Component larger, Date date) const;

  /// The era to second that holds the moment; its end is the start of the next one. Absent where the component is
  /// none that lasts.
  [[nodiscard]] std::optional<DateInterval> dateIntervalOf(Component component, Date date) const;
  /// The first moment of the day, which isn't always 0:00.
  [[nodiscard]] Date startOfDay(Date date) const;

  [[nodiscard]] bool isDateInWeekend(Date date) const;
  [[nodiscard]] bool isDateInToday(Date date) const;
  [[nodiscard]] bool areInSameDay(Date one, Date other) const;
  /// Whether both lie in the same year, month, week...
  [[nodiscard]] bool isDateEqualTo(Date one, Date other, Component granularity) const;

  friend bool operator==(const Calendar&, const Calendar&) noexcept = default;

 private:
  Identifier identifier_;
  Locale locale_;
  TimeZone timeZone_;
};

/// The field of that component; absent for `calendar` and `timeZone`.
[[nodiscard]] std::optional<std::int64_t> valueOf(const DateComponents& components, Calendar::Component component);
void setValueOf(DateComponents& components, Calendar::Component component, std::optional<std::int64_t> value);

/// "gregorian", "islamicUmmAlQura": the name of the case.
[[nodiscard]] std::string_view toString(Calendar::Identifier identifier) noexcept;
[[nodiscard]] std::optional<Calendar::Identifier> calendarIdentifierFrom(std::string_view name) noexcept;
[[nodiscard]] std::string_view toString(Calendar::Component component) noexcept;

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::Calendar> {
  std::size_t operator()(const tavrine::foundation::Calendar& calendar) const noexcept;
};
