// "in days", "as hours and minutes", "as laptime": durations in other forms.

#include <algorithm>
#include <optional>
#include <utility>

#include "Foundation/Calendar.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::conversions {

namespace {

using Component = Calendar::Component;

/// What the duration was measured from, or the dates of the span; a span that ends before it starts lasts nothing.
std::optional<DateInterval> calendarIntervalOf(const Token& operand) {
  if (const auto datespan = operand.datespanValue()) {
    return DateInterval(std::min(datespan->startDate, datespan->endDate), datespan->endDate);
  }
  const auto timespan = operand.is(TokenType::timespan) ? operand.timespanValue() : std::nullopt;
  return timespan ? timespan->representedInterval : std::nullopt;
}

CalendarEnvironment environmentOf(const Token& operand) {
  const auto* metadata = operand.metadataAs<DatespanTokenMetadata>();
  const bool isGiven = metadata != nullptr && metadata->calendarEnvironment;
  return isGiven ? *metadata->calendarEnvironment : CalendarEnvironment(Calendar::current());
}

Token orMismatch(std::optional<Token> token) {
  return token ? *std::move(token) : errorToken(EvaluationError::UnitMismatch);
}

/// By the calendar: from 1 March to 1 April it is one month.
Token intervalInto(const TCUnit& toUnit, const DateInterval& interval, const CalendarEnvironment& environment) {
  const auto component = calendarUnitOf(toUnit.identifier());
  if (!component) return Token();
  const auto counted = [&](std::int64_t value) {
    return TokenFactory::unitExpressionWith(Decimal(value), toUnit, /*prefersCompoundFormatting=*/false);
  };
  switch (*component) {
    case Component::weekday:
      return counted(workdaysBetween(environment, interval.start(), interval.end()));
    case Component::second:
    case Component::day:
    case Component::month:
    case Component::weekOfYear:
    case Component::year: {
      const auto parts = environment.calendar().dateComponents({*component}, interval.start(), interval.end());
      const auto value = valueOf(parts, *component);
      return value ? counted(*value) : Token();
    }
    default:
      return orMismatch(convertedQuantity(inSeconds(Decimal::fromDouble(interval.duration())), toUnit));
  }
}

/// No time at all has the smallest component only: with several that are zero it would show nothing.
DateComponents withZeroToShow(const DateComponents& components) {
  DateComponents smallest;
  for (const Component component : orderedTavrineSupportedComponents) {
    const auto value = valueOf(components, component);
    if (value.value_or(0) != 0) return components;
    if (!value || component == Component::nanosecond) continue;
    smallest = {};
    setValueOf(smallest, component, 0);
  }
  return smallest;
}

Token timespanToken(const DateComponents& components) {
  if (components == DateComponents{}) return Token();
  return TokenFactory::timespanWith({withZeroToShow(components), std::nullopt});
}

/// In seconds, from which all components are split; an error where the operand is no time.
Token secondsOf(const Token& operand) { return intoUnit(operand, unitOf(UnitIdentifier::seconds)); }

Token splitInto(const CalendarComponentSet& components, const Token& seconds) {
  if (seconds.errorValue()) return seconds;
  return timespanToken(dateComponentsIn(inSeconds(seconds.decimalValue()), false, components));
}

/// One routine for all pairs of units: a measured duration by the calendar, anything else by its length.
Token intoCompoundTime(const Token& operand, const CalendarComponentSet& components) {
  if (const auto interval = calendarIntervalOf(operand)) {
    const CalendarEnvironment environment = environmentOf(operand);
    return timespanToken(environment.calendar().dateComponents(components, interval->start(), interval->end()));
  }
  if (operand.is(TokenType::datestamp)) {
    const auto datestamp = operand.datestampValue();
    const auto timeOfDay = datestamp ? timespanOf(*datestamp) : std::nullopt;
    return timeOfDay ? splitInto(components, secondsOf(TokenFactory::timespanWith(*timeOfDay))) : Token();
  }
  const Token result = splitInto(components, secondsOf(operand));
  return result.is(TokenType::error) ? Token() : result;
}

}  // namespace

Token timespanIntoUnit(const ConverterOperands& operands) {
  const std::optional<TCUnit> toUnit = operands.converter.unitValue();
  if (!toUnit || !measuresTime(*toUnit)) return Token();
  if (const auto interval = calendarIntervalOf(operands.operand)) {
    return intervalInto(*toUnit, *interval, environmentOf(operands.operand));
  }
  const auto timespan = operands.operand.timespanValue();
  return orMismatch(convertedQuantity(timespan ? unitExpressionValue(*timespan) : inSeconds(0), *toUnit));
}

Token intoTimespan(const ConverterOperands& operands) {
  const Token& operand = operands.operand;
  if (operand.is(TokenType::datestamp)) {
    const auto datestamp = operand.datestampValue();
    const auto timeOfDay = datestamp ? timespanOf(*datestamp) : std::nullopt;
    return timeOfDay ? TokenFactory::timespanWith(*timeOfDay) : Token();
  }
  if (operand.is(TokenType::laptime) || operand.is(TokenType::frametime)) {
    const auto reading = laptimeReadingOf(operand);
    return reading ? TokenFactory::timespanWith({dateComponentsOf(*reading), std::nullopt}) : Token();
  }
  if (const auto interval = calendarIntervalOf(operand)) {
    const Calendar calendar = Calendar::current();
    return timespanToken(calendar.dateComponents(timespanCalendarComponets, interval->start(), interval->end()));
  }
  return splitInto(timespanCalendarComponets, secondsOf(operand));
}

Token intoYearsAndMonths(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::year, Component::month});
}

Token intoMonthsAndWeeks(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::month, Component::weekOfYear});
}

Token intoMonthsAndDays(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::month, Component::day});
}

Token intoWeeksAndDays(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::weekOfYear, Component::day});
}

Token intoDaysAndHours(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::day, Component::hour});
}

Token intoHoursAndMinutes(const ConverterOperands& operands) {
  return intoCompoundTime(operands.operand, {Component::hour, Component::minute});
}

Token intoLaptime(const ConverterOperands& operands) {
  const auto reading = laptimeReadingOf(operands.operand);
  return reading ? TokenFactory::laptimeWith(*reading) : Token();
}

}  // namespace tavrine::conversions
