// Dates told from today: "tomorrow", "noon", "next month", "next week tuesday", and the special days.

#include <cstddef>
#include <optional>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/SpecialDayDates.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"

namespace tavrine {

namespace {

using Component = Calendar::Component;
using Type = DatestampType;

constexpr Calendar::ComponentSet kDay{Component::year, Component::month, Component::day};
constexpr Calendar::ComponentSet kMoment{Component::year, Component::month,  Component::day,
                                         Component::hour, Component::minute, Component::second};

/// Where a qualifier leads from now: back, nowhere, on.
std::optional<int> stepOf(TokenSubType qualifier) {
  switch (qualifier) {
    case TokenSubType::dateQualifierPrevious:
      return -1;
    case TokenSubType::dateQualifierThis:
      return 0;
    case TokenSubType::dateQualifierNext:
      return 1;
    default:
      return std::nullopt;
  }
}

std::optional<int> stepOf(const Token* qualifier) {
  if (qualifier == nullptr || !qualifier->is(TokenType::dateQualifier)) return std::nullopt;
  return stepOf(qualifier->subType);
}

/// "next" and "month" → `nextMonth`.
Type relativeType(Component component, int step) {
  const auto of = [step](Type last, Type present, Type next) {
    if (step == 0) return present;
    return step < 0 ? last : next;
  };
  switch (component) {
    case Component::year:
      return of(Type::lastYear, Type::thisYear, Type::nextYear);
    case Component::month:
      return of(Type::lastMonth, Type::thisMonth, Type::nextMonth);
    case Component::weekOfYear:
      return of(Type::lastWeek, Type::thisWeek, Type::nextWeek);
    default:
      return Type::unspecified;
  }
}

/// What is told of the moment. A month needs its year, and a week the year that it is counted in.
Calendar::ComponentSet componentsKept(Component component) {
  switch (component) {
    case Component::year:
      return {Component::year};
    case Component::month:
      return {Component::year, Component::month};
    case Component::weekOfYear:
      return {Component::weekOfYear, Component::yearForWeekOfYear};
    case Component::day:
    case Component::weekday:
      return kDay;
    default:
      return kMoment;
  }
}

std::optional<Date> moved(const Calendar& calendar, Date now, Component component, int step,
                          const EngineCustomization& customization) {
  if (component != Component::weekday) return calendar.dateByAdding(component, step, now);
  // Weekdays that are counted are workdays.
  const CalendarEnvironment environment(calendar, customization.holidays());
  if (step > 0) return dateByAddingWorkdays(environment, 1, now);
  auto day = calendar.dateByAdding(Component::day, -1, now);
  constexpr int kLongestHolidays = 60;
  for (int i = 0; day && i < kLongestHolidays && !isWorkday(environment, *day); ++i) {
    day = calendar.dateByAdding(Component::day, -1, *day);
  }
  return day;
}

/// The index of the weekday that the token is by itself.
std::optional<int> weekdayIn(const Token* token) {
  if (token == nullptr || !token->is(TokenType::dateComponents)) return std::nullopt;
  const auto* metadata = token->metadataAs<DateComponentsTokenMetadata>();
  if (metadata == nullptr || metadata->type != Type::weekDay || tellsTime(metadata->dateComponents))
    return std::nullopt;
  const auto weekday = metadata->dateComponents.weekday;
  return weekday ? std::optional(static_cast<int>(*weekday)) : std::nullopt;
}

}  // namespace

void DateParser::identifyRelativeDatesIn(TokenList& list) const {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::dateWord)) continue;
    const Calendar calendar = engineCustomization_.calendar();
    const auto dayFromNow = [&](int days) {
      const Date now = Date::now();
      return calendar.dateComponents(kDay, calendar.dateByAdding(Component::day, days, now).value_or(now));
    };
    switch (list[i].subType) {
      case TokenSubType::dateWordToday:
        replaceRunByComponents(list, i, i, {dayFromNow(0), Type::today});
        break;
      case TokenSubType::dateWordTomorrow:
        replaceRunByComponents(list, i, i, {dayFromNow(1), Type::tomorrow});
        break;
      case TokenSubType::dateWordYesterday:
        replaceRunByComponents(list, i, i, {dayFromNow(-1), Type::yesterday});
        break;
      case TokenSubType::dateWordNow:
        replaceRunByComponents(list, i, i, {calendar.dateComponents(kMoment, Date::now()), Type::now});
        break;
      case TokenSubType::dateWordMidday:
        replaceRunByComponents(list, i, i, {timeOfDay(12, 0), Type::clockTime});
        break;
      case TokenSubType::dateWordMidnight:
        replaceRunByComponents(list, i, i, {timeOfDay(0, 0), Type::clockTime});
        break;
      default:
        break;
    }
  }
}

// --- Special days ---------------------------------------------------------------------------------------------------

namespace {

/// The number of years behind "in" or a preposition: "christmas in 3 years".
struct YearsAhead {
  std::int64_t years;
  std::size_t lastIndex;
};

std::optional<YearsAhead> yearsAheadBehind(const TokenList& list, std::size_t day) {
  const auto word = list.indexAfter(day, /*ignoreWhitespace=*/true);
  if (!word || (!list[*word].is(TokenType::prepositionWord) &&
                !list[*word].is(TokenType::converterSymbol, TokenSubType::converterSymbolIn))) {
    return std::nullopt;
  }
  const auto number = list.indexAfter(*word, /*ignoreWhitespace=*/true);
  const auto value = number ? dateNumberIn(list[*number]) : std::nullopt;
  const auto unit = number ? list.indexAfter(*number, /*ignoreWhitespace=*/true) : std::nullopt;
  if (!value || !value->value.isWhole() || !unit || !list[*unit].is(TokenType::unit)) return std::nullopt;
  if (!isUnitWith(list[*unit], UnitIdentifier::years)) return std::nullopt;
  return YearsAhead{value->value.intValue(), *unit};
}

}  // namespace

void DateParser::identifySpecialDaysIn(TokenList& list) const {
  if (!list.typePrecheck(TokenType::specialDay) || !engineCustomization_.featureFlags().specialDays) return;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::specialDay)) continue;
    const auto* day = list[i].metadataAs<SpecialDayTokenMetadata>();
    const auto reading = day != nullptr ? specialDayReadingAt(list, i) : std::nullopt;
    if (!reading) continue;
    replaceRunByComponents(list, reading->first, reading->last,
                           {reading->components, reading->type, /*ambiguous=*/false, day->specialDayType});
    i = reading->first;
  }
}

std::optional<DateParser::Reading> DateParser::specialDayReadingAt(const TokenList& list, std::size_t day) const {
  const auto type = list[day].metadataAs<SpecialDayTokenMetadata>()->specialDayType;
  const Calendar calendar = engineCustomization_.calendar();
  // The days are named by the years of the Gregorian calendar, whatever the user's own.
  const Calendar gregorian(Calendar::Identifier::gregorian, calendar.locale(), calendar.timeZone());
  const Date now = Date::now();
  const std::int64_t currentYear = gregorian.component(Component::year, now);
  std::int64_t year = currentYear;
  const auto thisYears = dateOf(type, year, gregorian);
  if (!thisYears || *thisYears < gregorian.startOfDay(now)) ++year;

  Reading reading{day, day, {}, Type::specialDay};
  const auto before = list.indexBefore(day, /*ignoreWhitespace=*/true);
  const auto after = list.indexAfter(day, /*ignoreWhitespace=*/true,
                                     {TokenType::comma, TokenType::prepositionWord, TokenType::converterSymbol});
  if (const auto ahead = yearsAheadBehind(list, day)) {
    year += ahead->years;
    reading.last = ahead->lastIndex;
  } else if (const auto yearBehind = after ? definiteYearIn(&list[*after]) : std::nullopt) {
    year = *yearBehind;
    reading.last = *after;
  } else if (const auto yearBefore = before ? definiteYearIn(&list[*before]) : std::nullopt) {
    year = *yearBefore;
    reading.first = *before;
  } else if (const auto step = before ? stepOf(&list[*before]) : std::nullopt) {
    year = currentYear + *step;
    reading.first = *before;
  }
  const auto date = dateOf(type, year, gregorian);
  if (!date) return std::nullopt;
  reading.components = calendar.dateComponents(kDay, *date);
  return reading;
}

// --- "next month" ---------------------------------------------------------------------------------------------------

void DateParser::identifyNextAndThisAndLastDurationUnitsIn(TokenList& list) const {
  if (!list.typesPrecheck(TokenTypeSet::unitAndDateQualifier)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (i >= list.count() || !list[i].is(TokenType::dateQualifier)) continue;
    const auto reading = relativeUnitReadingAt(list, i);
    if (!reading) continue;
    i = reading->first;
    replaceRunByComponents(list, reading->first, reading->last, {reading->components, reading->type});
  }
}

std::optional<DateParser::Reading> DateParser::relativeUnitReadingAt(const TokenList& list,
                                                                     std::size_t qualifier) const {
  const auto unit = list.indexAfter(qualifier, /*ignoreWhitespace=*/true);
  if (!unit || !list[*unit].is(TokenType::unit)) return std::nullopt;
  const auto component = list[*unit].calendarComponentValue();
  const auto step = stepOf(list[qualifier].subType);
  if (!component || !step) return std::nullopt;
  const Calendar calendar = engineCustomization_.calendar();

  Reading reading{qualifier, *unit, {}, relativeType(*component, *step)};
  if (*component == Component::weekOfYear) {
    const auto before = list.indexBefore(qualifier, /*ignoreWhitespace=*/true);
    const auto after = list.indexAfter(*unit, /*ignoreWhitespace=*/true);
    auto weekday = after ? weekdayIn(&list[*after]) : std::nullopt;
    if (weekday) {
      reading.last = *after;
    } else if ((weekday = before ? weekdayIn(&list[*before]) : std::nullopt)) {
      reading.first = *before;
    }
    if (weekday) {
      const auto dayOfWeek = *step == 0 ? dayThisWeek : (*step < 0 ? dayLastWeek : dayNextWeek);
      const auto day = dayOfWeek(calendar, *weekday);
      if (!day) return std::nullopt;
      reading.components = calendar.dateComponents(kDay, *day);
      reading.type = Type::relativeWeekday;
      return reading;
    }
  }
  if (*step == 0 && reading.type == Type::unspecified) return std::nullopt;
  const Date now = Date::now();
  const auto date = *step == 0 ? now : moved(calendar, now, *component, *step, engineCustomization_);
  if (!date) return std::nullopt;
  reading.components = calendar.dateComponents(componentsKept(*component), *date);
  return reading;
}

}  // namespace tavrine
