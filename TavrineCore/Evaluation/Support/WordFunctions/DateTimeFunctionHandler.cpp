// Dates in words: "days until christmas", "3 weeks from Tuesday", "time in Tokyo". The parser has moved dates that
// could be meant in several years to where the phrase wants them; here they are taken as they are.

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Diagnostics.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CalendarFunctionOutputSpecifier.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;
using Component = Calendar::Component;

constexpr FunctionIdentifierSet kHandled{generateTimestamp,
                                         calendarUnitToDate,
                                         calendarUnitToDatespan,
                                         calendarUnitInDate,
                                         calendarUnitLeftInDate,
                                         calendarUnitInDatespan,
                                         calendarUnitBetweenDates,
                                         inclusiveCalendarUnitBetweenDates,
                                         calendarUnitSinceDate,
                                         calendarUnitExpressionAfterDate,
                                         calendarUnitExpressionBeforeDate,
                                         calendarUnitExpressionAgo,
                                         inclusiveIntervalBetweenDates,
                                         timeInTimezone,
                                         dateInTimezone,
                                         differenceBetweenTimezones,
                                         weekdayAfterTimespan,
                                         weekNumberOnDate,
                                         dayNumberOnDate,
                                         dayOfYear,
                                         dayOfWeekOnDate,
                                         weekOfYear,
                                         halfwayBetweenDates};

constexpr DatestampTypeSet kMonths{DatestampType::nakedMonth, DatestampType::monthAndYear, DatestampType::nextMonth,
                                   DatestampType::lastMonth, DatestampType::thisMonth};
constexpr DatestampTypeSet kYears{DatestampType::nakedYear, DatestampType::nextYear, DatestampType::lastYear,
                                  DatestampType::thisYear};
constexpr DatestampTypeSet kWeekdays{DatestampType::weekDay, DatestampType::weekdayWithClockTime,
                                     DatestampType::relativeWeekday};

CalendarEnvironment environmentOf(const EngineCustomization& customization) {
  return CalendarEnvironment(Calendar::current(), customization.holidays());
}

Answer amount(const Decimal& value, const TCUnit& unit) {
  return EvaluationResult::unitExpression({value, unit, true});
}

Answer whole(std::optional<std::int64_t> value) {
  if (!value) return std::nullopt;
  return EvaluationResult::decimal(Decimal(*value));
}

/// The two dates of a phrase, in its order.
struct DatePair {
  Datestamp first;
  Datestamp second;
};

std::optional<DatePair> twoDatesOf(Arguments arguments) {
  if (arguments.size() != 2) return std::nullopt;
  auto first = arguments[0].datestampValue();
  auto second = arguments[1].datestampValue();
  if (!first || !second) return std::nullopt;
  return DatePair{*std::move(first), *std::move(second)};
}

std::optional<Datestamp> onlyDateOf(Arguments arguments) {
  return arguments.size() == 1 ? arguments[0].datestampValue() : std::nullopt;
}

/// The month or the year that the date stands for; absent for dates that name a day or a time.
std::optional<Component> periodOf(const Datestamp& datestamp) {
  if (kMonths.contains(datestamp.type)) return Component::month;
  if (kYears.contains(datestamp.type)) return Component::year;
  return std::nullopt;
}

/// A number of things on the calendar: "3 weeks", or the one week of "a week".
std::optional<DateComponents> componentsIn(const Token& token) {
  if (!token.is(TokenType::unit)) return token.dateComponentsValue();
  const auto component = token.calendarComponentValue();
  if (!component) return std::nullopt;
  DateComponents components;
  setValueOf(components, *component, 1);
  return components;
}

// --- Zones ---------------------------------------------------------------------------------------------------------

/// The day in words: "Today" would be no answer to what day it is.
Datestamp withDaySpelledOut(Datestamp datestamp) {
  datestamp.type = DatestampType::dayMonthYear;
  datestamp.dateFormatTemplate = "yMMMMd";
  return datestamp;
}

/// The moment that a date or a duration stands for where somebody asks for the time or the day of now: "what time is it
/// now in Tokyo", "what date will it be in 3 weeks". Absent for what lies at some other time.
std::optional<Datestamp> momentAskedFor(const Token& token, bool asksForDay) {
  const Datestamp now{.date = Date::now(), .type = DatestampType::now, .timezone = Calendar::current().timeZone()};
  if (token.is(TokenType::datestamp)) {
    const auto date = token.datestampValue();
    const bool isNow = date && date->type == DatestampType::now;
    const bool isDayBesideNow = date && relativeTimeTypes.contains(date->type) && !periodOf(*date);
    return isNow || (isDayBesideNow && asksForDay) ? date : std::nullopt;
  }
  const auto timespan = token.is(TokenType::timespan) ? token.timespanValue() : std::nullopt;
  const auto moment = timespan ? Calendar::current().dateByAdding(timespan->dateComponents, now.date) : std::nullopt;
  if (!moment) return std::nullopt;
  Datestamp result = now;
  result.date = *moment;
  return result;
}

/// Now on the clocks of a zone, as a time or as a day. A date that isn't now answers for itself, unless it is such as
/// the "tomorrow" of "lunch time tomorrow", which asks nothing. A number counts the seconds of unix time.
Answer nowIn(Arguments arguments, bool asksForDay) {
  if (arguments.size() != 1) return std::nullopt;
  std::optional<Datestamp> result;
  if (arguments[0].is(TokenType::number)) {
    const auto moment = datestampOfUnixTime(arguments[0].decimalValue());
    return moment ? Answer(EvaluationResult::date(*moment)) : std::nullopt;
  } else if (const auto zone = arguments[0].timeZoneValue()) {
    result = Datestamp{.date = Date::now(), .type = DatestampType::now, .timezone = *zone, .hasExplicitTimeZone = true};
  } else {
    result = momentAskedFor(arguments[0], asksForDay);
  }
  if (result) return EvaluationResult::date(asksForDay ? withDaySpelledOut(*result) : *result);
  const auto date = arguments[0].is(TokenType::datestamp) ? onlyDateOf(arguments) : std::nullopt;
  if (!date || relativeTimeTypes.contains(date->type)) return std::nullopt;
  return EvaluationResult::date(*date);
}

Answer differenceBetween(Arguments zones) {
  if (zones.size() != 2) return std::nullopt;
  const auto first = zones[0].timeZoneValue();
  const auto second = zones[1].timeZoneValue();
  if (!first || !second) return std::nullopt;
  const Date now = Date::now();
  const Decimal seconds(second->secondsFromGMT(now) - first->secondsFromGMT(now));
  return EvaluationResult::unitExpression(with(UnitIdentifier::hours, seconds / Decimal(60) / Decimal(60)));
}

// --- From date to date ---------------------------------------------------------------------------------------------

/// Counts from the earlier to the later moment: there are as many days between two dates in either order.
Answer unitsBetween(const Token& unitToken, Date one, Date other, const EngineCustomization& customization) {
  const auto unit = unitToken.unitValue();
  const auto component = unitToken.calendarComponentValue();
  if (!unit || !component) return std::nullopt;
  const foundation::DateInterval interval(one, other);
  if (*component == Component::weekday) {
    return amount(Decimal(workdaysBetween(environmentOf(customization), interval.start(), interval.end())), *unit);
  }
  const DateComponents between = Calendar::current().dateComponents({*component}, interval.start(), interval.end());
  return amount(Decimal(valueOf(between, *component).value_or(0)), *unit);
}

/// "weeks between today and christmas", "today to christmas in weeks".
Answer unitsBetweenDates(Arguments arguments, bool isInclusive, const EngineCustomization& customization) {
  if (arguments.size() != 3) return std::nullopt;
  const bool isUnitFirst = arguments.front().is(TokenType::unit);
  const Token& unit = isUnitFirst ? arguments.front() : arguments.back();
  const auto dates = twoDatesOf(arguments.subspan(isUnitFirst ? 1 : 0, 2));
  if (!dates || !unit.is(TokenType::unit)) return std::nullopt;
  Date from = dates->first.date;
  Date to = dates->second.date;
  if (isInclusive) {
    Date& later = from < to ? to : from;
    const auto dayAfter = Calendar::current().dateByAdding(Component::day, 1, later);
    if (!dayAfter) return std::nullopt;
    later = *dayAfter;
  }
  return unitsBetween(unit, from, to, customization);
}

Answer inclusiveInterval(Arguments arguments, const EngineCustomization& customization) {
  const auto output = CalendarFunctionOutputSpecifier::parameters(arguments);
  const auto dates = twoDatesOf(arguments);
  if (!output || !dates) return std::nullopt;
  const Calendar calendar = Calendar::current();
  const Date first = calendar.startOfDay(dates->first.date);
  const auto second = calendar.dateByAdding(Component::day, 1, calendar.startOfDay(dates->second.date));
  if (!second) return std::nullopt;
  const foundation::DateInterval interval(first, *second);
  return output->intervalBetween(environmentOf(customization), interval.start(), interval.end(),
                                 /*roundToWholeUnit=*/false);
}

Answer intervalForward(const CalendarFunctionOutputSpecifier& output, Date from, Date to,
                       const EngineCustomization& customization) {
  if (to <= from) {
    diagnose("Warning: calender to date is not later than from date");
    return std::nullopt;
  }
  return output.intervalBetween(environmentOf(customization), from, to, /*roundToWholeUnit=*/false);
}

Answer unitsToDate(Arguments arguments, const EngineCustomization& customization) {
  const auto output = CalendarFunctionOutputSpecifier::parameters(arguments);
  const auto date = output ? output->dateParameters[0].datestampValue() : std::nullopt;
  if (!date || output->dateParameters.size() != 1) return std::nullopt;
  return intervalForward(*output, Date::now(), date->date, customization);
}

Answer unitsToDatespan(Arguments arguments, const EngineCustomization& customization) {
  const auto output = CalendarFunctionOutputSpecifier::parameters(arguments);
  const auto span = output ? output->dateParameters[0].datespanValue() : std::nullopt;
  if (!span || output->dateParameters.size() != 1) return std::nullopt;
  return intervalForward(*output, Date::now(), Calendar::current().startOfDay(span->startDate), customization);
}

/// What happened since a month or a year happened after its end.
Date momentToCountFrom(const Datestamp& datestamp) {
  const auto period = periodOf(datestamp);
  if (period == Component::month) return endOfMonth(datestamp.date);
  if (period == Component::year) return startOfFollowingYear(datestamp.date);
  return datestamp.date;
}

Answer unitsSinceDate(Arguments arguments, const EngineCustomization& customization) {
  const auto output = CalendarFunctionOutputSpecifier::parameters(arguments);
  const auto date = output ? output->dateParameters[0].datestampValue() : std::nullopt;
  if (!date || output->dateParameters.size() != 1) return std::nullopt;
  return intervalForward(*output, momentToCountFrom(*date), Date::now(), customization);
}

Answer halfway(Arguments arguments) {
  auto dates = twoDatesOf(arguments);
  if (!dates) return std::nullopt;
  const double mean = (dates->first.date.timeIntervalSince1970() + dates->second.date.timeIntervalSince1970()) / 2;
  Datestamp datestamp{.date = Date(mean), .type = dates->first.type, .timezone = dates->first.timezone};
  datestamp.hasExplicitTimeZone = dates->first.hasExplicitTimeZone;
  return EvaluationResult::date(datestamp);
}

// --- Within months, years and stretches of days --------------------------------------------------------------------

std::int64_t workdaysIn(const foundation::DateInterval& period, std::int64_t days,
                        const EngineCustomization& customization) {
  const CalendarEnvironment environment = environmentOf(customization);
  std::int64_t workdays = 0;
  for (std::int64_t day = 0; day < days; ++day) {
    const auto date = environment.calendar().dateByAdding(Component::day, day, period.start());
    if (date && isWorkday(environment, *date)) ++workdays;
  }
  return workdays;
}

Answer unitsInDate(Arguments arguments, const EngineCustomization& customization) {
  const auto date = arguments.size() == 2 ? arguments[1].datestampValue() : std::nullopt;
  const auto unit = date ? arguments[0].unitValue() : std::nullopt;
  const auto period = date ? periodOf(*date) : std::nullopt;
  if (!unit || !period) return std::nullopt;
  const Calendar calendar = Calendar::current();
  const auto range = calendar.rangeOf(Component::day, *period, date->date);
  const auto interval = calendar.dateIntervalOf(*period, date->date);
  if (!range || !interval) return std::nullopt;

  const std::int64_t days = range->count();
  if (unit->identifier() == UnitIdentifier::weekdays) {
    return amount(Decimal(workdaysIn(*interval, days, customization)), *unit);
  }
  if (unit->identifier() == UnitIdentifier::nights) return amount(Decimal(days - 1), *unit);
  const auto converted = convertedTo(with(UnitIdentifier::days, Decimal(days)), *unit);
  if (!converted) return std::nullopt;
  return EvaluationResult::unitExpression(*converted);
}

/// The part of the calendar of which something may be left: the day of "today", the month of "June".
std::optional<Component> runningPeriodOf(const Datestamp& datestamp) {
  if (datestamp.type == DatestampType::today) return Component::day;
  if (datestamp.type == DatestampType::thisWeek) return Component::weekOfYear;
  return periodOf(datestamp);
}

/// "the year" is the one that runs.
Token asRunningPeriod(const Token& token) {
  struct Row {
    UnitIdentifier unit;
    DatestampType type;
  };
  constexpr std::array kRows{
      Row{UnitIdentifier::days, DatestampType::today}, Row{UnitIdentifier::weeks, DatestampType::thisWeek},
      Row{UnitIdentifier::months, DatestampType::thisMonth}, Row{UnitIdentifier::years, DatestampType::thisYear}};
  const auto unit = token.is(TokenType::unit) ? token.unitValue() : std::nullopt;
  for (const Row& row : kRows) {
    if (!unit || row.unit != unit->identifier()) continue;
    const Calendar calendar = Calendar::current();
    return TokenFactory::datestampWith({.date = Date::now(), .type = row.type, .timezone = calendar.timeZone()},
                                       CalendarEnvironment(calendar));
  }
  return token;
}

/// Only what runs at present has anything left: this month, but no other.
Answer unitsLeftInDate(Arguments given, const EngineCustomization& customization) {
  std::vector<Token> arguments(given.begin(), given.end());
  if (!arguments.empty()) arguments.back() = asRunningPeriod(arguments.back());
  const auto output = CalendarFunctionOutputSpecifier::parameters(arguments);
  const auto date = output ? output->dateParameters[0].datestampValue() : std::nullopt;
  const auto period = date ? runningPeriodOf(*date) : std::nullopt;
  if (!period || output->dateParameters.size() != 1) return std::nullopt;
  const Date now = Date::now();
  const Calendar calendar = Calendar::current();
  const auto interval = calendar.dateIntervalOf(*period, date->date);
  if (!interval || !calendar.isDateEqualTo(date->date, now, *period)) return std::nullopt;
  return output->intervalBetween(environmentOf(customization), now, interval->end(), /*roundToWholeUnit=*/true);
}

Answer unitsInDatespan(Arguments arguments, const EngineCustomization& customization) {
  const auto span = arguments.size() == 2 ? arguments[1].datespanValue() : std::nullopt;
  return span ? unitsBetween(arguments[0], span->startDate, span->endDate, customization) : std::nullopt;
}

// --- Away from a date ----------------------------------------------------------------------------------------------

Answer ago(Arguments arguments, const EngineCustomization& customization) {
  if (arguments.empty() || arguments.size() > 2) return std::nullopt;
  const auto date = arguments[0].datestampValue();
  const bool isCountOfYears = date && date->type == DatestampType::nakedYear;
  if (date && !isCountOfYears) return std::nullopt;
  const auto components = componentsIn(arguments[0]);
  if (!components) return std::nullopt;

  CalendarEnvironment environment = environmentOf(customization);
  Datestamp result{.date = {}, .type = {}, .timezone = environment.calendar().timeZone()};
  if (arguments.size() == 2) {
    const auto zone = arguments[1].timeZoneValue();
    // "2000 years ago", where 2000 has been read as a year.
    const bool tellsYears = isCountOfYears && arguments[1].calendarComponentValue() == Component::year;
    if (!zone && !tellsYears) return std::nullopt;
    if (zone) {
      result.timezone = *zone;
      result.hasExplicitTimeZone = true;
      environment = CalendarEnvironment(environment.calendar().in(*zone), environment.holidays());
    }
  }
  const auto moment = dateSubtracting(environment, *components, Date::now());
  if (!moment) return std::nullopt;
  result.date = *moment;
  result.type = appropriateDatestampType({*components, std::nullopt});
  return EvaluationResult::date(result);
}

/// A few days from a month or a year no longer make a month or a year.
DatestampType typeOfShifted(DatestampType written, DatestampType moved, const DateComponents& by) {
  if (moved != written) return moved;
  const bool countsDays = by.weekOfYear || by.day || by.weekday;
  const bool leavesYear = kYears.contains(written) && (countsDays || by.month);
  const bool leavesMonth = kMonths.contains(written) && countsDays;
  return leavesYear || leavesMonth ? DatestampType::dayMonthYear : moved;
}

/// The same as "date + duration" and "date - duration"; a duration that is negative leads nowhere before the date.
Answer shifted(Arguments arguments, bool isForward) {
  if (arguments.size() != 2) return std::nullopt;
  const auto date = arguments[1].datestampValue();
  const auto components = componentsIn(arguments[0]);
  if (!date || !components || arguments[0].is(TokenType::datestamp)) return std::nullopt;
  const Token timespan = TokenFactory::timespanWith({*components, std::nullopt});
  const Token moved = isForward ? sum(arguments[1], timespan) : difference(arguments[1], timespan);
  auto result = moved.datestampValue();
  if (!result) return isForward ? std::nullopt : Answer(EvaluationResult::date(*date));
  result->type = typeOfShifted(date->type, result->type, *components);
  return EvaluationResult::date(*result);
}

/// "Tuesday in 3 weeks": the first Tuesday from that moment on. Any other date is moved by the duration.
Answer weekdayAfter(Arguments arguments) {
  if (arguments.size() != 2) return std::nullopt;
  const auto date = arguments[0].datestampValue();
  const auto timespan = arguments[1].timespanValue();
  if (!date || !timespan) return std::nullopt;
  const Calendar calendar = Calendar::current();
  if (!kWeekdays.contains(date->type)) {
    auto moved = sum(arguments[0], TokenFactory::timespanWith(*timespan)).datestampValue();
    if (!moved) return std::nullopt;
    const bool tellsTime = calendarComponentsRepresentedBy(moved->type).contains(Component::hour);
    if (!tellsTime) moved->type = DatestampType::dayMonthYearAndWeekday;
    return EvaluationResult::date(*moved);
  }
  const auto moment = calendar.dateByAdding(timespan->dateComponents, Date::now());
  if (!moment) return std::nullopt;
  const std::int64_t weekday = calendar.component(Component::weekday, date->date);
  const Date endOfDayBefore = calendar.startOfDay(*moment).addingTimeInterval(-1);
  const auto day = calendar.nextDate(endOfDayBefore, {.weekday = weekday});
  if (!day) return std::nullopt;
  return EvaluationResult::date(
      {.date = *day, .type = DatestampType::dayMonthYearAndWeekday, .timezone = calendar.timeZone()});
}

// --- Numbers and names of days -------------------------------------------------------------------------------------

Answer dayNumber(Date date) { return whole(Calendar::current().ordinalityOf(Component::day, Component::year, date)); }

Answer weekNumber(Date date) {
  return whole(Calendar(Calendar::Identifier::gregorian).component(Component::weekOfYear, date));
}

/// The day that the phrase asks about: a date, or a time from now: "what day is it in 10 days".
std::optional<Datestamp> dayAskedFor(const Token& token) {
  if (token.is(TokenType::datestamp)) return token.datestampValue();
  const auto timespan = token.timespanValue();
  const auto moment = timespan ? Calendar::current().dateByAdding(timespan->dateComponents, Date::now()) : std::nullopt;
  if (!moment) return std::nullopt;
  return Datestamp{.date = *moment, .type = DatestampType::weekDay, .timezone = Calendar::current().timeZone()};
}

Answer dayOfWeek(Arguments arguments) {
  if (arguments.empty() || arguments.size() > 2) return std::nullopt;
  if (arguments.size() == 2 && !arguments[0].is(TokenType::dateWord)) return std::nullopt;
  auto date = dayAskedFor(arguments.back());
  if (!date) return std::nullopt;
  date->type = DatestampType::weekDay;
  date->specialDayType = std::nullopt;
  date->dateFormatTemplate = std::nullopt;
  return EvaluationResult::date(*date);
}

/// In whole seconds, since that is how timestamps are written. The phrase may name the moment: "unix time now".
Answer timestampOf(Arguments arguments) {
  const auto date = onlyDateOf(arguments);
  if (!arguments.empty() && !date) return std::nullopt;
  const double seconds = (date ? date->date : Date::now()).timeIntervalSince1970();
  return EvaluationResult::timestamp({Decimal::fromDouble(std::floor(seconds))});
}

Answer evaluateDateTimeFunction(FunctionIdentifier identifier, Arguments arguments,
                                const EngineCustomization& customization) {
  switch (identifier) {
    case timeInTimezone:
      return nowIn(arguments, /*asksForDay=*/false);
    case dateInTimezone:
      return nowIn(arguments, /*asksForDay=*/true);
    case differenceBetweenTimezones:
      return differenceBetween(arguments);
    case generateTimestamp:
      return timestampOf(arguments);
    case calendarUnitBetweenDates:
      return unitsBetweenDates(arguments, /*isInclusive=*/false, customization);
    case inclusiveCalendarUnitBetweenDates:
      return unitsBetweenDates(arguments, /*isInclusive=*/true, customization);
    case inclusiveIntervalBetweenDates:
      return inclusiveInterval(arguments, customization);
    case calendarUnitToDate:
      return unitsToDate(arguments, customization);
    case calendarUnitToDatespan:
      return unitsToDatespan(arguments, customization);
    case calendarUnitSinceDate:
      return unitsSinceDate(arguments, customization);
    case calendarUnitInDate:
      return unitsInDate(arguments, customization);
    case calendarUnitLeftInDate:
      return unitsLeftInDate(arguments, customization);
    case calendarUnitInDatespan:
      return unitsInDatespan(arguments, customization);
    case calendarUnitExpressionAgo:
      return ago(arguments, customization);
    case calendarUnitExpressionBeforeDate:
      return shifted(arguments, /*isForward=*/false);
    case calendarUnitExpressionAfterDate:
      return shifted(arguments, /*isForward=*/true);
    case halfwayBetweenDates:
      return halfway(arguments);
    case weekdayAfterTimespan:
      return weekdayAfter(arguments);
    case dayOfWeekOnDate:
      return dayOfWeek(arguments);
    case dayNumberOnDate: {
      const auto date = onlyDateOf(arguments);
      return date ? dayNumber(date->date) : std::nullopt;
    }
    case weekNumberOnDate: {
      const auto date = onlyDateOf(arguments);
      return date ? weekNumber(date->date) : std::nullopt;
    }
    case dayOfYear:
      return arguments.empty() ? dayNumber(Date::now()) : std::nullopt;
    case weekOfYear:
      return arguments.empty() ? weekNumber(Date::now()) : std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kDateTimeFunctionHandler{kHandled, evaluateDateTimeFunction};

}  // namespace tavrine
