#include "TavrineCore/Parsing/Helpers/AmbiguousDatestampIntervalResolver.h"

#include <cmath>

#include "Foundation/Calendar.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"

namespace tavrine {

namespace {

using Component = Calendar::Component;
using Type = DatestampType;

/// Those that say no year.
constexpr DatestampTypeSet kOpenTypes{Type::clockTime,      Type::nakedDayOfMonth, Type::nakedMonth,
                                      Type::dayAndMonth,    Type::weekDay,         Type::weekdayWithClockTime,
                                      Type::relativeWeekday};
/// Those that lie where they lie.
constexpr DatestampTypeSet kSettledTypes{Type::monthAndYear, Type::dayMonthYear, Type::nextYear, Type::lastYear,
                                         Type::thisYear};

bool tellsTimeOfDay(Type type) { return calendarComponentsRepresentedBy(type).contains(Component::hour); }

Date withTimeOfDay(const Datestamp& datestamp, const DatestampTimeConstrait& constraint) {
  using Kind = DatestampTimeConstrait::Kind;
  const Date date = datestamp.date;
  if (tellsTimeOfDay(datestamp.type)) return date;
  const auto startOfDay = [date] { return Calendar::current().startOfDay(date); };
  switch (constraint.kind) {
    case Kind::matchTimeOf:
      return sameTimeAs(constraint.date, date).value_or(date);
    // From "yesterday" on and up to "tomorrow": the day itself isn't meant.
    case Kind::pushToDayEnd:
      return datestamp.type == Type::tomorrow ? startOfDay() : endOfDay(date);
    case Kind::pullToDayStart:
      return datestamp.type == Type::yesterday ? endOfDay(date) : startOfDay();
    case Kind::none:
      return date;
  }
  return date;
}

Date moved(Component component, std::int64_t by, Date date) {
  return Calendar::current().dateByAdding(component, by, date).value_or(date);
}

Date movedAfter(Date limit, Type type, Date date) {
  const Calendar calendar = Calendar::current();
  if (limit < date) return date;
  if (!tellsTimeOfDay(type) && calendar.isDateInToday(date) && calendar.isDateInToday(limit)) return date;
  switch (type) {
    case Type::weekDay:
    case Type::weekdayWithClockTime:
    case Type::relativeWeekday:
      return moved(Component::weekOfYear, 1, date);
    case Type::today:
    case Type::tomorrow:
    case Type::yesterday:
      return date;
    case Type::clockTime:
      return moved(Component::day, 1, date);
    default:
      return moved(Component::year, 1, date);
  }
}

Date movedBefore(Date limit, Type type, Date date) {
  if (date < limit || std::abs(date.timeIntervalSince(limit)) < 1) return date;
  const bool isWeekday = type == Type::weekDay || type == Type::weekdayWithClockTime;
  return moved(isWeekday ? Component::weekOfYear : Component::year, -1, date);
}

}  // namespace

Datestamp resolve(const Datestamp& datestamp, const DatestampTimeConstrait& timeConstraint,
                  const RelativeDatestampConstraint& relativeConstraint) {
  using Kind = RelativeDatestampConstraint::Kind;
  Datestamp result = datestamp;
  result.date = withTimeOfDay(datestamp, timeConstraint);
  if (kSettledTypes.contains(datestamp.type)) return result;
  if (relativeConstraint.kind == Kind::after) {
    result.date = movedAfter(relativeConstraint.date, datestamp.type, result.date);
  } else if (relativeConstraint.kind == Kind::before) {
    result.date = movedBefore(relativeConstraint.date, datestamp.type, result.date);
  }
  return result;
}

std::optional<Datestamp> resolveDatestampWith(const Token& token, const DatestampTimeConstrait& timeConstraint,
                                              const RelativeDatestampConstraint& relativeConstraint) {
  const std::optional<Datestamp> datestamp = token.datestampValue();
  if (!datestamp) return std::nullopt;
  return resolve(*datestamp, timeConstraint, relativeConstraint);
}

DatestampResolutionDirection AmbiguousDatestampIntervalResolver::resolutionDirection() const {
  using enum DatestampResolutionDirection;
  const Type firstType = firstDatestamp_.type;
  const Type secondType = secondDatestamp_.type;
  const bool secondIsOpen = kOpenTypes.contains(secondType);
  if (!secondIsOpen && !kOpenTypes.contains(firstType)) return none;
  if (firstType == Type::dayAndMonth && secondType == Type::dayAndMonth) {
    const Calendar calendar = Calendar::current();
    const bool isSameMonth = calendar.component(Component::month, firstDatestamp_.date) ==
                             calendar.component(Component::month, secondDatestamp_.date);
    if (isSameMonth) return firstDatestamp_ == secondDatestamp_ ? second : first;
  }
  return secondIsOpen ? second : first;
}

std::optional<AmbiguousDatestampIntervalResolver::Interval> AmbiguousDatestampIntervalResolver::resolvedDatestamps()
    const {
  using Kind = RelativeDatestampConstraint::Kind;
  switch (resolutionDirection()) {
    case DatestampResolutionDirection::first:
      return Interval{resolve(firstDatestamp_, timeConstraint_, {Kind::before, secondDatestamp_.date}),
                      resolve(secondDatestamp_, timeConstraint_, {})};
    case DatestampResolutionDirection::second:
      return Interval{resolve(firstDatestamp_, timeConstraint_, {}),
                      resolve(secondDatestamp_, timeConstraint_, {Kind::after, firstDatestamp_.date})};
    case DatestampResolutionDirection::none:
      break;
  }
  if (firstDatestamp_.type != Type::now || secondDatestamp_.type != Type::tomorrow) return std::nullopt;
  return Interval{firstDatestamp_, resolve(secondDatestamp_, {DatestampTimeConstrait::Kind::pullToDayStart}, {})};
}

}  // namespace tavrine
