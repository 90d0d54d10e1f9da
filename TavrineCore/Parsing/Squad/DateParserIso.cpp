// "2024-03-05T14:30:00Z": a date, a "T", a time, and how far the clocks there are ahead of GMT.

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/Parser.h"

namespace tavrine {

namespace {

using Component = Calendar::Component;

constexpr std::string_view kGmt = "z";

const DateComponents* componentsIn(const Token* token) {
  if (token == nullptr || !token->is(TokenType::dateComponents)) return nullptr;
  const auto* metadata = token->metadataAs<DateComponentsTokenMetadata>();
  return metadata != nullptr ? &metadata->dateComponents : nullptr;
}

/// A time of day of two or of three parts.
std::optional<DateComponents> timeIn(const Token* token) {
  if (token == nullptr) return std::nullopt;
  if (const DateComponents* components = componentsIn(token)) {
    return tellsTime(*components) && !components->day ? std::optional(*components) : std::nullopt;
  }
  const auto* metadata = token->metadataAs<LaptimeTokenMetadata>();
  if (metadata == nullptr || !metadata->laptime.hour) return std::nullopt;
  return dateComponentsFrom(metadata->laptime.hour, metadata->laptime.minute, metadata->laptime.seconds);
}

/// Seconds ahead of GMT, the last token that says so, and whether any does.
struct Offset {
  std::int64_t seconds;
  std::size_t last;
  bool isTold;
};

/// "Z", "+02:00" directly behind the time; GMT where nothing is told.
std::optional<Offset> offsetBehind(const TokenList& list, std::size_t time) {
  const Token* next = list.tokenFor(time + 1);
  if (next == nullptr) return Offset{0, time, false};
  if (lowercased(next->stringValue) == kGmt) return Offset{0, time + 1, true};
  const bool isAhead = next->is(TokenType::operator_, TokenSubType::additionOperator);
  const bool isBehind = next->is(TokenType::operator_, TokenSubType::subtractionOperator);
  if (!isAhead && !isBehind) return Offset{0, time, false};

  const Token* offset = list.tokenFor(time + 2);
  std::optional<DateComponents> distance = timeIn(offset);
  if (!distance && offset != nullptr) {
    if (const auto number = dateNumberIn(*offset)) {
      const bool isHours = utf16Length(number->text) == 2 && possibleHourStamp(*number).has_value();
      distance = isHours ? timeOfDay(number->value.intValue(), 0) : possibleMilitaryTimestamp(*number);
    }
  }
  if (!distance) return std::nullopt;
  const std::int64_t seconds = distance->hour.value_or(0) * 3600 + distance->minute.value_or(0) * 60;
  return Offset{isAhead ? seconds : -seconds, time + 2, true};
}

}  // namespace

void DateParser::transformComponentsIntoIsoDatesIn(TokenList& tokenList) const {
  if (!tokenList.anyTypesHaveBeenPresentIn({TokenType::unit, TokenType::unidentified})) return;
  for (std::size_t i = tokenList.count(); i-- > 0;) {
    if (i + 2 >= tokenList.count() || tokenList[i + 1].stringValue != Parser::specialISODateSeparator) continue;
    const DateComponents* day = componentsIn(&tokenList[i]);
    if (day == nullptr || !day->year || !day->month || !day->day) continue;
    const auto time = timeIn(&tokenList[i + 2]);
    const auto offset = time ? offsetBehind(tokenList, i + 2) : std::nullopt;
    if (!offset) continue;

    const Calendar calendar = engineCustomization_.calendar();
    const Calendar gmt(Calendar::Identifier::gregorian, calendar.locale(), TimeZone::gmt());
    DateComponents components = *time;
    components.year = day->year;
    components.month = day->month;
    components.day = day->day;
    const auto date = gmt.isValidDate(components) ? gmt.dateFrom(components) : std::nullopt;
    if (!date) continue;

    const TokenSlice slice = tokenList.slice(i, offset->last);
    tokenList.replaceRun(
        i, offset->last,
        Token(TokenType::datestamp, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr,
              std::make_shared<const DatestampTokenMetadata>(
                  Datestamp{.date = date->addingTimeInterval(-static_cast<double>(offset->seconds)),
                            .type = Type::iso8601,
                            .timezone = calendar.timeZone(),
                            .hasExplicitTimeZone = offset->isTold},
                  Date::now(), CalendarEnvironment(calendar, engineCustomization_.holidays()))));
  }
}

}  // namespace tavrine
