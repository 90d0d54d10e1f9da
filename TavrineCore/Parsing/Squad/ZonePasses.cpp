// The zones that people in the United States name by two letters or by "Pacific Time".

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Parsing/Helpers/TimeZoneAbbreviationDetector.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

constexpr TokenTypeSet kTimes{TokenType::dateComponents, TokenType::datestamp};

/// "et" is no unit, so it is told by the time that it stands behind: "3pm et", "3pm to et", "3pm pt to et".
bool standsBehindTime(const TokenList& list, std::size_t index) {
  auto before = list.indexBefore(index, /*ignoreWhitespace=*/true);
  if (before && list[*before].is(TokenType::converterSymbol)) {
    before = list.indexBefore(*before, /*ignoreWhitespace=*/true, {TokenType::timezone});
  }
  return before && kTimes.contains(list[*before].type);
}

/// "2 pt" is an amount, whatever times the line tells.
bool isCounted(const TokenList& list, std::size_t index) {
  const Token* const before = list.tokenBefore(index, /*ignoreWhitespace=*/true);
  return list[index].is(TokenType::unit) && before != nullptr && before->is(TokenType::number);
}

Token nowIn(const Place& place, const PassContext& context) {
  const Datestamp datestamp{
      .date = Date::now(), .type = DatestampType::now, .timezone = place.timeZone, .hasExplicitTimeZone = true};
  const CalendarEnvironment environment(context.customization.calendar(), context.customization.holidays());
  return Token(TokenType::datestamp, TokenSubType::notSpecified, {}, {}, nullptr,
               std::make_shared<const DatestampTokenMetadata>(datestamp, Date::now(), environment));
}

}  // namespace

void handleUSNamedTimezones(TokenList& list, const PassContext& context) {
  constexpr TokenTypeSet kCandidates{TokenType::unit, TokenType::timezone, TokenType::unidentified};
  constexpr std::size_t kLongestName = 16;
  // From the left, since a zone may be told by the one before it.
  for (std::size_t i = 0; i < list.count(); ++i) {
    const Token& token = list[i];
    if (!kCandidates.contains(token.type) || token.stringValue.size() > kLongestName) continue;
    if (token.is(TokenType::unidentified) && !standsBehindTime(list, i)) continue;
    if (isCounted(list, i)) continue;
    const std::string text = lowercased(token.stringValue);
    const std::optional<Place> zone = USNamedTimezoneAbbreviations::timezoneFor(text);
    if (!zone) continue;
    if (!token.is(TokenType::timezone)) {
      list.replace(list.slice(i, i), TokenType::timezone,
                   std::make_shared<const TimezoneTokenMetadata>(zone->timeZone, *zone));
    } else if (list.onlyToken() != nullptr && text.ends_with("time")) {
      Token now = nowIn(*zone, context);
      now.stringValue = token.stringValue;
      now.range = token.range;
      list.replaceAt(i, std::move(now));
    }
  }
}

}  // namespace tavrine::passes
