// Random dates, held against another implementation: ICU for calendar arithmetic. The Gregorian rules alone decide
// here, and zones whose rules have been settled for long.

#include <gtest/gtest.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>

#include "Foundation/Calendar.h"

namespace tavrine::foundation {
namespace {

constexpr std::array kZones = {
    "GMT",           "America/New_York", "America/Los_Angeles", "America/Chicago",  "America/Phoenix",
    "Europe/London", "Europe/Paris",     "Europe/Berlin",       "Europe/Madrid",    "Europe/Rome",
    "Europe/Zurich", "Europe/Stockholm", "Asia/Tokyo",          "Asia/Singapore",   "Asia/Kolkata",
    "Asia/Dubai",    "Australia/Sydney", "Australia/Brisbane",  "Pacific/Auckland", "Asia/Kathmandu",
};

/// A second's worth of an unoptimised build. TAVRINE_ORACLE_DATES=5000 makes it a hundred thousand in all.
int datesPerZone() {
  const char* const asked = std::getenv("TAVRINE_ORACLE_DATES");
  return asked != nullptr ? std::atoi(asked) : 1'000;
}

std::unique_ptr<icu::GregorianCalendar> oracleIn(const char* zone) {
  UErrorCode status = U_ZERO_ERROR;
  auto calendar =
      std::make_unique<icu::GregorianCalendar>(icu::TimeZone::createTimeZone(zone), icu::Locale("en_US"), status);
  calendar->setGregorianChange(-8.64e15, status);
  calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
  EXPECT_TRUE(U_SUCCESS(status)) << zone;
  return calendar;
}

struct Field {
  Calendar::Component component;
  UCalendarDateFields icu;
  std::int64_t shift = 0;
};
constexpr std::array kFields = {
    Field{Calendar::Component::year, UCAL_YEAR},
    Field{Calendar::Component::month, UCAL_MONTH, 1},
    Field{Calendar::Component::day, UCAL_DATE},
    Field{Calendar::Component::hour, UCAL_HOUR_OF_DAY},
    Field{Calendar::Component::minute, UCAL_MINUTE},
    Field{Calendar::Component::second, UCAL_SECOND},
    Field{Calendar::Component::weekday, UCAL_DAY_OF_WEEK},
    Field{Calendar::Component::weekdayOrdinal, UCAL_DAY_OF_WEEK_IN_MONTH},
    Field{Calendar::Component::weekOfMonth, UCAL_WEEK_OF_MONTH},
    Field{Calendar::Component::weekOfYear, UCAL_WEEK_OF_YEAR},
    Field{Calendar::Component::yearForWeekOfYear, UCAL_YEAR_WOY},
};

TEST(CalendarOracleTests, AgreesOnFieldsSumsAndDifferences) {
  std::mt19937_64 random(20'260'610);
  // 1970 to 2200: before, the two know different histories of the zones.
  std::uniform_int_distribution<std::int64_t> seconds(0, 7'258'118'400);
  std::uniform_int_distribution<std::int64_t> amounts(-600, 600);
  const int dates = datesPerZone();
  ASSERT_GT(dates, 0);
  for (const char* const zone : kZones) {
    const Calendar calendar(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone(zone));
    const auto oracle = oracleIn(zone);
    for (int i = 0; i < dates; ++i) {
      const std::int64_t start = seconds(random);
      const Date date(static_cast<double>(start));
      UErrorCode status = U_ZERO_ERROR;
      const auto reset = [&] { oracle->setTime(static_cast<double>(start) * 1000, status); };
      const auto moment = [&] { return oracle->getTime(status) / 1000; };

      reset();
      for (const Field& field : kFields) {
        ASSERT_EQ(calendar.component(field.component, date), oracle->get(field.icu, status) + field.shift)
            << zone << ' ' << start << ' ' << toString(field.component);
      }
      const auto back = calendar.dateFrom(
          calendar.dateComponents({Calendar::Component::year, Calendar::Component::month, Calendar::Component::day,
                                   Calendar::Component::hour, Calendar::Component::minute, Calendar::Component::second},
                                  date));
      ASSERT_TRUE(back) << zone << ' ' << start;
      // An hour that comes twice leads back to its first pass.
      ASSERT_TRUE(*back == date || date.timeIntervalSince(*back) == 3600) << zone << ' ' << start;

      const std::int64_t amount = amounts(random);
      const Field& unit = kFields[static_cast<std::size_t>(i) % 3];
      reset();
      oracle->add(unit.icu, static_cast<std::int32_t>(amount), status);
      const auto sum = calendar.dateByAdding(unit.component, amount, date);
      ASSERT_TRUE(sum) << zone << ' ' << start;
      if (amount != 0 && sum->timeIntervalSince1970() >= 0) {
        // ICU keeps the offset of an hour that comes twice; the calendar takes the first one.
        const double apart = std::abs(sum->timeIntervalSince1970() - moment());
        ASSERT_TRUE(apart == 0 || apart == 3600) << zone << ' ' << start << ' ' << toString(unit.component) << amount;
        if (apart != 0) {
          ASSERT_EQ(calendar.component(Calendar::Component::hour, *sum), oracle->get(UCAL_HOUR_OF_DAY, status));
        }
      }

      // What is measured leads from the one date to the other.
      const Date other(static_cast<double>(seconds(random)));
      const DateComponents difference =
          calendar.dateComponents({Calendar::Component::year, Calendar::Component::month,
                                   Calendar::Component::weekOfYear, Calendar::Component::day, Calendar::Component::hour,
                                   Calendar::Component::minute, Calendar::Component::second},
                                  date, other);
      ASSERT_EQ(calendar.dateByAdding(difference, date), other) << zone << ' ' << start;
      if (i % 20 == 0) {
        reset();
        const double target = other.timeIntervalSince1970() * 1000;
        ASSERT_EQ(difference.year, oracle->fieldDifference(target, UCAL_YEAR, status)) << zone << ' ' << start;
        ASSERT_EQ(difference.month, oracle->fieldDifference(target, UCAL_MONTH, status)) << zone << ' ' << start;
      }
      ASSERT_TRUE(U_SUCCESS(status));
    }
  }
}

TEST(CalendarOracleTests, AgreesOnDaysOfAllYears) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> days(-700'000, 2'900'000);  // years 54 to 9909
  const Calendar calendar(Calendar::Identifier::gregorian, Locale("de_DE"), TimeZone::gmt());
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar oracle(*icu::TimeZone::getGMT(), icu::Locale("de_DE"), status);
  oracle.setGregorianChange(-8.64e15, status);
  for (int i = 0; i < 20'000; ++i) {
    const std::int64_t day = days(random);
    const Date date(static_cast<double>(day) * 86'400);
    oracle.setTime(static_cast<double>(day) * 86'400'000, status);
    for (const Field& field : kFields) {
      ASSERT_EQ(calendar.component(field.component, date), oracle.get(field.icu, status) + field.shift)
          << day << ' ' << toString(field.component);
    }
    ASSERT_EQ(calendar.ordinalityOf(Calendar::Component::day, Calendar::Component::year, date),
              oracle.get(UCAL_DAY_OF_YEAR, status));
  }
}

}  // namespace
}  // namespace tavrine::foundation
