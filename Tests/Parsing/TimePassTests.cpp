// Stopwatch readings, time codes, durations and spans of dates.

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

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
  for (const auto& [line, expected] : rowsOf<Case>("Parsing/TimePassTests", "ReadingsOfStopwatchesAndTimeCodes"))
    EXPECT_EQ(timesIn(reader.after("G4", line)), expected) << line;
}

TEST(TimePasses, AVariableIsAPartOfAReading) {
  LineReader reader;
  reader.declare("x", EvaluationResult::decimal(Decimal(5)));
  EXPECT_EQ(timesIn(reader.after("G4", "1:30:x")), "1:30:5");
}

TEST(TimePasses, DurationsOfAmounts) {
  const LineReader reader;
  for (const auto& [line, expected] : rowsOf<Case>("Parsing/TimePassTests", "DurationsOfAmounts"))
    EXPECT_EQ(timesIn(reader.after("G12", line)), expected) << line;
}

TEST(TimePasses, OnlyClockFormsAndCompoundsStayDurations) {
  const LineReader reader;
  for (const auto& [line, expected] : rowsOf<Case>("Parsing/TimePassTests", "OnlyClockFormsAndCompoundsStayDurations"))
    EXPECT_EQ(reader.shapeAfter("G29", line), expected) << line;
}

}  // namespace
}  // namespace tavrine::testing
