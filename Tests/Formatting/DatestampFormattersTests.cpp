#include <gtest/gtest.h>

#include <memory>
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
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

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
  for (const KindCase& c : rowsOf<KindCase>("Formatting/DatestampFormattersTests", "KindsWithAPatternOfTheirOwn")) {
    const ScopedEnvironment scope(world(c.locale));
    const Datestamp datestamp{.date = at(c.date), .type = c.type, .timezone = TimeZone::gmt()};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), c.locale), c.want) << toString(c.type) << ' ' << c.date;
  }
}

TEST(DatestampFormatters, InTheStyleOfTheLocale) {
  for (const KindCase& c : rowsOf<KindCase>("Formatting/DatestampFormattersTests", "InTheStyleOfTheLocale")) {
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
  for (const ZoneCase& c : rowsOf<ZoneCase>("Formatting/DatestampFormattersTests", "Zones")) {
    const Datestamp datestamp{
        .date = at(c.date), .type = c.type, .timezone = TimeZone(c.zone), .hasExplicitTimeZone = c.isExplicit};
    EXPECT_EQ(shown(EvaluationResult::date(datestamp), "en_US"), c.want) << c.zone << ' ' << c.date;
  }
}

TEST(DatestampFormatters, TemplatesAreOrderedByTheLocale) {
  struct TemplateCase {
    std::string_view locale, dateTemplate, want;
  };
  for (const TemplateCase& c :
       rowsOf<TemplateCase>("Formatting/DatestampFormattersTests", "TemplatesAreOrderedByTheLocale")) {
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
  for (const MachineCase& c : rowsOf<MachineCase>("Formatting/DatestampFormattersTests", "DatesForMachines")) {
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
