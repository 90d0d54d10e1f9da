#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "Foundation/Locale.h"
#include "Foundation/PosixZoneRule.h"
#include "Foundation/TimeZone.h"
#include "Foundation/ZoneRules.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

TEST(TimeZoneTests, KnowsZonesByTheirIdentifier) {
  struct Case {
    const char* identifier;
    std::optional<std::int32_t> offset;  // at the start of 2024
  };
  const Date date(1'704'067'200);
  for (const Case& c : rowsOf<Case>("Foundation/TimeZoneTests", "KnowsZonesByTheirIdentifier")) {
    const auto zone = TimeZone::withIdentifier(c.identifier);
    ASSERT_EQ(zone.has_value(), c.offset.has_value()) << c.identifier;
    EXPECT_EQ(TimeZone(c.identifier).secondsFromGMT(date), c.offset.value_or(0)) << c.identifier;
  }
  EXPECT_EQ(TimeZone::withSecondsFromGMT(-12'600)->identifier(), "GMT-03:30");
  EXPECT_EQ(TimeZone::withSecondsFromGMT(0)->identifier(), "GMT");
  EXPECT_FALSE(TimeZone::withSecondsFromGMT(100'000));
  EXPECT_FALSE(TimeZone::withSecondsFromGMT(INT64_MIN));
}

// The table is made by Tools/generate_zone_offsets.py, which reads the zone files with the code of another language.
TEST(TimeZoneTests, AgreesWithAnotherReaderOfTheZoneFiles) {
  std::ifstream table(std::string(TAVRINE_SOURCE_DIR) + "/Tests/Foundation/Data/zone-offsets.tsv");
  std::string line;
  ASSERT_TRUE(std::getline(table, line));
  int rows = 0;
  for (; std::getline(table, line); ++rows) {
    std::istringstream cells(line);
    std::string identifier;
    std::int64_t moment = 0;
    std::int32_t offset = 0;
    std::string abbreviation;
    ASSERT_TRUE(cells >> identifier >> moment >> offset >> abbreviation) << line;
    const auto zone = TimeZone::withIdentifier(identifier);
    ASSERT_TRUE(zone) << line;
    const Date date(static_cast<double>(moment));
    EXPECT_EQ(zone->secondsFromGMT(date), offset) << line;
    EXPECT_EQ(zone->abbreviation(date), abbreviation) << line;
  }
  EXPECT_GT(rows, 300);
}

TEST(TimeZoneTests, NamesZones) {
  const TimeZone newYork("America/New_York");
  const Date winter(1'704'067'200);
  const Date summer(1'720'000'000);
  EXPECT_EQ(newYork.abbreviation(winter), "EST");
  EXPECT_EQ(newYork.abbreviation(summer), "EDT");
  EXPECT_FALSE(newYork.isDaylightSavingTime(winter));
  EXPECT_TRUE(newYork.isDaylightSavingTime(summer));
  EXPECT_EQ(newYork.localizedName(TimeZone::NameStyle::longName, summer, Locale("en_US")), "Eastern Daylight Time");
  EXPECT_EQ(newYork.localizedName(TimeZone::NameStyle::generic, summer, Locale("en_US")), "Eastern Time");
  EXPECT_EQ(TimeZone("Europe/Berlin").localizedName(TimeZone::NameStyle::shortName, summer, Locale("de_DE")), "MESZ");
  EXPECT_EQ(TimeZone("GMT+3").localizedName(TimeZone::NameStyle::longName, summer, Locale("en_US")), "GMT+03:00");
  EXPECT_EQ(TimeZone("UTC").localizedName(TimeZone::NameStyle::longName, summer, Locale("en_US")),
            "Coordinated Universal Time");
}

TEST(TimeZoneTests, FollowsTheRuleBeyondTheTable) {
  struct Case {
    const char* rule;
    std::int64_t moment;
    std::int32_t offset;
    const char* name;
  };
  for (const Case& c : rowsOf<Case>("Foundation/TimeZoneTests", "FollowsTheRuleBeyondTheTable")) {
    const auto rule = PosixZoneRule::parse(c.rule);
    ASSERT_TRUE(rule) << c.rule;
    const ZonePeriod period = rule->periodAt(c.moment);
    EXPECT_EQ(period.secondsFromGMT, c.offset) << c.rule << ' ' << c.moment;
    EXPECT_EQ(period.abbreviation, c.name) << c.rule << ' ' << c.moment;
    EXPECT_LE(period.start, c.moment) << c.rule;
    EXPECT_GT(period.end, c.moment) << c.rule;
  }
  for (const char* const broken : {"", "E5", "EST", "EST5EDT", "EST5EDT,", "EST5EDT,M3.2.0", "EST5EDT,M13.2.0,M11.1.0",
                                   "EST5EDT,M3.2.0,M11.1.0x", "<+03-3", "EST168", "EST5EDT,J0,J5"}) {
    EXPECT_FALSE(PosixZoneRule::parse(broken)) << broken;
  }
}

TEST(TimeZoneTests, RefusesBrokenZoneFiles) {
  // One set of clocks an hour ahead, in a file of the first version.
  std::string file = std::string("TZif") + std::string(16, '\0');
  const auto addNumber = [&](unsigned value) {
    for (const int shift : {24, 16, 8, 0}) file += static_cast<char>(value >> shift & 0xff);
  };
  for (const unsigned count : {0u, 0u, 0u, 1u, 1u, 4u}) addNumber(count);
  addNumber(1'000'000'000);
  file += '\0';
  addNumber(3600);
  file += std::string(2, '\0') + "ABC" + '\0';

  const auto rules = ZoneRules::fromZoneFile(file);
  ASSERT_TRUE(rules);
  EXPECT_EQ(rules->periodAt(0).secondsFromGMT, 3600);
  EXPECT_EQ(rules->periodAt(0).abbreviation, "ABC");
  for (std::size_t length = 0; length < file.size(); ++length) {
    EXPECT_FALSE(ZoneRules::fromZoneFile(file.substr(0, length))) << length;
  }
  // Any byte may be anything: what comes out must not be read beyond its ends.
  for (std::size_t i = 4; i < file.size(); ++i) {
    for (const char byte : {'\1', '\x7f', '\xff'}) {
      std::string broken = file;
      broken[i] = byte;
      if (const auto read = ZoneRules::fromZoneFile(broken)) static_cast<void>(read->periodAt(2'000'000'000));
    }
  }
}

TEST(TimeZoneTests, FallsBackToIcuWithoutFiles) {
  // Rules that have been settled for long are the same in both.
  for (const char* const identifier : {"America/New_York", "Europe/Paris", "Australia/Sydney", "Asia/Tokyo"}) {
    const auto icu = ZoneRules::fromIcu(identifier);
    const auto file = ZoneRules::fromSystemZoneFile(identifier);
    ASSERT_TRUE(icu && file) << identifier;
    for (std::int64_t moment = 0; moment < 2'500'000'000; moment += 1'234'567) {
      ASSERT_EQ(icu->periodAt(moment).secondsFromGMT, file->periodAt(moment).secondsFromGMT)
          << identifier << ' ' << moment;
    }
  }
  EXPECT_FALSE(ZoneRules::fromIcu("Europe/Atlantis"));
}

}  // namespace
}  // namespace tavrine::foundation
