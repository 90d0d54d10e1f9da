#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Clock.h"
#include "Foundation/Environment.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/ISO8601.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"

namespace tavrine {
namespace {

using testing::contextFor;
using testing::number;
using enum DatestampType;

/// "2026-06-10 09:30:00.25", or the start of it, on the clocks of the zone.
Date at(std::string_view text, std::string_view zone = "GMT") {
  const auto part = [text](std::size_t from, std::size_t length) {
    return from + length <= text.size() ? std::stoll(std::string(text.substr(from, length))) : 0;
  };
  const Calendar calendar(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone(zone));
  DateComponents components{.year = part(0, 4), .month = part(5, 2), .day = part(8, 2)};
  components.hour = part(11, 2);
  components.minute = part(14, 2);
  components.second = part(17, 2);
  components.nanosecond = part(20, 2) * 10'000'000;
  return calendar.dateFrom(components).value_or(Date());
}

/// A world at half past nine on Wednesday, 10 June 2026, on the clocks of GMT.
Environment world(std::string_view locale, std::string_view now = "2026-06-10 09:30") {
  Environment::Parts parts = Environment::fromSystem().parts();
  parts.clock = std::make_shared<FixedClock>(at(now));
  parts.timeZoneIdentifier = "GMT";
  parts.locale = Locale(locale);
  return Environment(parts);
}

std::string shown(const EvaluationResult& result, std::string_view locale,
                  std::shared_ptr<const TokenList> line = nullptr) {
  ResultFormatterContext context = contextFor(locale);
  context.originalTokenList = std::move(line);
  const auto formatted = ModernResultFactory::formattedResultFor(result, context);
  return formatted ? formatted->stringValue : "no formatter";
}

/// A line that names dates, one of them in brackets if there are several.
std::shared_ptr<const TokenList> lineWith(const std::vector<Date>& dates) {
  const CalendarEnvironment environment(Calendar::current());
  std::vector<Token> tokens;
  for (const Date date : dates) {
    Token token = TokenFactory::datestampWith(
        Datestamp{.date = date, .type = dayMonthYear, .timezone = TimeZone::gmt()}, environment);
    if (!tokens.empty()) {
      Token brackets(TokenType::subexpression, "(…)", {});
      brackets.subtokens = TokenList::frozen({token});
      token = brackets;
    }
    tokens.push_back(token);
  }
  return TokenList::frozen(std::move(tokens));
}

struct KindCase {
  DatestampType type;
  std::string_view date, want;
  std::string_view locale = "en_US";
};

TEST(DatestampFormatters, KindsWithAPatternOfTheirOwn) {
  constexpr KindCase cases[] = {
      // Months without the year, if it is this one.
      {nakedMonth, "2026-03-01", "March"},
      {nakedMonth, "2025-12-01", "December 2025"},
      {nextMonth, "2026-07-10", "July"},
      {lastMonth, "2026-05-10", "Mai", "de_DE"},
      {thisMonth, "2026-06-10", "juin", "fr_FR"},
      {monthAndYear, "2026-03-01", "March 2026"},
      {monthAndYear, "2024-03-01", "mars 2024", "fr_FR"},
      {nakedYear, "2026-01-01", "2026"},
      {nextYear, "2027-06-10", "2027"},
      {lastYear, "2025-06-10", "2025"},
      {thisYear, "2026-06-10", "2026", "ja_JP"},
      // With seconds by the clock of twelve hours, with less than seconds by that of 24.
      {dayMonthYearWithClockTimeDownToSeconds, "2026-06-10 21:05:07", "10 June 2026 9:05:07 PM"},
      {dayMonthYearWithClockTimeDownToSeconds, "2026-06-10 21:05:07", "10 June 2026 9:05:07 pm", "en_GB"},
      {dayMonthYearWithClockTimeDownToSubSeconds, "2026-06-10 21:05:07.25", "10 June 2026 21:05:07.250"},
      {dayMonthYearWithClockTimeDownToSubSeconds, "2026-06-10 21:05:07.10", "10 Juni 2026 21:05:07.100", "de_DE"},
      // Weeks begin on Sunday in the US and on Monday in Germany.
      {dayMonthYearAndWeekday, "2026-06-12", "Friday"},
      {dayMonthYearAndWeekday, "2026-06-14", "Sunday 14 June"},
      {dayMonthYearAndWeekday, "2026-06-14", "Sonntag", "de_DE"},
      {dayMonthYearAndWeekday, "2026-06-07", "Sunday"},
      {dayMonthYearAndWeekday, "2026-06-07", "Sonntag 7 Juni", "de_DE"},
      {dayMonthYearAndWeekday, "2027-06-10", "Thursday 10 June 2027"},
      {weekDay, "2026-06-19", "Friday"},
      {weekDay, "2026-06-19", "vendredi", "fr_FR"},
      {weekdayWithClockTime, "2026-06-12 17:00", "Friday 5:00 PM"},
      {weekdayWithClockTime, "2026-06-19 17:00", "June 19, 2026 at 5:00 PM"},
      {utcTime, "2026-06-10 17:05", "17:05"},
      {utcTime, "2026-06-12 17:05", "June 12, 2026 at 5:05 PM"},
  };
  for (const KindCase& c : cases) {
    const ScopedEnvironment scope(world(c.locale));
    const Datestamp datestamp{.date = at(c.date), .type = c.type, .timezone = TimeZone::gmt()};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), c.locale), c.want) << toString(c.type) << ' ' << c.date;
  }
}

TEST(DatestampFormatters, InTheStyleOfTheLocale) {
  constexpr KindCase cases[] = {
      // This year goes without saying, another one doesn't.
      {dayMonthYear, "2026-07-01", "1 July"},
      {dayMonthYear, "2026-07-01", "1 July", "en_GB"},
      {dayMonthYear, "2026-07-01", "1 Juli", "de_DE"},
      {dayMonthYear, "2026-07-01", "1 juillet", "fr_FR"},
      {dayMonthYear, "2026-07-01", "1 7月", "ja_JP"},
      {specialDay, "2025-12-25", "December 25, 2025"},
      {specialDay, "2025-12-25", "25 December 2025", "en_GB"},
      {dayMonthYear, "2025-12-25", "25. Dezember 2025", "de_DE"},
      {dayMonthYear, "2025-12-25", "25 décembre 2025", "fr_FR"},
      {dayMonthYear, "2025-12-25", "2025年12月25日", "ja_JP"},
      {dayMonthYear, "2025-12-25", "25 декабря 2025 г.", "ru_RU"},
      {dayMonthYear, "2025-12-25", "25 ธันวาคม ค.ศ. 2025", "th_TH"},  // not the Buddhist year 2568
      {nextWeek, "2026-06-17", "17 June"},
      {dayMonthYear, "1492-10-12", "October 12, 1492"},
      {dayMonthYear, "9999-12-31", "December 31, 9999"},

      // The days around today by their words; those two days away only where there is no other short form.
      {tomorrow, "2026-06-11", "Tomorrow"},
      {dayMonthYear, "2026-06-09", "Yesterday"},
      {today, "2026-06-10", "Today"},
      {today, "2026-06-10", "Heute", "de_DE"},
      {tomorrow, "2026-06-11", "demain", "fr_FR"},
      {tomorrow, "2026-06-11", "mañana", "es_ES"},
      {tomorrow, "2026-06-11", "Завтра", "ru_RU"},
      {tomorrow, "2026-06-11", "明日", "ja_JP"},
      {dayMonthYear, "2026-06-12", "12 Juni", "de_DE"},

      // With a time. A line that is all about today shows nothing else.
      {now, "2026-06-10 09:30", "9:30 AM"},
      {clockTime, "2026-06-10 17:45", "5:45 PM"},
      {clockTime, "2026-06-10 17:45", "17:45", "en_GB"},
      {clockTime, "2026-06-10 17:45", "17:45", "de_DE"},
      {clockTime, "2026-06-10 17:45", "17:45", "ru_RU"},
      {clockTime, "2026-06-10 17:45", "17:45", "es_ES"},
      {clockTime, "2026-06-10 17:45", "17:45", "zh_CN"},
      {clockTime, "2026-06-10 17:45", "aujourd’hui à 17:45", "fr_FR"},
      {clockTime, "2026-06-11 03:00", "Tomorrow at 3:00 AM"},
      {clockTime, "2026-06-11 03:00", "Morgen um 03:00", "de_DE"},
      {clockTime, "2026-06-11 03:00", "demain à 03:00", "fr_FR"},
      {clockTime, "2026-06-11 03:00", "明日 3:00", "ja_JP"},
      {clockTime, "2026-06-12 03:00", "June 12, 2026 at 3:00 AM"},
      {clockTime, "2026-06-12 03:00", "Übermorgen um 03:00", "de_DE"},
      {dayMonthYearWithClockTimeDownToMinutes, "2024-03-05 14:30", "March 5, 2024 at 2:30 PM"},
      {dayMonthYearWithClockTimeDownToMinutes, "2024-03-05 14:30", "5. März 2024 um 14:30", "de_DE"},

      {unixTimestamp, "2023-11-14 22:13:20", "November 14, 2023 at 10:13:20 PM Greenwich Mean Time"},
      {unixTimestamp, "2023-11-14 22:13:20", "14. November 2023 um 22:13:20 Mittlere Greenwich-Zeit", "de_DE"},
  };
  for (const KindCase& c : cases) {
    const ScopedEnvironment scope(world(c.locale));
    const Datestamp datestamp{.date = at(c.date), .type = c.type, .timezone = TimeZone::gmt()};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), c.locale), c.want) << toString(c.type) << ' ' << c.date;
  }
}

TEST(DatestampFormatters, TheNewYearIsTomorrow) {
  const ScopedEnvironment scope(world("en_US", "2026-12-31 12:00"));
  const auto shownDay = [](std::string_view date, std::string_view locale) {
    return shown(EvaluationResult::date({.date = at(date), .type = dayMonthYear, .timezone = TimeZone::gmt()}), locale);
  };
  EXPECT_EQ(shownDay("2027-01-01", "en_US"), "Tomorrow");
  EXPECT_EQ(shownDay("2027-01-02", "en_US"), "January 2, 2027");
  EXPECT_EQ(shownDay("2027-01-02", "de_DE"), "Übermorgen");
}

TEST(DatestampFormatters, WhatElseTheLineNames) {
  const ScopedEnvironment scope(world("en_US"));
  struct LineCase {
    DatestampType type;
    std::string_view date;
    std::vector<Date> named;
    std::string_view want;
  };
  const LineCase cases[] = {
      {dayMonthYear, "2026-07-01", {at("2026-01-01")}, "1 July"},
      {dayMonthYear, "2026-07-01", {at("2024-07-01")}, "July 1, 2026"},
      {dayMonthYear, "2026-07-01", {at("2026-01-01"), at("2027-01-01")}, "July 1, 2026"},
      {dayMonthYear, "2026-06-11", {at("2024-07-01")}, "Tomorrow"},
      {clockTime, "2026-06-10 17:45", {at("2026-06-10")}, "5:45 PM"},
      {clockTime, "2026-06-10 17:45", {at("2026-06-11")}, "Today at 5:45 PM"},
      {clockTime, "2026-06-10 17:45", {at("2026-06-10"), at("2026-06-09")}, "Today at 5:45 PM"},
  };
  for (const LineCase& c : cases) {
    const Datestamp datestamp{.date = at(c.date), .type = c.type, .timezone = TimeZone::gmt()};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), "en_US", lineWith(c.named)), c.want) << c.date;
  }
}

TEST(DatestampFormatters, Zones) {
  const ScopedEnvironment scope(world("en_US"));
  struct ZoneCase {
    DatestampType type;
    std::string_view zone, date;
    bool isExplicit;
    std::string_view want;
  };
  constexpr ZoneCase cases[] = {
      // A zone that wasn't named is not shown: the reader's own one counts.
      {clockTime, "America/New_York", "2026-06-10 09:00", false, "9:00 AM"},
      {clockTime, "America/New_York", "2026-06-10 09:00", true, "5:00 AM"},
      // Whether it is today is told by the clocks over there, and no other day has a word.
      {clockTime, "Asia/Tokyo", "2026-06-10 16:00", true, "June 11, 2026 at 1:00 AM"},
      {clockTime, "Pacific/Honolulu", "2026-06-10 09:00", true, "11:00 PM"},
      {clockTime, "Pacific/Honolulu", "2026-06-10 10:00", true, "June 10, 2026 at 12:00 AM"},
      {dayMonthYear, "Asia/Tokyo", "2026-06-30 16:00", true, "1 July"},
      {dayMonthYear, "Asia/Tokyo", "2026-06-10 16:00", true, "Tomorrow"},
      {nakedMonth, "Asia/Tokyo", "2026-06-30 16:00", false, "July"},
      // The rule beyond the table of the zone file.
      {dayMonthYearWithClockTimeDownToMinutes, "America/New_York", "2040-07-04 16:00", true,
       "July 4, 2040 at 12:00 PM"},
      // Summer time came back to Egypt in 2023.
      {dayMonthYearWithClockTimeDownToMinutes, "Africa/Cairo", "2024-07-01 12:00", true, "July 1, 2024 at 3:00 PM"},
      {unixTimestamp, "America/New_York", "2023-11-14 22:13:20", false,
       "November 14, 2023 at 5:13:20 PM Eastern Standard Time"},
      {unixTimestamp, "GMT+05:30", "2023-11-14 22:13:20", false, "November 15, 2023 at 3:43:20 AM GMT+05:30"},
      {unixTimestamp, "UTC", "1970-01-01 00:00:00", false, "January 1, 1970 at 12:00:00 AM Coordinated Universal Time"},
  };
  for (const ZoneCase& c : cases) {
    const Datestamp datestamp{
        .date = at(c.date), .type = c.type, .timezone = TimeZone(c.zone), .hasExplicitTimeZone = c.isExplicit};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), "en_US"), c.want) << c.zone << ' ' << c.date;
  }
}

TEST(DatestampFormatters, TemplatesAreOrderedByTheLocale) {
  struct TemplateCase {
    std::string_view locale, dateTemplate, want;
  };
  constexpr TemplateCase cases[] = {
      {"en_US", "dd.MM.yyyy", "03/05/2024"},
      {"en_GB", "dd.MM.yyyy", "05/03/2024"},
      {"de_DE", "dd.MM.yyyy", "05.03.2024"},
      {"fr_FR", "dd/MM/yyyy", "05/03/2024"},
      {"ja_JP", "dd/MM/yyyy", "2024/03/05"},
      {"en_US", "EEEE", "Tuesday"},
      {"en_US", "hmm", "2:30 PM"},
      {"en_US", "HHmmz", "14:30 GMT"},
      {"de_DE", "MMMMd", "5. März"},
      // No template, so the date is shown as if there were none.
      {"en_US", "", "2024"},
      {"en_US", "yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy", "2024"},
  };
  for (const TemplateCase& c : cases) {
    const ScopedEnvironment scope(world(c.locale));
    // Whatever kind of date it is.
    const Datestamp datestamp{.date = at("2024-03-05 14:30"),
                              .type = nakedYear,
                              .timezone = TimeZone::gmt(),
                              .dateFormatTemplate = std::string(c.dateTemplate)};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), c.locale), c.want) << c.locale << ' ' << c.dateTemplate;
  }
}

TEST(DatestampFormatters, DatesForMachines) {
  struct MachineCase {
    std::string_view zone, date, want;
  };
  constexpr MachineCase cases[] = {
      {"GMT", "2024-03-05 14:30:00", "2024-03-05T14:30:00Z"},
      {"GMT", "2024-03-05 14:30:59.99", "2024-03-05T14:30:59Z"},
      {"America/New_York", "2024-03-05 14:30:00", "2024-03-05T09:30:00-05:00"},
      {"Asia/Kolkata", "2024-12-31 23:00:00", "2025-01-01T04:30:00+05:30"},
      {"GMT", "0476-09-04 00:00:00", "0476-09-04T00:00:00Z"},
  };
  for (const MachineCase& c : cases) {
    const Datestamp datestamp{.date = at(c.date), .timezone = TimeZone(c.zone)};
    EXPECT_EQ(shown(EvaluationResult::iso8601({datestamp}), "de_DE"), c.want) << c.zone << ' ' << c.date;
  }

  EXPECT_EQ(shown(EvaluationResult::timestamp({number("1700000000")}), "en_US"), "1700000000");
  EXPECT_EQ(shown(EvaluationResult::timestamp({number("-86400.7")}), "de_DE"), "-86401");
  EXPECT_EQ(shown(EvaluationResult::timestamp({Decimal::nan()}), "en_US"), "");
}

TEST(DatestampFormatters, NoMomentIsTooFar) {
  const ScopedEnvironment scope(world("en_US"));
  const auto shownAt = [](double seconds) {
    return shown(EvaluationResult::date({.date = Date(seconds), .type = dayMonthYear, .timezone = TimeZone::gmt()}),
                 "en_US");
  };
  EXPECT_EQ(shownAt(1e30), "December 31, 5000000");
  EXPECT_EQ(shownAt(1e13), "May 20, 318857");
}

}  // namespace
}  // namespace tavrine
