#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::contextFor;
using testing::number;

std::string shown(const EvaluationResult& result, std::string_view locale = "en_US",
                  std::shared_ptr<const TokenList> line = nullptr) {
  ResultFormatterContext context = contextFor(locale);
  context.originalTokenList = std::move(line);
  const auto formatted = ModernResultFactory::formattedResultFor(result, context);
  return formatted ? formatted->stringValue : "no formatter";
}

struct TimespanCase {
  DateComponents components;
  std::string_view want;
  std::string_view locale = "en_US";
};

TEST(DurationFormatters, Timespans) {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  const TimespanCase cases[] = {
      {{.day = 5}, "5 days"},
      {{.month = 2, .day = 1, .weekOfYear = 4}, "2 months 4 weeks 1 day"},
      {{.year = 1, .month = 0, .day = 2}, "1 year 2 days"},
      // Carried from the smallest up to weeks, and no further.
      {{.minute = 90}, "1 hr 30 min"},
      {{.hour = 23, .minute = 59, .second = 60}, "1 day"},
      {{.day = 6, .hour = 24}, "1 week"},
      {{.day = 45}, "6 weeks 3 days"},
      {{.month = 14, .weekOfYear = 60}, "14 months 60 weeks"},
      {{.second = 100'000}, "1 day 3 hr 46 min 40 s"},
      {{.weekday = 9}, "9 days"},
      // One amount is shown even if it is 0, several zeros are not.
      {{.minute = 0}, "0 min"},
      {{.hour = 0, .minute = 0}, ""},
      {{}, ""},
      // Nanoseconds are part of the seconds.
      {{.second = 2, .nanosecond = 500'000'000}, "2.5 s"},
      {{.second = 2, .nanosecond = 500'000'000}, "2,5 s", "de_DE"},
      {{.minute = 1, .second = 0, .nanosecond = 250'000'000}, "1 min 0.25 s"},
      {{.nanosecond = 250'000'000}, "0.25 s"},
      {{.nanosecond = 0}, "0 s"},
      // Below 0 as they stand, with one sign for all.
      {{.minute = -90}, "-90 min"},
      {{.day = -1, .hour = 0, .minute = -30}, "-1 day 30 min"},
      {{.minute = -1, .second = -2, .nanosecond = -500'000'000}, "-1 min 2.5 s"},
      {{.second = 0, .nanosecond = -500'000'000}, "-0.5 s"},
      // What is taken away is borrowed from the larger amounts.
      {{.hour = 1, .minute = -20}, "40 min"},
      {{.day = 1, .minute = -1}, "23 hr 59 min"},
      {{.month = 1, .day = -2}, "1 month -2 days"},
      // No sum runs over.
      {{.day = most, .weekOfYear = most}, "9.2233720369E18 weeks"},
      {{.year = std::numeric_limits<std::int64_t>::min()}, "-9.2233720369E18 years"},
  };
  for (const TimespanCase& c : cases) {
    EXPECT_EQ(shown(EvaluationResult::timespan({c.components, std::nullopt}), c.locale), c.want);
  }
}

TEST(DurationFormatters, PairsOfUnitsStayAsTheyWereSplit) {
  const DateComponents components{.hour = 100, .minute = 90};
  const auto shownBehind = [&components](TokenSubType converter) {
    Token token(TokenType::converter, "as …", {});
    token.subType = converter;
    return shown(EvaluationResult::timespan({components, std::nullopt}), "en_US", TokenList::frozen({token}));
  };
  EXPECT_EQ(shownBehind(TokenSubType::hoursAndMinutesConverter), "100 hr 90 min");
  EXPECT_EQ(shownBehind(TokenSubType::monthsAndDaysConverter), "100 hr 90 min");
  EXPECT_EQ(shownBehind(TokenSubType::weeksAndDaysConverter), "100 hr 90 min");
  EXPECT_EQ(shownBehind(TokenSubType::daysAndHoursConverter), "100 hr 90 min");
  EXPECT_EQ(shownBehind(TokenSubType::timespanConverter), "4 days 5 hr 30 min");
}

TEST(DurationFormatters, DatespansAreAsLongAsTheCalendarSays) {
  constexpr double day = 86'400;
  const Date firstOfApril(1'711'929'600);  // 2024
  const auto shownSpan = [](Date start, Date end) { return shown(EvaluationResult::datespan({start, end})); };
  EXPECT_EQ(shownSpan(firstOfApril, firstOfApril.addingTimeInterval(90 * day)), "2 months 4 weeks 1 day");
  EXPECT_EQ(shownSpan(firstOfApril, firstOfApril.addingTimeInterval(366 * day)), "1 year 1 day");
  EXPECT_EQ(shownSpan(firstOfApril, firstOfApril.addingTimeInterval(-day)), "");
}

TEST(DurationFormatters, StopwatchReadings) {
  struct LaptimeCase {
    std::optional<std::int64_t> hour;
    std::int64_t minute;
    std::optional<std::string_view> seconds;
    std::string_view want;
    std::string_view locale = "en_US";
  };
  for (const LaptimeCase& c : rowsOf<LaptimeCase>("Formatting/DurationFormattersTests", "StopwatchReadings")) {
    Laptime laptime{c.hour, c.minute, std::nullopt};
    if (c.seconds) laptime.seconds = number(*c.seconds);
    EXPECT_EQ(shown(EvaluationResult::laptime(laptime), c.locale), c.want);
  }
}

TEST(DurationFormatters, TimeCodes) {
  EXPECT_EQ(shown(EvaluationResult::frametime({number("24"), 1, 30, 16, 0})), "01:30:16:00");
  EXPECT_EQ(shown(EvaluationResult::frametime({number("120"), 0, 0, 0, 119})), "00:00:00:119");
}

}  // namespace
}  // namespace tavrine
