#include "TavrineCore/Parsing/Squad/DateComponentsToDatestampTransformer.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"

namespace tavrine {

namespace {

using Type = DatestampType;
using Component = Calendar::Component;

/// Dates that move with the clock, and those that a name tells: what their components look like says less.
constexpr bool isNamed(Type type) {
  return relativeTimeTypes.contains(type) || type == Type::specialDay || type == Type::relativeWeekday;
}

constexpr bool isDayBesideToday(Type type) {
  return type == Type::today || type == Type::tomorrow || type == Type::yesterday;
}

/// Whether no component is told twice.
bool couldMerge(const DateComponents& one, const DateComponents& other) {
  return std::ranges::none_of(orderedTavrineSupportedComponents, [&](Component component) {
    return valueOf(one, component).has_value() && valueOf(other, component).has_value();
  });
}

void merge(DateComponents& components, const DateComponents& other) {
  for (const Component component : orderedTavrineSupportedComponents) {
    if (const auto value = valueOf(other, component)) setValueOf(components, component, value);
  }
  for (const Component component : {Component::quarter, Component::yearForWeekOfYear}) {
    if (const auto value = valueOf(other, component)) setValueOf(components, component, value);
  }
}

bool isTimeAlone(const DateComponents& components) {
  return tellsTime(components) && !components.month && !components.day && !components.year;
}

}  // namespace

DateComponentsToDatestampTransformer::DateComponentsToDatestampTransformer(
    const EngineCustomization& engineCustomization, TokenList& tokenList, std::size_t mainComponents)
    : engineCustomization_(engineCustomization),
      tokenList_(tokenList),
      defaultCalendar_(engineCustomization.calendar()),
      mainComponents_{mainComponents, tokenList[mainComponents].metadataAs<DateComponentsTokenMetadata>()},
      first_(mainComponents),
      last_(mainComponents) {}

void DateComponentsToDatestampTransformer::transform() {
  if (mainComponents_.metadata == nullptr) return deidentifyPieces();
  findSupplementaryComponents();
  swapMainComponentsSupplementaryIfRequired();
  addTimeZoneIfPresent();
  addTimeIfPresent();
  addQualifierIfPresent();
  if (auto token = transformDateComponents()) {
    tokenList_.replaceRun(first_, last_, *std::move(token));
  } else {
    deidentifyPieces();
  }
}

// --- What belongs to the moment -------------------------------------------------------------------------------------

void DateComponentsToDatestampTransformer::widenTo(std::size_t index) {
  first_ = std::min(first_, index);
  last_ = std::max(last_, index);
}

std::optional<DateComponentsToDatestampTransformer::Piece> DateComponentsToDatestampTransformer::pieceAt(
    std::optional<std::size_t> index) const {
  if (!index || !tokenList_[*index].is(TokenType::dateComponents)) return std::nullopt;
  const auto* metadata = tokenList_[*index].metadataAs<DateComponentsTokenMetadata>();
  return metadata != nullptr ? std::optional(Piece{*index, metadata}) : std::nullopt;
}

std::optional<DateComponentsToDatestampTransformer::Piece> DateComponentsToDatestampTransformer::friendBefore(
    std::size_t index) const {
  const auto piece = pieceAt(tokenList_.indexBefore(index, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords));
  if (!piece || !couldMerge(piece->metadata->dateComponents, mainComponents_.metadata->dateComponents)) {
    return std::nullopt;
  }
  return piece;
}

void DateComponentsToDatestampTransformer::findSupplementaryComponents() {
  supplementaryComponents_ = friendBefore(mainComponents_.index);
  if (supplementaryComponents_) widenTo(supplementaryComponents_->index);
}

void DateComponentsToDatestampTransformer::swapMainComponentsSupplementaryIfRequired() {
  if (!supplementaryComponents_ || mainComponents_.metadata->type != Type::weekDay) return;
  std::swap(mainComponents_, *supplementaryComponents_);
}

bool DateComponentsToDatestampTransformer::takeTimeZone(std::optional<std::size_t> index) {
  if (!index || !tokenList_[*index].is(TokenType::timezone)) return false;
  if (tokenList_[*index].metadataAs<TimezoneTokenMetadata>() == nullptr) return false;
  // "3pm to Tokyo" asks for another zone.
  const Token* before = tokenList_.tokenBefore(*index, /*ignoreWhitespace=*/true);
  if (before != nullptr && before->is(TokenType::converterSymbol, TokenSubType::converterSymbolTo)) return false;
  explicitTimeZone_ = index;
  widenTo(*index);
  return true;
}

void DateComponentsToDatestampTransformer::addTimeZoneIfPresent() {
  if (!tokenList_.typePrecheck(TokenType::timezone)) return;
  if (takeTimeZone(tokenList_.indexAfter(last_, /*ignoreWhitespace=*/true, TokenType::converterSymbol))) return;
  if (supplementaryComponents_) {
    // "3pm Tokyo on Friday"
    const std::size_t end = std::min(mainComponents_.index, supplementaryComponents_->index);
    if (takeTimeZone(tokenList_.indexAfter(end, /*ignoreWhitespace=*/true, TokenType::converterSymbol))) return;
  }
  if (!takeTimeZone(tokenList_.indexBefore(first_, /*ignoreWhitespace=*/true, TokenType::converterSymbol))) return;
  if (supplementaryComponents_) return;
  // "3pm Tokyo 5 March"
  supplementaryComponents_ = friendBefore(*explicitTimeZone_);
  if (supplementaryComponents_) {
    widenTo(supplementaryComponents_->index);
    swapMainComponentsSupplementaryIfRequired();
  }
}

void DateComponentsToDatestampTransformer::addTimeIfPresent() {
  if (tellsTime(mainComponents_.metadata->dateComponents)) return;
  if (supplementaryComponents_ && tellsTime(supplementaryComponents_->metadata->dateComponents)) return;
  const auto time = [&](std::optional<std::size_t> index) {
    const auto piece = pieceAt(index);
    return piece && isTimeAlone(piece->metadata->dateComponents) ? piece : std::nullopt;
  };
  explicitTime_ = time(tokenList_.indexBefore(first_, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords));
  if (!explicitTime_) {
    explicitTime_ = time(tokenList_.indexAfter(last_, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords));
  }
  if (explicitTime_) widenTo(explicitTime_->index);
}

void DateComponentsToDatestampTransformer::addQualifierIfPresent() {
  if (!tokenList_.typePrecheck(TokenType::dateQualifier)) return;
  for (const std::optional<Piece>& piece : {std::optional(mainComponents_), supplementaryComponents_}) {
    if (!piece || piece->metadata->type != Type::weekDay) continue;
    const auto before = tokenList_.indexBefore(piece->index, /*ignoreWhitespace=*/true);
    if (!before || !tokenList_[*before].is(TokenType::dateQualifier)) continue;
    qualifier_ = before;
    widenTo(*before);
    return;
  }
}

// --- The moment -----------------------------------------------------------------------------------------------------

DateComponents DateComponentsToDatestampTransformer::mergedComponents() const {
  DateComponents components = mainComponents_.metadata->dateComponents;
  if (supplementaryComponents_) merge(components, supplementaryComponents_->metadata->dateComponents);
  if (explicitTime_) merge(components, explicitTime_->metadata->dateComponents);
  return components;
}

Type DateComponentsToDatestampTransformer::typeOf(const DateComponents& components) const {
  const Type mainType = mainComponents_.metadata->type;
  if (mainType == Type::now) return mainType;
  if (!tellsTime(components)) {
    if (isNamed(mainType)) return mainType;
    if (supplementaryComponents_ && isNamed(supplementaryComponents_->metadata->type)) {
      return supplementaryComponents_->metadata->type;
    }
  }
  if (components.quarter) return Type::quarter;
  const bool tellsDay = components.day && components.month;
  if (components.weekday && !tellsDay && !components.weekOfYear) return Type::weekDay;
  const Type type = datestampTypeOf(components);
  return type == Type::unspecified ? mainType : type;
}

std::optional<Date> DateComponentsToDatestampTransformer::weekdayNamedBy(const DateComponents& components,
                                                                         const Calendar& calendar, Date now) const {
  const bool goesBack = qualifier_ && tokenList_[*qualifier_].subType == TokenSubType::dateQualifierPrevious;
  const Date today = calendar.startOfDay(now);
  const auto tomorrow = calendar.dateByAdding(Component::day, 1, today);
  if (!tomorrow) return std::nullopt;
  // From the last second of today, so that the start of tomorrow can be found.
  const Date start = goesBack ? today : tomorrow->addingTimeInterval(-1);
  return calendar.nextDate(start, components, Calendar::MatchingPolicy::nextTime, Calendar::RepeatedTimePolicy::first,
                           goesBack ? Calendar::SearchDirection::backward : Calendar::SearchDirection::forward);
}

std::optional<Token> DateComponentsToDatestampTransformer::transformDateComponents() const {
  const Date now = Date::now();
  const bool seeksFutureDate = engineCustomization_.featureFlags().seeksFutureDate;
  DateComponents components = mergedComponents();
  const Type type = typeOf(components);
  const bool namesYear = components.year.has_value() || components.yearForWeekOfYear.has_value();

  Calendar calendar = defaultCalendar_;
  if (explicitTimeZone_) {
    calendar.setTimeZone(tokenList_[*explicitTimeZone_].metadataAs<TimezoneTokenMetadata>()->timeZone);
    if (type == Type::now) return datestampToken(now, type, calendar, now);
    if (isDayBesideToday(type)) {
      // The day there, which may be another one than here.
      const int days = type == Type::today ? 0 : (type == Type::tomorrow ? 1 : -1);
      const auto day = calendar.dateByAdding(Component::day, days, now);
      if (!day) return std::nullopt;
      components = calendar.dateComponents({Component::year, Component::month, Component::day}, *day);
    }
  }
  if (!seeksFutureDate || type == Type::quarter) fillInMissingComponents(components, type, defaultCalendar_, now);

  if (type == Type::weekDay) {
    const bool tellsClockTime = tellsTime(mergedComponents());
    const auto date = weekdayNamedBy(components, calendar, now);
    if (!date) return std::nullopt;
    const Type written = qualifier_ ? Type::relativeWeekday : Type::weekDay;
    return datestampToken(*date, tellsClockTime ? Type::weekdayWithClockTime : written, calendar, now);
  }
  if (type == Type::quarter) {
    const auto span = datespanFor(calendar, *components.quarter, *components.year);
    if (!span) return std::nullopt;
    const TokenSlice slice = tokenList_.slice(first_, last_);
    return Token(TokenType::datespan, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr,
                 std::make_shared<const DatespanTokenMetadata>(
                     *span, CalendarEnvironment(calendar, engineCustomization_.holidays()), now));
  }

  auto date = calendar.dateFrom(components);
  if (!date) return std::nullopt;
  if (seeksFutureDate && *date < now && !namesYear && !relativeTimeTypes.contains(type)) {
    date = calendar.nextDate(now, components);
    if (!date) return std::nullopt;
  }
  return datestampToken(*date, type, calendar, now);
}

Token DateComponentsToDatestampTransformer::datestampToken(Date date, Type type, const Calendar& calendar,
                                                           Date now) const {
  Datestamp datestamp{.date = date, .type = type, .timezone = calendar.timeZone()};
  datestamp.hasExplicitTimeZone = explicitTimeZone_.has_value();
  datestamp.isAmbiguous = mainComponents_.metadata->isAmbiguous;
  if (type == Type::specialDay) {
    datestamp.specialDayType = mainComponents_.metadata->representingSpecialDay;
    if (!datestamp.specialDayType && supplementaryComponents_) {
      datestamp.specialDayType = supplementaryComponents_->metadata->representingSpecialDay;
    }
  }
  const std::optional<Place> place = explicitTimeZone_ ? tokenList_[*explicitTimeZone_].placeValue() : std::nullopt;
  const TokenSlice slice = tokenList_.slice(first_, last_);
  return {TokenType::datestamp,
          TokenSubType::notSpecified,
          slice.stringValue(),
          slice.range(),
          nullptr,
          std::make_shared<const DatestampTokenMetadata>(std::move(datestamp), now,
                                                         CalendarEnvironment(calendar, engineCustomization_.holidays()),
                                                         place ? std::make_shared<const Place>(*place) : nullptr)};
}

void DateComponentsToDatestampTransformer::deidentifyPieces() {
  std::vector<Token> pieces{tokenList_[mainComponents_.index]};
  if (supplementaryComponents_) pieces.push_back(tokenList_[supplementaryComponents_->index]);
  if (explicitTimeZone_) pieces.push_back(tokenList_[*explicitTimeZone_]);
  if (explicitTime_) pieces.push_back(tokenList_[explicitTime_->index]);
  if (qualifier_) pieces.push_back(tokenList_[*qualifier_]);
  for (const Token& piece : pieces) tokenList_.deidentify(piece, /*retainSubtype=*/false);
}

}  // namespace tavrine
