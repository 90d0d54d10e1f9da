#include "TavrineCore/Parsing/Primitives/Workdays.h"

#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"

namespace tavrine {

namespace {

using Component = Calendar::Component;

constexpr std::int64_t kMostDaysWalked = 366'000;

/// Any seven days in a row hold as many workdays, as long as nobody has a holiday.
std::int64_t workdaysInAWeek(const CalendarEnvironment& environment) {
  const Date start;
  std::int64_t workdays = 0;
  for (int day = 0; day < 7; ++day) {
    const auto date = environment.calendar().dateByAdding(Component::day, day, start);
    if (date && isWorkday(environment, *date)) ++workdays;
  }
  return workdays;
}

/// Moves by the whole weeks that the workdays fill, and leaves those of the last week. Nothing happens where holidays
/// have to be looked for day by day, and at the limits of the calendar.
void skipWeeks(const CalendarEnvironment& environment, int direction, std::int64_t& workdays, Date& date) {
  constexpr std::int64_t mostWorkdays = 2'000'000'000;
  if (!environment.holidays().empty() || workdays <= 7 || workdays > mostWorkdays) return;
  const std::int64_t inAWeek = workdaysInAWeek(environment);
  if (inAWeek == 0) return;
  const std::int64_t weeks = (workdays - 1) / inAWeek;
  const auto target = environment.calendar().dateByAdding(Component::day, direction * weeks * 7, date);
  if (!target) return;
  date = *target;
  workdays -= weeks * inAWeek;
}

UnitExpression amountOf(const Decimal& value, const TCUnit& unit) { return {value, unit, false}; }

}  // namespace

bool isWorkday(const CalendarEnvironment& environment, Date date) {
  const Calendar& calendar = environment.calendar();
  if (calendar.isDateInWeekend(date)) return false;
  if (environment.holidays().empty()) return true;
  return !environment.isHoliday(calendar.dateComponents({Component::day, Component::month, Component::year}, date));
}

Date dateByAddingWorkdays(const CalendarEnvironment& environment, std::int64_t workdays, Date to) {
  Date date = to;
  skipWeeks(environment, 1, workdays, date);
  for (std::int64_t walked = 0; workdays > 0 && walked < kMostDaysWalked; ++walked) {
    const auto next = environment.calendar().dateByAdding(Component::day, 1, date);
    if (!next) return date;
    date = *next;
    if (isWorkday(environment, date)) --workdays;
  }
  return date;
}

Date dateBySubtractingWorkdays(const CalendarEnvironment& environment, std::int64_t workdays, Date from) {
  Date date = from;
  skipWeeks(environment, -1, workdays, date);
  for (std::int64_t walked = 0; workdays > 0 && walked < kMostDaysWalked; ++walked) {
    if (isWorkday(environment, date)) --workdays;
    const auto previous = environment.calendar().dateByAdding(Component::day, -1, date);
    if (!previous) return date;
    date = *previous;
  }
  return date;
}

std::int64_t workdaysBetween(const CalendarEnvironment& environment, Date fromDate, Date toDate) {
  std::int64_t workdays = 0;
  Date date = fromDate;
  if (environment.holidays().empty() && date < toDate) {
    const Calendar& calendar = environment.calendar();
    const std::int64_t weeks = calendar.dateComponents({Component::day}, date, toDate).day.value_or(0) / 7;
    if (const auto target = calendar.dateByAdding(Component::day, weeks * 7, date); weeks > 0 && target) {
      workdays = weeks * workdaysInAWeek(environment);
      date = *target;
    }
  }
  for (std::int64_t walked = 0; date < toDate && walked < kMostDaysWalked; ++walked) {
    if (isWorkday(environment, date)) ++workdays;
    const auto next = environment.calendar().dateByAdding(Component::day, 1, date);
    if (!next) break;
    date = *next;
  }
  return workdays;
}

std::optional<DateComponents> negated(const DateComponents& components) {
  DateComponents result;
  for (const Component component : orderedTavrineSupportedComponents) {
    const auto value = valueOf(components, component);
    if (!value) continue;
    if (*value == INT64_MIN) return std::nullopt;
    setValueOf(result, component, -*value);
  }
  return result;
}

std::optional<Date> dateSubtracting(const CalendarEnvironment& environment, const DateComponents& components,
                                    Date from) {
  if (components.weekday.value_or(0) != 0) {
    return dateBySubtractingWorkdays(environment, *components.weekday, from);
  }
  const auto opposite = negated(components);
  const auto date = opposite ? environment.calendar().dateByAdding(*opposite, from) : std::nullopt;
  if (!date) return std::nullopt;
  return *date < from ? *date : from;
}

std::optional<UnitExpression> calculateInterval(const CalendarEnvironment& environment, Date from, Date to,
                                                const TCUnit& inTermsOf, bool roundToWholeUnit) {
  const auto component = calendarUnitOf(inTermsOf.identifier());
  if (!component) return std::nullopt;
  if (*component == Component::weekday) {
    return amountOf(Decimal(workdaysBetween(environment, from, to)), inTermsOf);
  }
  const DateComponents between = environment.calendar().dateComponents({*component, Component::second}, from, to);
  const std::int64_t value = valueOf(between, *component).value_or(0);
  const UnitExpression seconds = with(UnitIdentifier::seconds, Decimal(between.second.value_or(0)));
  const bool hasRest = *component != Component::second && between.second.value_or(0) != 0;
  if (value == 0) return convertedTo(seconds, inTermsOf);
  const UnitExpression whole = amountOf(Decimal(value), inTermsOf);
  if (roundToWholeUnit || value < 0 || !hasRest) return whole;
  return whole + seconds;
}

std::optional<Date> dayThisWeek(const Calendar& calendar, int dayIndex) {
  const auto start =
      calendar.dateFrom(calendar.dateComponents({Component::yearForWeekOfYear, Component::weekOfYear}, Date::now()));
  if (!start || calendar.component(Component::weekday, *start) == dayIndex) return start;
  return calendar.nextDate(*start, {.weekday = dayIndex});
}

std::optional<Date> dayLastWeek(const Calendar& calendar, int dayIndex) {
  std::optional<Date> date = dayThisWeek(calendar, dayIndex);
  constexpr int mostSteps = 8;
  for (int step = 0; date && step < mostSteps; ++step) {
    date = calendar.dateByAdding(Component::day, -1, *date);
    if (date && calendar.component(Component::weekday, *date) == dayIndex) break;
  }
  return date;
}

std::optional<Date> dayNextWeek(const Calendar& calendar, int dayIndex) {
  const auto thisWeek = dayThisWeek(calendar, dayIndex);
  if (!thisWeek) return std::nullopt;
  const auto day = calendar.dateIntervalOf(Component::day, *thisWeek);
  if (!day) return std::nullopt;
  return calendar.nextDate(day->end().addingTimeInterval(-1), {.weekday = dayIndex});
}

}  // namespace tavrine
