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
#include "Tests/Support/Table.h"

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

TEST(DatePasses, ReadTimesOfDay) { check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadTimesOfDay")); }

TEST(DatePasses, ReadNamesOfMonthsWithTheNumbersBesideThem) {
  check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadNamesOfMonthsWithTheNumbersBesideThem"));
}

TEST(DatePasses, ReadDigitsAroundSeparators) {
  check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadDigitsAroundSeparators, unitedStates"));
  constexpr Case kBritish[] = {
      {"01/02/2024", "dayMonthYear 2024-02-01 12:00"},
      {"12/25/2025", ""},
      {"3/4 + 2 weeks", "dayAndMonth? 2026-04-03 12:00"},
  };
  check(LineReader(nullptr, "en_GB"), kBritish);
  check(LineReader(nullptr, "de_DE"), rowsOf<Case>("Parsing/DatePassTests", "ReadDigitsAroundSeparators, german"));
}

TEST(DatePasses, ReadDatesToldFromToday) {
  check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadDatesToldFromToday"));
}

TEST(DatePasses, ReadYearsThatStandAlone) {
  check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadYearsThatStandAlone"));
}

TEST(DatePasses, ReadMomentsInZones) {
  check(LineReader(), rowsOf<Case>("Parsing/DatePassTests", "ReadMomentsInZones"));
}

TEST(DatePasses, LookAheadWhereAsked) {
  const LineReader reader([](EngineFeatureFlags& flags) { flags.seeksFutureDate = true; });
  check(reader, rowsOf<Case>("Parsing/DatePassTests", "LookAheadWhereAsked"));
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
  for (const Row& row : rowsOf<Row>("Parsing/DatePassTests", "AreToldFromWords")) {
    EXPECT_EQ(DateFormatTemplateParser::isValidDateFormat(row.text), row.isValid) << row.text;
  }
}

}  // namespace
}  // namespace tavrine::testing
