// Times of day: "3:45 pm", "9am", "1530 h", "15 h 30", "3:45:30 pm".

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"

namespace tavrine {

namespace {

enum class DayHalf : bool { am, pm };

/// The half of the day that the word names.
std::optional<DayHalf> dayHalfOf(const Token* token) {
  if (token == nullptr || !token->is(TokenType::dateWord)) return std::nullopt;
  if (token->subType == TokenSubType::dateWordAm) return DayHalf::am;
  if (token->subType == TokenSubType::dateWordPm) return DayHalf::pm;
  const auto* metadata = token->metadataAs<DateWordTokenMetadata>();
  if (metadata == nullptr) return std::nullopt;
  if (metadata->dateWord.type == DateWordType::am) return DayHalf::am;
  if (metadata->dateWord.type == DateWordType::pm) return DayHalf::pm;
  return std::nullopt;
}

void apply(std::optional<DayHalf> half, DateComponents& time) {
  if (!half || !time.hour) return;
  constexpr std::int64_t kHalfDay = 12;
  if (*half == DayHalf::am && *time.hour >= kHalfDay) *time.hour -= kHalfDay;
  if (*half == DayHalf::pm && *time.hour < kHalfDay) *time.hour += kHalfDay;
}

/// 24:00 ends a day; no other time has an hour of 24.
bool isTimeOfDay(const DateComponents& time) {
  return time.hour < 24 || (time.minute.value_or(0) == 0 && time.second.value_or(0) == 0);
}

std::optional<DateComponents> hourAndMinute(const DateNumber& hour, const DateNumber& minute) {
  if (utf16Length(minute.text) != 2) return std::nullopt;
  const auto hourValue = possibleHourStamp(hour);
  const auto minuteValue = possibleMinuteStamp(minute);
  if (!hourValue || !minuteValue) return std::nullopt;
  return timeOfDay(*hourValue, *minuteValue);
}

/// "3", "1530", "3.45".
std::optional<DateComponents> hourInOneNumber(const DateNumber& number, bool acceptMilitaryTime) {
  if (acceptMilitaryTime) {
    if (auto time = possibleMilitaryTimestamp(number)) return time;
  }
  const DateNumber hour{Decimal(number.value.intValue()), number.text};
  const DateNumber minute{(number.value - hour.value) * Decimal(100), number.text};
  const auto hourValue = possibleHourStamp(hour);
  const auto minuteValue = possibleMinuteStamp(minute);
  if (!hourValue || !minuteValue) return std::nullopt;
  return timeOfDay(*hourValue, *minuteValue);
}

bool isHoursUnit(const Token* token) {
  return token != nullptr && token->is(TokenType::unit) && isUnitWith(*token, UnitIdentifier::hours);
}

bool isColon(const TokenList& list, std::optional<std::size_t> index) {
  return index && list[*index].is(TokenType::colon);
}

/// Whether "1500 hours" is the time rather than the duration: nothing is calculated with it or converted.
bool standsAsMilitaryTime(const TokenList& list, std::size_t number, std::size_t unit) {
  const Token* before = list.tokenBefore(number, /*ignoreWhitespace=*/true);
  if (before != nullptr && before->is(TokenType::operator_)) return false;
  const auto after = list.indexAfter(unit, /*ignoreWhitespace=*/true);
  if (!after) return true;
  const Token& next = list[*after];
  if (!next.is(TokenType::converterSymbol)) {
    return next.is(TokenType::timezone) || next.is(TokenType::dateWord) || next.is(TokenType::dateComponents);
  }
  const Token* target = list.tokenAfter(*after, /*ignoreWhitespace=*/true);
  return target != nullptr && target->is(TokenType::timezone);
}

}  // namespace

void DateParser::identifyClockTimesIn(TokenList& list) const {
  constexpr TokenTypeSet kSignsOfTimes{TokenType::dateWord, TokenType::colon, TokenType::timezone};
  const bool mayHoldTimes = list.anyTypesHaveBeenPresentIn(kSignsOfTimes);
  const bool mayHoldHours = options_.identifyMilitaryTimestamps && list.typePrecheck(TokenType::unit);
  if (!list.typePrecheck(TokenType::number) || (!mayHoldTimes && !mayHoldHours)) return;

  for (std::size_t i = list.count(); i-- > 0;) {
    if (i >= list.count() || !list[i].is(TokenType::number)) continue;
    auto reading = mayHoldHours ? hoursUnitReadingAt(list, i) : std::nullopt;
    if (!reading && mayHoldTimes) reading = clockTimeReadingAt(list, i);
    if (!reading) continue;
    i = reading->first;
    replaceRunByComponents(list, reading->first, reading->last, {reading->components, reading->type});
  }
}

std::optional<DateParser::Reading> DateParser::hoursUnitReadingAt(const TokenList& list, std::size_t number) const {
  const auto unit = list.indexAfter(number, /*ignoreWhitespace=*/true);
  if (!unit || !isHoursUnit(&list[*unit])) return std::nullopt;
  const auto hour = dateNumberIn(list[number]);
  if (!hour) return std::nullopt;
  const bool isSingleLetter = utf16Length(list[*unit].stringValue) == 1;
  const std::size_t length = utf16Length(hour->text);

  if (isSingleLetter) {
    // "15 h 30", but not "15 h 30 min".
    const auto minuteIndex = list.indexAfter(*unit, /*ignoreWhitespace=*/true);
    const auto minute = minuteIndex ? dateNumberIn(list[*minuteIndex]) : std::nullopt;
    if (minute) {
      const Token* behind = list.tokenAfter(*minuteIndex, /*ignoreWhitespace=*/true);
      const bool isMeasured = behind != nullptr && behind->is(TokenType::unit);
      const auto hourValue = possibleHourStamp(*hour);
      const auto minuteValue = possibleMinuteStamp(*minute);
      const bool isLongEnough = list[*minuteIndex].lengthFrom(list[number]) >= 4;
      if (!isMeasured && hourValue && *hourValue < 24 && minuteValue && isLongEnough) {
        return Reading{number, *minuteIndex, timeOfDay(*hourValue, *minuteValue), Type::clockTime};
      }
    }
  } else {
    const bool hasLeadingZero = length == 4 && hour->text.starts_with('0');
    if (length != 4 || (!hasLeadingZero && !standsAsMilitaryTime(list, number, *unit))) return std::nullopt;
  }
  const auto time = possibleMilitaryTimestamp(*hour);
  if (!time) return std::nullopt;
  return Reading{number, *unit, *time, Type::clockTime};
}

std::optional<DateParser::Reading> DateParser::clockTimeReadingAt(const TokenList& list, std::size_t number) const {
  const auto last = dateNumberIn(list[number]);
  if (!last) return std::nullopt;
  const auto after = list.indexAfter(number, /*ignoreWhitespace=*/true);
  const auto half = after ? dayHalfOf(&list[*after]) : std::nullopt;
  // The parts of "1:30:15:10" are none of a time of day.
  if (isColon(list, after)) return std::nullopt;

  Reading reading{number, half ? *after : number, {}, Type::clockTime};
  std::optional<DateComponents> time;
  if (const auto colon = list.indexBefore(number, /*ignoreWhitespace=*/true); isColon(list, colon)) {
    const auto hourIndex = list.indexBefore(*colon, /*ignoreWhitespace=*/true);
    const auto hour = hourIndex ? dateNumberIn(list[*hourIndex]) : std::nullopt;
    if (!hour || isColon(list, list.indexBefore(*hourIndex, /*ignoreWhitespace=*/true))) return std::nullopt;
    // "1:30 hours" is a duration.
    if (after && isDurationUnit(&list[*after])) return std::nullopt;
    reading.first = *hourIndex;
    time = hourAndMinute(*hour, *last);
  } else if (half) {
    time = hourInOneNumber(*last, options_.identifyMilitaryTimestamps);
  }
  if (!time) return std::nullopt;
  apply(half, *time);
  if (!isTimeOfDay(*time)) return std::nullopt;
  reading.components = *time;
  return reading;
}

void DateParser::identifyRelevantLaptimesIn(TokenList& list) {
  if (!list.typePrecheck(TokenType::laptime)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* metadata = list[i].metadataAs<LaptimeTokenMetadata>();
    if (!list[i].is(TokenType::laptime) || metadata == nullptr) continue;
    const Laptime& laptime = metadata->laptime;
    const Decimal seconds = laptime.seconds.value_or(Decimal());
    if (!laptime.hour || *laptime.hour < 0 || *laptime.hour > 24 || !seconds.isWhole()) continue;

    const auto after = list.indexAfter(i, /*ignoreWhitespace=*/true);
    const auto half = after ? dayHalfOf(&list[*after]) : std::nullopt;
    const bool standsBesideDate = list.tokenNeighbouring(list[i], TokenType::dateComponents, /*ignoreWhitespace=*/true,
                                                         TokenTypeSet::randomWords) != nullptr;
    if (!half && !standsBesideDate) continue;
    DateComponents time = timeOfDay(*laptime.hour, laptime.minute);
    time.second = seconds.intValue();
    apply(half, time);
    if (!isTimeOfDay(time)) continue;
    replaceRunByComponents(list, i, half ? *after : i, {time, Type::clockTime});
  }
}

}  // namespace tavrine
