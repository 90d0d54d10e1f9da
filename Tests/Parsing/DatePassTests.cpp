#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Squad/DateFormatTemplateParser.h"
#include "TavrineCore/Parsing/Squad/DateNumbers.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

using Component = Calendar::Component;

/// "2026-06-10 12:00", in the zone.
std::string wallClock(Date date, const TimeZone& zone) {
  const Calendar calendar(Calendar::Identifier::gregorian, Locale("en_US"), zone);
  const auto part = [&](Component component, int width) {
    std::string digits = std::to_string(calendar.component(component, date));
    return std::string(static_cast<std::size_t>(std::max(0, width - static_cast<int>(digits.size()))), '0') + digits;
  };
  std::string result = part(Component::year, 4) + "-" + part(Component::month, 2) + "-" + part(Component::day, 2) +
                       " " + part(Component::hour, 2) + ":" + part(Component::minute, 2);
  if (calendar.component(Component::second, date) != 0) result += ":" + part(Component::second, 2);
  return result;
}

/// The dates of a line: "dayMonthYear 2024-03-05 12:00", with "?" where ambiguous and the zone where told.
std::string datesIn(const TokenList& list) {
  std::string result;
  for (const Token& token : list) {
    std::string text;
    if (const auto* stamp = token.metadataAs<DatestampTokenMetadata>()) {
      const Datestamp& datestamp = stamp->datestamp;
      text = std::string(toString(datestamp.type)) + (datestamp.isAmbiguous ? "? " : " ") +
             wallClock(datestamp.date, datestamp.timezone);
      if (datestamp.hasExplicitTimeZone) text += " " + datestamp.timezone.identifier();
    } else if (const auto* span = token.metadataAs<DatespanTokenMetadata>()) {
      const TimeZone gmt = TimeZone::gmt();
      text = "span " + wallClock(span->datespan.startDate, gmt) + " - " + wallClock(span->datespan.endDate, gmt);
    }
    if (text.empty()) continue;
    if (!result.empty()) result += " | ";
    result += text;
  }
  return result;
}

struct Case {
  std::string_view line;
  std::string_view dates;
};

void check(const LineReader& reader, std::span<const Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(datesIn(reader.after("G8", c.line)), c.dates) << c.line;
}

// --- Parts of dates -------------------------------------------------------------------------------------------------

TEST(DateNumbers, TellWhichPartOfADateTheyCanBe) {
  const auto number = [](std::string_view text) {
    return DateNumber{Decimal::parse(text == "2,024" ? "2024" : text).value(), text};
  };
  const auto text = [](std::optional<std::int64_t> value) { return value ? std::to_string(*value) : std::string("-"); };
  struct Row {
    std::string_view number, day, month, definite, year, recent, hour, minute;
  };
  constexpr Row kRows[] = {
      {"0", "-", "-", "-", "2000", "-", "0", "0"},       {"12", "12", "12", "-", "2012", "-", "12", "12"},
      {"13", "13", "-", "-", "2013", "-", "13", "13"},   {"031", "-", "-", "-", "2031", "-", "-", "31"},
      {"31", "31", "-", "-", "2031", "-", "-", "31"},    {"49", "-", "-", "-", "2049", "-", "-", "49"},
      {"50", "-", "-", "-", "1950", "-", "-", "50"},     {"99", "-", "-", "-", "1999", "-", "-", "-"},
      {"100", "-", "-", "-", "-", "-", "-", "-"},        {"1000", "-", "-", "1000", "1000", "-", "-", "-"},
      {"1900", "-", "-", "1900", "1900", "-", "-", "-"}, {"2101", "-", "-", "2101", "2101", "2101", "-", "-"},
      {"5000", "-", "-", "5000", "5000", "-", "-", "-"}, {"5001", "-", "-", "-", "-", "-", "-", "-"},
      {"2,024", "-", "-", "-", "-", "-", "-", "-"},      {"5.5", "-", "-", "-", "-", "-", "-", "-"},
  };
  for (const Row& row : kRows) {
    const DateNumber n = number(row.number);
    EXPECT_EQ(text(possibleDayOfMonth(n)), row.day) << row.number;
    EXPECT_EQ(text(possibleMonth(n)), row.month) << row.number;
    EXPECT_EQ(text(definiteYear(n)), row.definite) << row.number;
    EXPECT_EQ(text(possibleYear(n)), row.year) << row.number;
    EXPECT_EQ(text(recentYear(n)), row.recent) << row.number;
    EXPECT_EQ(text(possibleHourStamp(n)), row.hour) << row.number;
    EXPECT_EQ(text(possibleMinuteStamp(n)), row.minute) << row.number;
  }
}

// --- Lines ----------------------------------------------------------------------------------------------------------

TEST(DatePasses, ReadTimesOfDay) {
  constexpr Case kCases[] = {
      {"3 pm", "clockTime 2026-06-10 15:00"},
      {"3pm", "clockTime 2026-06-10 15:00"},
      {"3:45 pm", "clockTime 2026-06-10 15:45"},
      {"3.45 pm", "clockTime 2026-06-10 15:45"},
      {"12 am", "clockTime 2026-06-10 00:00"},
      {"12:30 am", "clockTime 2026-06-10 00:30"},
      {"12 pm", "clockTime 2026-06-10 12:00"},
      {"15:45", "clockTime 2026-06-10 15:45"},
      {"24:00", "clockTime 2026-06-11 00:00"},
      {"noon", "clockTime 2026-06-10 12:00"},
      {"midnight", "clockTime 2026-06-10 00:00"},
      {"1530 h", "clockTime 2026-06-10 15:30"},
      {"0905 hours", "clockTime 2026-06-10 09:05"},
      {"1500 hours", "clockTime 2026-06-10 15:00"},
      {"15 h 30", "clockTime 2026-06-10 15:30"},
      {"15h30", "clockTime 2026-06-10 15:30"},
      // Durations, amounts and what no clock shows.
      {"15 h 30 min", ""},
      {"1:30 hours", ""},
      {"1500 hours in days", ""},
      {"$20 * 1500 hours", ""},
      {"905 h", ""},
      {"9:75", ""},
      {"25:00", ""},
      {"24:30", ""},
      {"3:5", ""},
      {"3.75 pm", ""},
      {"1:30:15:10", ""},
  };
  check(LineReader(), kCases);
}

TEST(DatePasses, ReadNamesOfMonthsWithTheNumbersBesideThem) {
  constexpr Case kCases[] = {
      {"March 5", "dayAndMonth 2026-03-05 12:00"},
      {"5 March", "dayAndMonth 2026-03-05 12:00"},
      {"5th of March", "dayAndMonth 2026-03-05 12:00"},
      {"March 5th, 2024", "dayMonthYear 2024-03-05 12:00"},
      {"March 5, 2024", "dayMonthYear 2024-03-05 12:00"},
      {"5 March 24", "dayMonthYear 2024-03-05 12:00"},
      {"2024 March 5", "dayMonthYear 2024-03-05 12:00"},
      {"5-Mar-2024", "dayMonthYear 2024-03-05 12:00"},
      {"05/mar/24", "dayMonthYear 2024-03-05 12:00"},
      {"5 - March", "nakedMonth 2026-03-01 12:00"},
      {"sept 5 1950", "dayMonthYear 1950-09-05 12:00"},
      {"March 2024", "monthAndYear 2024-03-01 00:00"},
      {"March", "nakedMonth 2026-03-01 12:00"},
      {"29 February 2024", "dayMonthYear 2024-02-29 12:00"},
      {"March 5 2024 at 3pm", "dayMonthYearWithClockTimeDownToMinutes 2024-03-05 15:00"},
      {"3pm on March 5 2024", "dayMonthYearWithClockTimeDownToMinutes 2024-03-05 15:00"},
      {"Friday 5 March 2027", "dayMonthYear 2027-03-05 12:00"},
      {"Friday 12 June", "dayAndMonth 2026-06-12 12:00"},
      {"31 April + 3 days", "nakedMonth 2026-04-01 12:00"},
      {"Q2 2024", "span 2024-04-01 00:00 - 2024-06-30 00:00"},
      {"Q4", "span 2026-10-01 00:00 - 2026-12-31 00:00"},
      // Days that there are not, and numbers that belong to something else.
      {"29 February 2026", ""},
      {"30 February", ""},
      {"April 31 2024", ""},
      {"March 5 days", "nakedMonth 2026-03-01 12:00"},
      {"March 5%", "nakedMonth 2026-03-01 12:00"},
      {"March 5 km", "nakedMonth 2026-03-01 12:00"},
      {"March 5, 6 and 7", "dayAndMonth 2026-03-05 12:00"},
  };
  check(LineReader(), kCases);
}

TEST(DatePasses, ReadDigitsAroundSeparators) {
  constexpr Case kUnitedStates[] = {
      {"12/25/2025", "dayMonthYear 2025-12-25 12:00"},
      {"01-02-20", "dayMonthYear 2020-01-02 12:00"},
      {"25/12/2025", "dayMonthYear 2025-12-25 12:00"},
      {"2020-03-05", "dayMonthYear 2020-03-05 12:00"},
      {"2020-13-05", ""},
      {"2020-02-30", ""},
      {"99-01-02", ""},
      {"1/2/3/4", ""},
      {"12/25/2025 - 12/20/2025", "dayMonthYear 2025-12-25 12:00 | dayMonthYear 2025-12-20 12:00"},
      {"12/25-2025", ""},
      // One digit and two parts need a duration in the line.
      {"3/4", ""},
      {"13/2/2024", ""},
      {"13/2/2024 + 1 day", "dayMonthYear 2024-02-13 12:00"},
      {"3/4 + 2 weeks", "dayAndMonth? 2026-03-04 12:00"},
      {"13/2 + 2 weeks", "dayAndMonth? 2026-02-13 12:00"},
      {"x = 3/4 + 2 weeks", ""},
      {"3/4 weeks", ""},
      {"3/4 cup + 2 days", ""},
      {"10 / 2 days", ""},
      {"5.3.2020", ""},
  };
  check(LineReader(), kUnitedStates);
  constexpr Case kBritish[] = {
      {"01/02/2024", "dayMonthYear 2024-02-01 12:00"},
      {"12/25/2025", ""},
      {"3/4 + 2 weeks", "dayAndMonth? 2026-04-03 12:00"},
  };
  check(LineReader(nullptr, "en_GB"), kBritish);
  constexpr Case kGerman[] = {
      {"12.11.2020", "dayMonthYear 2020-11-12 12:00"},
      {"5.3.2999", "dayMonthYear 2999-03-05 12:00"},
      {"5.3.1500", ""},
      {"32.1.2020", ""},
  };
  check(LineReader(nullptr, "de_DE"), kGerman);
}

TEST(DatePasses, ReadDatesToldFromToday) {
  constexpr Case kCases[] = {
      {"today", "today 2026-06-10 12:00"},
      {"tomorrow", "tomorrow 2026-06-11 12:00"},
      {"yesterday", "yesterday 2026-06-09 12:00"},
      {"now", "now 2026-06-10 09:30"},
      {"5pm tomorrow", "dayMonthYearWithClockTimeDownToMinutes 2026-06-11 17:00"},
      {"tomorrow at noon", "dayMonthYearWithClockTimeDownToMinutes 2026-06-11 12:00"},
      // Wednesday is the day of the clock.
      {"Friday", "weekDay 2026-06-12 12:00"},
      {"Wednesday", "weekDay 2026-06-17 12:00"},
      {"next friday", "relativeWeekday 2026-06-12 12:00"},
      {"last friday", "relativeWeekday 2026-06-05 12:00"},
      {"Friday at 3pm", "weekdayWithClockTime 2026-06-12 15:00"},
      {"Friday at 3 + 2 hours", "weekdayWithClockTime 2026-06-12 15:00"},
      {"Friday at 9 + 2 hours", "weekdayWithClockTime 2026-06-12 09:00"},
      {"next week", "nextWeek 2026-06-14 00:00"},
      {"this week", "thisWeek 2026-06-07 00:00"},
      {"last month", "lastMonth 2026-05-01 00:00"},
      {"next year", "nextYear 2027-01-01 00:00"},
      {"next week tuesday", "relativeWeekday 2026-06-16 12:00"},
      {"tuesday last week", "relativeWeekday 2026-06-02 12:00"},
      {"next day", "dayMonthYear 2026-06-11 12:00"},
      {"next workday", "dayMonthYear 2026-06-11 12:00"},
      {"christmas", "specialDay 2026-12-25 12:00"},
      {"easter", "specialDay 2027-03-28 12:00"},
      {"christmas 2025", "specialDay 2025-12-25 12:00"},
      {"easter 2024", "specialDay 2024-03-31 12:00"},
      {"christmas in 3 years", "specialDay 2029-12-25 12:00"},
      {"last christmas", "specialDay 2025-12-25 12:00"},
      {"next christmas", "specialDay 2027-12-25 12:00"},
  };
  check(LineReader(), kCases);
}

TEST(DatePasses, ReadYearsThatStandAlone) {
  constexpr Case kCases[] = {
      {"2020 + 3 years", "nakedYear? 2020-01-01 00:00"},
      {"days in 2024", "nakedYear? 2024-01-01 00:00"},
      {"2019 to 2022 in days", "nakedYear? 2019-01-01 00:00 | nakedYear? 2022-01-01 00:00"},
      {"2020 + 3", ""},
      {"$2020 + 3 years", ""},
      {"5 * 2020 + 3 years", ""},
      {"2019 to 2022", ""},
      {"20% to 2022 in days", ""},
  };
  check(LineReader(), kCases);
}

TEST(DatePasses, ReadMomentsInZones) {
  constexpr Case kCases[] = {
      {"9am in Paris", "clockTime 2026-06-10 09:00 Europe/Paris"},
      {"3pm Tokyo - 3pm London", "clockTime 2026-06-10 15:00 Asia/Tokyo | clockTime 2026-06-10 15:00 Europe/London"},
      {"3pm to Tokyo", "clockTime 2026-06-10 15:00"},
      {"now in Tokyo", "now 2026-06-10 18:30 Asia/Tokyo"},
      {"Friday 3pm Tokyo", "weekdayWithClockTime 2026-06-12 15:00 Asia/Tokyo"},
      {"2024-03-05T14:30:00Z", "iso8601 2024-03-05 14:30 UTC"},
      {"2024-03-05T14:30:00+02:00", "iso8601 2024-03-05 12:30 UTC"},
      {"2024-03-05T14:30:15", "iso8601 2024-03-05 14:30:15"},
      {"2024-03-05T14:30Z", "iso8601 2024-03-05 14:30 UTC"},
      {"2024-03-05 14:30:15", "dayMonthYearWithClockTimeDownToSeconds 2024-03-05 14:30:15"},
  };
  check(LineReader(), kCases);
}

TEST(DatePasses, LookAheadWhereAsked) {
  const LineReader reader([](EngineFeatureFlags& flags) { flags.seeksFutureDate = true; });
  constexpr Case kCases[] = {
      {"March 5", "dayAndMonth 2027-03-05 00:00"}, {"July 5", "dayAndMonth 2026-07-05 00:00"},
      {"9am", "clockTime 2026-06-11 09:00"},       {"11am", "clockTime 2026-06-10 11:00"},
      {"3/4", "dayAndMonth? 2027-03-04 00:00"},    {"March 5 2024", "dayMonthYear 2024-03-05 00:00"},
  };
  check(reader, kCases);
}

TEST(DatePasses, KeepTheYearOfAWeekAtTheTurnOfTheYear) {
  const LineReader reader;
  const foundation::ScopedEnvironment world(worldAt("2026-12-30T09:30:00Z", "UTC", "en_US"));
  constexpr Case kCases[] = {
      {"next week", "nextWeek 2027-01-03 00:00"},
      {"next month", "nextMonth 2027-01-01 00:00"},
      {"christmas", "specialDay 2027-12-25 12:00"},
  };
  check(reader, kCases);
}

TEST(DatePasses, EndWithManyPieces) {
  std::string line;
  for (int i = 0; i < 400; ++i) line += "today, ";
  const LineReader reader;
  const TokenList list = reader.after("G8", line);
  std::size_t stamps = 0;
  for (const Token& token : list) stamps += token.is(TokenType::datestamp) ? 1 : 0;
  EXPECT_EQ(stamps, 200u);
}

TEST(DateFormatTemplates, AreToldFromWords) {
  struct Row {
    std::string_view text;
    bool isValid;
  };
  constexpr Row kRows[] = {{"dd.MM.yyyy", true}, {"yyyy", true}, {"h'a", true},   {"", false},
                           {".dd", false},       {"dd.", false}, {"date", false}, {"dd/MM", false}};
  for (const Row& row : kRows) {
    EXPECT_EQ(DateFormatTemplateParser::isValidDateFormat(row.text), row.isValid) << row.text;
  }
}

}  // namespace
}  // namespace tavrine::testing
