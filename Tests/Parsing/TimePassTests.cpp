// Stopwatch readings, time codes, durations and spans of dates.

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view expected;
};

void append(std::string& text, std::optional<std::int64_t> value, std::string_view name) {
  if (value) text += (text.empty() ? "" : " ") + std::to_string(*value) + std::string(name);
}

/// "1h 30m" for a duration, "3:45:32.5" for a stopwatch, "1:30:15+10" for a time code; joined by ", ".
std::string timesIn(const TokenList& list) {
  std::string result;
  const auto tell = [&result](const std::string& text) { result += (result.empty() ? "" : ", ") + text; };
  list.enumerateAllTokens(/*reversed=*/false, [&](const Token& token, const TokenList&, const Token*, bool&) {
    if (const auto laptime = token.laptimeValue()) {
      tell(std::to_string(laptime->hour.value_or(0)) + ":" + std::to_string(laptime->minute) + ":" +
           laptime->seconds.value_or(0).description());
    } else if (const auto frametime = token.frametimeValue()) {
      tell(std::to_string(frametime->hour) + ":" + std::to_string(frametime->minute) + ":" +
           std::to_string(frametime->second) + "+" + std::to_string(frametime->frame) + "@" +
           frametime->fps.description());
    } else if (const auto timespan = token.is(TokenType::timespan) ? token.timespanValue() : std::nullopt) {
      const DateComponents& parts = timespan->dateComponents;
      std::string text;
      append(text, parts.year, "y");
      append(text, parts.month, "mo");
      append(text, parts.weekOfYear, "w");
      append(text, parts.day, "d");
      append(text, parts.weekday, "wd");
      append(text, parts.hour, "h");
      append(text, parts.minute, "m");
      append(text, parts.second, "s");
      append(text, parts.nanosecond, "ns");
      tell(text);
    }
  });
  return result;
}

TEST(TimePasses, ReadingsOfStopwatchesAndTimeCodes) {
  const LineReader reader;
  const Case cases[] = {
      {"3:45:32.431", "3:45:32.431"},
      {"1:30:15:10", "1:30:15+10@24"},
      {"1:30:15:10 + 0:00:01:00", "1:30:15+10@24, 0:0:1+0@24"},
      {"0:75:00", "1:15:0"},
      {"00:00:61.5", "0:1:1.5"},
      {"3:45", ""},
      {"3: 45: 32", ""},
      {"1:2:3:4:5", "1:2:3+4@24"},
      {"99999999999999999999:00:00", ""},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(timesIn(reader.after("G4", line)), expected) << line;
}

TEST(TimePasses, AVariableIsAPartOfAReading) {
  LineReader reader;
  reader.declare("x", EvaluationResult::decimal(Decimal(5)));
  EXPECT_EQ(timesIn(reader.after("G4", "1:30:x")), "1:30:5");
}

TEST(TimePasses, DurationsOfAmounts) {
  const LineReader reader;
  const Case cases[] = {
      {"3 weeks", "3w"},
      {"90 min", "90m"},
      {"1.5 hours", "0w 0d 1h 30m 0s 0ns"},
      {"2 workdays", "2wd"},
      {"1k seconds", "1000s"},
      {"1:30 hours", "1h 30m"},
      {"Rest: 1:30 hours", "1h 30m"},
      {"1:30 min", "1m 30s"},
      {"1:30 days", ""},
      {"1:30 km", ""},
      {"5 km", ""},
      {"5 ft 3 in", ""},
      {"2 hours 5 min", "2h 5m"},
      {"1.5 hours 10 min", "0w 0d 1h 40m 0s 0ns"},
      {"3 weeks, 2 days and 1 hour", "3w 2d, 1h"},
      {"1 h 20 min 15 s 10 frames", "1:20:15+10@24"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(timesIn(reader.after("G12", line)), expected) << line;
}

TEST(TimePasses, OnlyClockFormsAndCompoundsStayDurations) {
  const LineReader reader;
  const Case cases[] = {
      {"2 hours", "unitExpression[number.unit]"},
      {"(2 hours)", "subexpression[bracket unitExpression[number.unit] bracket]"},
      {"1:30 hours", "timespan[number colon unitExpression[number.unit]]"},
      {"2 hours 5 min", "timespan[compoundUnitExpression[unitExpression[number.unit].unitExpression[number.unit]]]"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(reader.shapeAfter("G29", line), expected) << line;
}

}  // namespace
}  // namespace tavrine::testing
