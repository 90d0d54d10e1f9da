#include <variant>

#include "Foundation/Calendar.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

/// Dates among themselves and with everything that lasts.
namespace tavrine::pairs {

namespace {

using Sub = TokenSubType;
using Component = Calendar::Component;

bool isSum(Sub operation) { return operation == Sub::additionOperator || operation == Sub::subtractionOperator; }

UnitSum sumOf(Sub operation) { return operation == Sub::additionOperator ? UnitSum::addition : UnitSum::subtraction; }

/// The environment that the date was read in, on the clocks of the date's zone: a day there is a day of the result.
CalendarEnvironment environmentOf(const Token& token, const Datestamp& datestamp) {
  const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
  if (metadata == nullptr) return CalendarEnvironment(Calendar::current().in(datestamp.timezone));
  const CalendarEnvironment& environment = metadata->environment;
  if (environment.calendar().timeZone() == datestamp.timezone) return environment;
  return CalendarEnvironment(environment.calendar().in(datestamp.timezone), environment.holidays());
}

/// Nothing for what isn't earlier than the date in the end, and beyond the limits of the calendar.
std::optional<Date> datesBack(const CalendarEnvironment& environment, const DateComponents& components, Date from) {
  const auto opposite = negated(components);
  const auto date = opposite ? environment.calendar().dateByAdding(*opposite, from) : std::nullopt;
  return date && *date <= from ? date : std::nullopt;
}

std::optional<Date> moved(const CalendarEnvironment& environment, const Timespan& timespan, Date date, Sub operation) {
  const auto workdays = workdaysOf(timespan);
  const bool isAddition = operation == Sub::additionOperator;
  if (!workdays) {
    return isAddition ? environment.calendar().dateByAdding(timespan.dateComponents, date)
                      : datesBack(environment, timespan.dateComponents, date);
  }
  // More than the calendar has: a walk would end anywhere.
  constexpr std::int64_t mostWorkdays = 1'000'000'000;
  if (*workdays > mostWorkdays) return std::nullopt;
  return isAddition ? dateByAddingWorkdays(environment, *workdays, date)
                    : dateBySubtractingWorkdays(environment, *workdays, date);
}

/// How the date is to be shown that lies a duration away from one that was written in some way.
DatestampType typeOfMoved(DatestampType type, Date date, const Timespan& timespan, Sub operation) {
  if (type == DatestampType::clockTime && !isWithinADayOfNow(date)) {
    return DatestampType::dayMonthYearWithClockTimeDownToMinutes;
  }
  const bool tellsTime = calendarComponentsRepresentedBy(type).contains(Component::hour);
  if (!tellsTime && haveTimeComponent(timespan.dateComponents)) return appropriateDatestampType(timespan);
  const bool leavesWeek = operation == Sub::additionOperator && type == DatestampType::weekDay &&
                          !Calendar::current().isDateEqualTo(date, Date::now(), Component::weekOfYear);
  return leavesWeek ? DatestampType::dayMonthYearAndWeekday : type;
}

Token rebuilt(const Token& token, Datestamp datestamp, Date date, DatestampType type) {
  const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
  datestamp.date = date;
  datestamp.type = type;
  datestamp.specialDayType = std::nullopt;
  datestamp.dateFormatTemplate = std::nullopt;
  return TokenFactory::datestampWith(
      datestamp, metadata != nullptr ? metadata->environment : CalendarEnvironment(Calendar::current()));
}

Answer datestampFirst(const Token& token, const Timespan& timespan, Sub operation) {
  const auto datestamp = token.datestampValue();
  if (!datestamp) return std::nullopt;
  const auto date = moved(environmentOf(token, *datestamp), timespan, datestamp->date, operation);
  if (!date) return std::nullopt;
  return rebuilt(token, *datestamp, *date, typeOfMoved(datestamp->type, *date, timespan, operation));
}

/// "3 hours + 2 pm": the time of day counts as a duration.
Answer timespanFirst(const Timespan& timespan, const Datestamp& datestamp, Sub operation) {
  const auto timeOfDay = timespanOf(datestamp);
  if (!timeOfDay) return std::nullopt;
  return TokenFactory::timespanWith(summed(timespan, *timeOfDay, sumOf(operation)));
}

Token asDatestamp(const Token& token) {
  const auto datestamp = token.datestampValue();
  return datestamp ? TokenFactory::datestampWith(*datestamp, CalendarEnvironment(Calendar::current())) : Token();
}

Answer asIso8601(const Answer& result) {
  const auto datestamp = result ? result->datestampValue() : std::nullopt;
  return datestamp ? TokenFactory::iso8601With(*datestamp) : Token();
}

}  // namespace

Answer datestampsPair(const PairOperands& operands) {
  const auto first = operands.firstToken.datestampValue();
  const auto second = operands.secondToken.datestampValue();
  if (!first || !second) return Token();
  if (operands.operation() == Sub::additionOperator) return TokenFactory::timespanWith(*first + *second);
  if (operands.operation() == Sub::subtractionOperator) {
    const DatestampDifference difference = *first - *second;
    if (const auto* timespan = std::get_if<Timespan>(&difference)) return TokenFactory::timespanWith(*timespan);
    return tokenOf(std::get<UnitExpression>(difference));
  }
  if (const auto truth = comparison(first->date, second->date, operands.operation())) {
    return TokenFactory::booleanWith(*truth);
  }
  return Token();
}

Answer datestampAndTimespanPair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::datestamp);
  const auto timespan = operands.operandOf(TokenType::timespan).timespanValue();
  if (!timespan || !isSum(operands.operation())) return std::nullopt;
  if (operands.firstIs(TokenType::datestamp)) return datestampFirst(token, *timespan, operands.operation());
  const auto datestamp = token.datestampValue();
  return datestamp ? timespanFirst(*timespan, *datestamp, operands.operation()) : std::nullopt;
}

Answer datestampAndLaptimePair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::datestamp);
  const auto datestamp = token.datestampValue();
  const auto laptime = operands.operandOf(TokenType::laptime).laptimeValue();
  if (!datestamp || !laptime || !isSum(operands.operation())) return std::nullopt;
  if (operands.operation() == Sub::additionOperator && operands.firstIs(TokenType::laptime)) {
    const auto timeOfDay = timespanOf(*datestamp);
    if (!timeOfDay) return std::nullopt;
    const auto seconds = laptimeReadingOf(*timeOfDay);
    return laptimeTokenOf(totalSecondsOf(*laptime) + (seconds ? totalSecondsOf(*seconds) : Decimal(0)));
  }
  const Timespan timespan{dateComponentsOf(*laptime), std::nullopt};
  const auto date = moved(environmentOf(token, *datestamp), timespan, datestamp->date, operands.operation());
  return date ? Answer(rebuilt(token, *datestamp, *date, datestamp->type)) : std::nullopt;
}

Answer datestampAndFrametimePair(const PairOperands& operands) {
  const auto datestamp = operands.operandOf(TokenType::datestamp).datestampValue();
  const auto timeOfDay = datestamp ? timespanOf(*datestamp) : std::nullopt;
  if (!timeOfDay) return std::nullopt;
  return handedOver(durationAndFrametimePair, operands, TokenType::datestamp, TokenFactory::timespanWith(*timeOfDay));
}

Answer datestampAndUnitExpressionPair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::unitExpression);
  const UnitExpression expression = quantityOf(token);
  const auto timespan = timespanOf(expression);
  if (timespan) {
    return datestampAndTimespanPair(
        {operands.operandOf(TokenType::datestamp), TokenFactory::timespanWith(*timespan), operands.operatorToken});
  }
  // A time that no calendar reaches leads to no date.
  return measuresTime(expression.unit) ? Token() : token;
}

Answer iso8601Pair(const PairOperands& operands) {
  return datestampsPair({asDatestamp(operands.firstToken), asDatestamp(operands.secondToken), operands.operatorToken});
}

Answer iso8601AndUnitExpressionPair(const PairOperands& operands) {
  const UnitExpression expression = quantityOf(operands.operandOf(TokenType::unitExpression));
  if (expression.unit.unitType() != UnitType::duration) return std::nullopt;
  const auto timespan = timespanOf(expression);
  if (!timespan) return Token();
  return asIso8601(datestampAndTimespanPair({asDatestamp(operands.operandOf(TokenType::iso8601)),
                                             TokenFactory::timespanWith(*timespan), operands.operatorToken}));
}

Answer iso8601AndTimespanPair(const PairOperands& operands) {
  return asIso8601(datestampAndTimespanPair({asDatestamp(operands.operandOf(TokenType::iso8601)),
                                             operands.operandOf(TokenType::timespan), operands.operatorToken}));
}

}  // namespace tavrine::pairs
