#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"

#include <algorithm>
#include <array>

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"

namespace tavrine {

namespace {

using namespace foundation::literals;
using Component = Calendar::Component;

constexpr Decimal kNanosecondsPerSecond = "1e9"_dec;
/// Further than the calendar reaches.
constexpr Decimal kMostSeconds = "1e15"_dec;

bool isDuration(const UnitExpression& expression) {
  return baseUnitOf(expression.unit) == unitOf(UnitIdentifier::seconds);
}

bool isPresentAndNotZero(const std::optional<std::int64_t>& value) { return value.value_or(0) != 0; }

/// A calendar without daylight saving time. Weeks and regions play no part in lengths.
const Calendar& calendarOnGmt() {
  static const auto* const calendar = new Calendar(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone::gmt());
  return *calendar;
}

/// Fractions of a second are cut to microseconds: what lies below is left over from divisions.
std::int64_t cleanedNanoseconds(const Decimal& fraction) {
  return (fraction.rounded(6, RoundingMode::plain) * kNanosecondsPerSecond).intValue();
}

/// Seconds split into components of a fixed length, and years and months as they follow on 1 January 1970.
DateComponents split(const Decimal& seconds, const CalendarComponentSet& components) {
  const Decimal whole = seconds.rounded(0, seconds.isSignMinus() ? RoundingMode::up : RoundingMode::down);
  std::int64_t nanoseconds = cleanedNanoseconds(seconds - whole);
  Decimal total = whole;
  if (nanoseconds == 1'000'000'000 || nanoseconds == -1'000'000'000) {
    total += nanoseconds > 0 ? 1 : -1;
    nanoseconds = 0;
  }
  CalendarComponentSet wholeComponents = components;
  wholeComponents.remove(Component::nanosecond);
  const Date start;
  DateComponents result =
      calendarOnGmt().dateComponents(wholeComponents, start, start.addingTimeInterval(total.doubleValue()));
  if (components.contains(Component::nanosecond)) result.nanosecond = nanoseconds;
  return result;
}

}  // namespace

DateComponents dateComponentsIn(const UnitExpression& expression, bool useSingleComponentIfPossible,
                                const CalendarComponentSet& prefer) {
  if (!isDuration(expression) || expression.value.isNaN()) return {};
  const auto component = calendarUnitOf(expression.unit.identifier());
  if (useSingleComponentIfPossible && component && expression.value.isWhole() &&
      expression.value.magnitude() < kMostSeconds) {
    DateComponents single;
    setValueOf(single, *component, expression.value.intValue());
    return single;
  }
  const auto seconds = convertedTo(expression, UnitIdentifier::seconds);
  // A month of seconds must not be read as one date more or less: what the calendar can't hold has no components.
  constexpr Decimal mostMeasured = "1.5e14"_dec;
  if (!seconds || seconds->value.isNaN() || seconds->value.magnitude() > mostMeasured) return {};
  return split(seconds->value, prefer);
}

std::optional<Timespan> timespanOf(const UnitExpression& expression) {
  const DateComponents components = dateComponentsIn(expression, true, timespanCalendarComponets);
  if (components == DateComponents{}) return std::nullopt;
  return Timespan{components, std::nullopt};
}

std::optional<Laptime> laptimeOf(const UnitExpression& expression) {
  const DateComponents components = dateComponentsIn(expression, false, laptimeCalendarComponets);
  if (components == DateComponents{}) return std::nullopt;
  return laptimeFrom(components);
}

DateComponents dateComponentsFrom(std::optional<std::int64_t> hour, std::optional<std::int64_t> minute,
                                  const std::optional<Decimal>& seconds) {
  DateComponents components;
  components.hour = hour;
  components.minute = minute;
  if (!seconds) return components;
  const Decimal whole = seconds->rounded(0, RoundingMode::down);
  components.second = whole.intValue();
  if (*seconds != whole) {
    components.nanosecond = ((*seconds - whole) * kNanosecondsPerSecond).rounded(0, RoundingMode::plain).intValue();
  }
  return components;
}

std::optional<Decimal> secondsWithNanoseconds(const DateComponents& components) {
  if (!components.second) return std::nullopt;
  return Decimal(*components.second) + Decimal(components.nanosecond.value_or(0)) / kNanosecondsPerSecond;
}

Decimal decimalTimeInterval(const DateComponents& components) {
  Decimal total = secondsWithNanoseconds(components).value_or(0);
  constexpr std::array counted = {Component::year, Component::weekOfYear, Component::day, Component::hour,
                                  Component::minute};
  for (const Component component : counted) {
    const auto unit = unitIdentifierFor(component);
    const auto value = valueOf(components, component);
    if (unit && value) total += unitOf(*unit).coefficient() * Decimal(*value);
  }
  return total;
}

bool haveTimeComponent(const DateComponents& components) {
  const std::array parts = {components.hour, components.second, components.minute};
  if (components.year == 0) return std::ranges::any_of(parts, isPresentAndNotZero);
  return std::ranges::any_of(parts, [](const auto& part) { return part.has_value(); });
}

DatestampType datestampTypeOf(const DateComponents& components) {
  const bool hasMonth = isPresentAndNotZero(components.month);
  const bool hasDay = isPresentAndNotZero(components.day);
  const bool hasYear = isPresentAndNotZero(components.year);
  if (haveTimeComponent(components)) {
    if (!hasMonth || !hasDay) return DatestampType::clockTime;
    if (components.nanosecond) return DatestampType::dayMonthYearWithClockTimeDownToSubSeconds;
    if (components.second) return DatestampType::dayMonthYearWithClockTimeDownToSeconds;
    return DatestampType::dayMonthYearWithClockTimeDownToMinutes;
  }
  if (!hasMultipleComponents({components, std::nullopt})) {
    if (components.month) return DatestampType::nakedMonth;
    if (components.year) return DatestampType::nakedYear;
    if (components.day) return DatestampType::nakedDayOfMonth;
  }
  if (hasMonth && hasDay && hasYear) return DatestampType::dayMonthYear;
  if (hasMonth && hasYear) return DatestampType::monthAndYear;
  return DatestampType::unspecified;
}

bool hasMultipleComponents(const Timespan& timespan) { return presentComponents(timespan).size() > 1; }

CalendarComponentSet presentComponents(const Timespan& timespan) {
  CalendarComponentSet present;
  for (const Component component : orderedTavrineSupportedComponents) {
    if (valueOf(timespan.dateComponents, component)) present.insert(component);
  }
  return present;
}

std::optional<std::int64_t> workdaysOf(const Timespan& timespan) {
  if (!isPresentAndNotZero(timespan.dateComponents.weekday)) return std::nullopt;
  return timespan.dateComponents.weekday;
}

DatestampType appropriateDatestampType(const Timespan& timespan) {
  const DateComponents& components = timespan.dateComponents;
  if (isPresentAndNotZero(components.nanosecond)) return DatestampType::dayMonthYearWithClockTimeDownToSubSeconds;
  if (isPresentAndNotZero(components.second)) return DatestampType::dayMonthYearWithClockTimeDownToSeconds;
  if (isPresentAndNotZero(components.minute) || isPresentAndNotZero(components.hour)) return DatestampType::clockTime;
  if (isPresentAndNotZero(components.day) || isPresentAndNotZero(components.month)) return DatestampType::dayAndMonth;
  if (isPresentAndNotZero(components.year)) return DatestampType::dayMonthYear;
  return DatestampType::unspecified;
}

UnitExpression unitExpressionValue(const Timespan& timespan) {
  const DateComponents& components = timespan.dateComponents;
  if (timespan.representedInterval && (isPresentAndNotZero(components.year) || isPresentAndNotZero(components.month))) {
    return with(UnitIdentifier::seconds, Decimal::fromDouble(timespan.representedInterval->duration()));
  }
  // Summed up in seconds, since a day has no exact value in weeks.
  Decimal seconds = 0;
  UnitIdentifier shown = UnitIdentifier::seconds;
  const auto add = [&](Component component) {
    const auto unit = unitIdentifierFor(component);
    const auto value = valueOf(components, component);
    if (!unit || !isPresentAndNotZero(value)) return;
    const UnitExpression part = with(*unit, Decimal(*value));
    seconds += valueInBaseUnit(part);
    shown = part.unit.identifier();
  };
  for (auto component = orderedTavrineSupportedComponents.rbegin();
       component != orderedTavrineSupportedComponents.rend(); ++component) {
    if (*component == Component::weekOfYear) add(Component::weekOfMonth);
    add(*component);
  }
  if (components.hour) {
    shown = UnitIdentifier::hours;
  } else if (components.day) {
    shown = UnitIdentifier::days;
  } else if (valueInBaseUnit(with(shown, 1)) < 1) {
    shown = UnitIdentifier::seconds;
  }
  return with(shown, valueFrom(seconds, unitOf(shown)));
}

}  // namespace tavrine
