#include "TavrineCore/Parsing/Squad/DateParser.h"

#include <memory>
#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"

namespace tavrine {

void DateParser::identifyDateComponentsIn(TokenList& tokenList) const {
  // Each step counts on those before it: digits with a time word are no days of a month, "tuesday" is a piece when
  // "next week tuesday" is looked for.
  identifyClockTimesIn(tokenList);
  const bool holdsDateWords = tokenList.typePrecheck(TokenType::dateWord);
  if (holdsDateWords) identifyMonthsAndYearsIn(tokenList);
  identifySandwichDatesIn(tokenList);
  if (holdsDateWords) identifyRelativeDatesIn(tokenList);
  identifySpecialDaysIn(tokenList);
  identifyNextAndThisAndLastDurationUnitsIn(tokenList);
  identifyNakedYearsAroundConverters(tokenList);
  identifyNakedYearPlusOrMinusThenTimespan(tokenList);
  if (holdsDateWords) identifyNakedMonthPlusOrMinusThenTimespan(tokenList);
  identifyRelevantLaptimesIn(tokenList);
}

void replaceRunByComponents(TokenList& list, std::size_t first, std::size_t last,
                            DateComponentsTokenMetadata metadata) {
  const TokenSlice slice = list.slice(first, last);
  list.replaceRun(first, last,
                  Token(TokenType::dateComponents, TokenSubType::notSpecified, slice.stringValue(), slice.range(),
                        nullptr, std::make_shared<const DateComponentsTokenMetadata>(std::move(metadata))));
}

void fillInMissingComponents(DateComponents& components, DatestampType type, const Calendar& calendar, Date now) {
  using Component = Calendar::Component;
  const auto currentYear = [&] { return calendar.component(Component::year, now); };
  const auto fill = [](std::optional<std::int64_t>& field, auto value) {
    if (!field) field = value();
  };
  const auto startDay = [&] {
    components.minute = 0;
    components.hour = 0;
  };
  switch (type) {
    case DatestampType::nakedMonth:
      components.hour = 12;
      components.day = 1;
      components.year = currentYear();
      return;
    case DatestampType::nakedYear:
    case DatestampType::nextYear:
    case DatestampType::lastYear:
    case DatestampType::thisYear:
      startDay();
      components.day = 1;
      components.month = 1;
      return;
    case DatestampType::monthAndYear:
    case DatestampType::nextMonth:
    case DatestampType::lastMonth:
    case DatestampType::thisMonth:
      startDay();
      components.day = 1;
      return;
    case DatestampType::nextWeek:
    case DatestampType::lastWeek:
    case DatestampType::thisWeek:
      startDay();
      // The first week of a year may begin in the one before: the year that weeks are counted in tells it.
      fill(components.yearForWeekOfYear, [&] { return calendar.component(Component::yearForWeekOfYear, now); });
      fill(components.weekday, [&] { return calendar.firstWeekday(); });
      return;
    case DatestampType::quarter:
      fill(components.year, currentYear);
      return;
    default:
      break;
  }
  fill(components.hour, [] { return 12; });
  fill(components.minute, [] { return 0; });
  // A weekday finds its own day, but "Friday 12 June" needs a year.
  const bool tellsDay = components.day && components.month;
  if (type == DatestampType::weekDay || (components.weekday && !tellsDay)) return;
  fill(components.year, currentYear);
  if (components.weekOfYear) return;
  fill(components.month, [&] { return calendar.component(Component::month, now); });
  fill(components.day, [&] { return calendar.component(Component::day, now); });
}

bool isDurationUnit(const Token* token) {
  return token != nullptr && token->is(TokenType::unit) && isUnitOfType(*token, UnitType::duration);
}

bool tellsTime(const DateComponents& components) { return haveTimeComponent(components); }

}  // namespace tavrine
