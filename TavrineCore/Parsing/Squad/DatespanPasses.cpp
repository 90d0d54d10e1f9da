// Dates beside dates: spans such as "3 - 5 March", and dates without a year that have to come before or after others.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Parsing/Helpers/AmbiguousDatestampIntervalResolver.h"
#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Squad/DateNumbers.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

using Component = Calendar::Component;

const Datestamp* datestampIn(const Token& token) {
  const auto* metadata = token.is(TokenType::datestamp) ? token.metadataAs<DatestampTokenMetadata>() : nullptr;
  return metadata != nullptr ? &metadata->datestamp : nullptr;
}

/// The same words, meaning another moment.
Token withDatestamp(const Token& token, Datestamp datestamp) {
  const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
  Token result = token;
  result.metadata = std::make_shared<const DatestampTokenMetadata>(std::move(datestamp), metadata->creation_stamp,
                                                                   metadata->environment, metadata->place);
  return result;
}

CalendarEnvironment environmentOf(const PassContext& context) {
  return CalendarEnvironment(Calendar::current(), context.customization.holidays());
}

// --- Spans of days --------------------------------------------------------------------------------------------------

/// A date and the number that is joined to it: "3 - 5 March", "5 March to 7".
struct JoinedNumber {
  std::size_t number;
  std::size_t date;
  bool joinedByDash;
};

bool isDash(const Token& token) { return token.is(TokenType::operator_, TokenSubType::subtractionOperator); }
bool saysTo(const Token& token) { return token.is(TokenType::converterSymbol, TokenSubType::converterSymbolTo); }

std::optional<std::size_t> numberBehind(const TokenList& list, std::size_t date, bool (*isJoint)(const Token&)) {
  const auto joint = list.indexAfter(date, /*ignoreWhitespace=*/true);
  if (!joint || !isJoint(list[*joint])) return std::nullopt;
  const auto number = list.indexAfter(*joint, /*ignoreWhitespace=*/true);
  return number && list[*number].is(TokenType::number) ? number : std::nullopt;
}

std::optional<std::size_t> numberInFront(const TokenList& list, std::size_t date, bool (*isJoint)(const Token&)) {
  const auto joint = list.indexBefore(date, /*ignoreWhitespace=*/true);
  if (!joint || !isJoint(list[*joint])) return std::nullopt;
  const auto number = list.indexBefore(*joint, /*ignoreWhitespace=*/true);
  return number && list[*number].is(TokenType::number) ? number : std::nullopt;
}

std::optional<JoinedNumber> numberJoinedTo(const TokenList& list, std::size_t date) {
  if (const auto number = numberInFront(list, date, isDash)) return JoinedNumber{*number, date, true};
  if (const auto number = numberBehind(list, date, isDash)) return JoinedNumber{*number, date, true};
  if (const auto number = numberBehind(list, date, saysTo)) return JoinedNumber{*number, date, false};
  if (datestampIn(list[date])->type == DatestampType::nakedMonth) return std::nullopt;
  if (const auto number = numberInFront(list, date, saysTo)) return JoinedNumber{*number, date, false};
  return std::nullopt;
}

std::optional<std::int64_t> wholeNumberIn(const Token& token, std::int64_t lowest, std::int64_t highest) {
  const auto value = token.ownDecimalValue();
  if (!value || !value->isWhole() || *value < Decimal(lowest) || *value > Decimal(highest)) return std::nullopt;
  return value->intValue();
}

/// Another day of the date's month, at its time of day; absent where the month has no such day.
std::optional<Date> dayInMonthOf(Date date, const Token& number) {
  const Calendar calendar = Calendar::current();
  const auto days = calendar.rangeOf(Component::day, Component::month, date);
  const auto day = days ? wholeNumberIn(number, days->lower, days->upper - 1) : std::nullopt;
  if (!day) return std::nullopt;
  DateComponents components = calendar.dateComponents(tavrineSupportedComponents, date);
  components.day = day;
  // These tell the old day.
  components.weekday = std::nullopt;
  components.weekOfYear = std::nullopt;
  return calendar.dateFrom(components);
}

bool tellsDayOrMonth(DatestampType type) {
  const CalendarComponentSet& told = calendarComponentsRepresentedBy(type);
  return told.contains(Component::day) || told.contains(Component::month);
}

/// From the earlier of the two days to the later, on whichever side each stands. Gives the index of the span.
std::optional<std::size_t> wrapDatespan(TokenList& list, const JoinedNumber& joined, const PassContext& context) {
  const Date date = datestampIn(list[joined.date])->date;
  const auto otherDate = dayInMonthOf(date, list[joined.number]);
  if (!otherDate) return std::nullopt;
  const bool numberIsLeft = joined.number < joined.date;
  const Datespan span{std::min(date, *otherDate), std::max(date, *otherDate), DatespanType::dateInterval,
                      DatespanSubtype::notSpecified};
  const std::size_t first = numberIsLeft ? joined.number : joined.date;
  const std::size_t last = numberIsLeft ? joined.date : joined.number;
  auto metadata = std::make_shared<const DatespanTokenMetadata>(span, environmentOf(context), Date::now());
  list.replaceRun(first, last,
                  list.slice(first, last)
                      .embedInContainerToken(TokenType::datespan, TokenSubType::notSpecified, std::move(metadata)));
  return first;
}

/// "today - 2020": the number is the start of that year.
void readAsYear(TokenList& list, std::size_t number, const PassContext& context) {
  const auto value = dateNumberIn(list[number]);
  const auto year = value ? recentYear(*value) : std::nullopt;
  if (!year) return;
  const Calendar calendar = Calendar::current();
  DateComponents components;
  components.year = year;
  fillInMissingComponents(components, DatestampType::nakedYear, calendar, Date::now());
  const auto date = calendar.dateFrom(components);
  if (!date) return;
  auto metadata = std::make_shared<const DatestampTokenMetadata>(
      Datestamp{.date = *date, .type = DatestampType::nakedYear, .timezone = calendar.timeZone()}, Date::now(),
      environmentOf(context));
  list.replaceAt(number,
                 list.slice(number, number)
                     .embedInContainerToken(TokenType::datestamp, TokenSubType::notSpecified, std::move(metadata)));
}

// --- Dates that have to come in order -------------------------------------------------------------------------------

bool isTimeOfDay(const Datestamp& datestamp) {
  return datestamp.type == DatestampType::clockTime || datestamp.type == DatestampType::now;
}

constexpr DatestampTimeConstrait kFromStartOfDay{DatestampTimeConstrait::Kind::pullToDayStart};

void orderDatesBesideMinus(TokenList& list, std::size_t minus) {
  const auto left = list.indexBefore(minus, /*ignoreWhitespace=*/true);
  const auto right = list.indexAfter(minus, /*ignoreWhitespace=*/true);
  const Datestamp* first = left ? datestampIn(list[*left]) : nullptr;
  const Datestamp* second = right ? datestampIn(list[*right]) : nullptr;
  if (first == nullptr || second == nullptr || (isTimeOfDay(*first) && isTimeOfDay(*second))) return;
  auto resolved = AmbiguousDatestampIntervalResolver(*first, *second, kFromStartOfDay).resolvedDatestamps();
  if (!resolved) return;
  list.replaceAt(*left, withDatestamp(list[*left], std::move(resolved->from)));
  list.replaceAt(*right, withDatestamp(list[*right], std::move(resolved->to)));
}

// --- Dates in phrases -----------------------------------------------------------------------------------------------

using Subtokens = std::vector<Token>;

Token* firstOf(Subtokens& tokens, TokenType type) {
  for (Token& token : tokens) {
    if (token.is(type)) return &token;
  }
  return nullptr;
}

/// "time in m": the unit may be a place.
bool readUnitAsPlace(Subtokens& tokens, const PassContext& context) {
  Token* unit = firstOf(tokens, TokenType::unit);
  const auto place = unit != nullptr ? context.content.placeList->placeFor(unit->stringValue) : std::nullopt;
  if (!place) return false;
  *unit = Token(TokenType::timezone, TokenSubType::notSpecified, unit->stringValue, unit->range, nullptr,
                std::make_shared<const TimezoneTokenMetadata>(place->timeZone, *place));
  return true;
}

bool orderFirstAndLastDate(Subtokens& tokens) {
  Token* first = nullptr;
  Token* last = nullptr;
  for (Token& token : tokens) {
    if (datestampIn(token) == nullptr) continue;
    if (first == nullptr) first = &token;
    last = &token;
  }
  if (first == last) return false;
  auto resolved = AmbiguousDatestampIntervalResolver(*datestampIn(*first), *datestampIn(*last), kFromStartOfDay)
                      .resolvedDatestamps();
  if (!resolved) return false;
  *first = withDatestamp(*first, std::move(resolved->from));
  *last = withDatestamp(*last, std::move(resolved->to));
  return true;
}

/// Counted in days or more, a day counts from its start.
DatestampTimeConstrait timeConstraintFor(const Token* unit) {
  constexpr CalendarComponentSet subDayTimeComponents{Component::hour, Component::minute, Component::second,
                                                      Component::nanosecond};
  const auto component = unit != nullptr ? unit->calendarComponentValue() : std::nullopt;
  return component && !subDayTimeComponents.contains(*component) ? kFromStartOfDay : DatestampTimeConstrait{};
}

/// "days to Friday" is the coming one, "days since Friday" the last one.
bool placeFirstDate(Subtokens& tokens, RelativeDatestampConstraint::Kind sideOfNow) {
  Token* date = firstOf(tokens, TokenType::datestamp);
  if (date == nullptr || datestampIn(*date) == nullptr) return false;
  const auto resolved =
      resolveDatestampWith(*date, timeConstraintFor(firstOf(tokens, TokenType::unit)), {sideOfNow, Date::now()});
  if (!resolved || *resolved == *datestampIn(*date)) return false;
  *date = withDatestamp(*date, *resolved);
  return true;
}

/// Whether the tokens were edited.
bool checkSubtokens(Subtokens& tokens, FunctionIdentifier function, const PassContext& context) {
  switch (function) {
    case FunctionIdentifier::timeInTimezone:
    case FunctionIdentifier::dateInTimezone:
      return readUnitAsPlace(tokens, context);
    case FunctionIdentifier::calendarUnitBetweenDates:
    case FunctionIdentifier::inclusiveCalendarUnitBetweenDates:
    case FunctionIdentifier::intervalBetweenDates:
    case FunctionIdentifier::inclusiveIntervalBetweenDates:
      return orderFirstAndLastDate(tokens);
    case FunctionIdentifier::calendarUnitToDate:
      return placeFirstDate(tokens, RelativeDatestampConstraint::Kind::after);
    case FunctionIdentifier::calendarUnitSinceDate:
      return placeFirstDate(tokens, RelativeDatestampConstraint::Kind::before);
    default:
      return false;
  }
}

}  // namespace

void identifyDatespans(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const Datestamp* datestamp = datestampIn(list[i]);
    const auto joined = datestamp != nullptr ? numberJoinedTo(list, i) : std::nullopt;
    if (!joined) continue;
    if (joined->joinedByDash && !isDayMonthYear(datestamp->type)) {
      readAsYear(list, joined->number, context);
    } else if (tellsDayOrMonth(datestamp->type)) {
      i = wrapDatespan(list, *joined, context).value_or(i);
    }
  }
}

void sanityCheckDatestampIntervals(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(TokenType::operator_, /*recalculateRangesAfterEdit=*/false,
                               [](const Token& operation, TokenList& inner, const Token*) {
                                 const auto index = isDash(operation) ? inner.indexOf(operation) : std::nullopt;
                                 if (index) orderDatesBesideMinus(inner, *index);
                               });
}

void sanityCheckDatestampsInWordFunctionsIn(TokenList& list, const PassContext& context) {
  list.applyTransformationToAllTokensOfType(TokenType::wordFunction, nullptr, /*reversed=*/true,
                                            [&context](const Token& phrase, const Token*) -> std::optional<Token> {
                                              const auto function = phrase.functionIdentifier();
                                              if (!function || !phrase.subtokens) return std::nullopt;
                                              Subtokens tokens(phrase.subtokens->begin(), phrase.subtokens->end());
                                              if (!checkSubtokens(tokens, *function, context)) return std::nullopt;
                                              Token result = phrase;
                                              result.subtokens = TokenList::frozen(std::move(tokens));
                                              return result;
                                            });
}

}  // namespace tavrine::passes
