#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/TimeZoneAbbreviationDetector.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

/// The zones and special days of a line, each with the text that says it: "Paris=Europe/Paris; xmas=christmasDay".
std::string namedIn(const TokenList& list) {
  std::string result;
  for (const Token& token : list) {
    std::string meaning;
    if (token.is(TokenType::timezone)) {
      meaning = token.metadataAs<TimezoneTokenMetadata>()->timeZone.identifier();
    } else if (token.is(TokenType::specialDay)) {
      meaning = toString(token.metadataAs<SpecialDayTokenMetadata>()->specialDayType);
    } else {
      continue;
    }
    result += (result.empty() ? "" : "; ") + token.stringValue + "=" + meaning;
  }
  return result;
}

struct Case {
  std::string_view line;
  std::string_view named;
};

TEST(PlacePasses, FindNames) {
  constexpr Case kCases[] = {
      {"lunch in Paris", "Paris=Europe/Paris"},
      {"new york and NYC", "new york=America/New_York; NYC=America/New_York"},
      {"San Francisco de Macorís, San Francisco",
       "San Francisco de Macorís=America/Santo_Domingo; San Francisco=America/Los_Angeles"},
      {"St. Louis", "St. Louis=America/Chicago"},
      {"Mar del Plata", "Mar del Plata=America/Argentina/Buenos_Aires"},
      {"The Hague", "The Hague=Europe/Amsterdam"},
      {"time in the hague", "the hague=Europe/Amsterdam"},
      {"walk the villages", ""},
      {"Portland, Maine", "Portland, Maine=America/New_York"},
      {"Cambridge, MA", "Cambridge, MA=America/New_York"},
      {"London, Canada", "London, Canada=America/Toronto"},
      {"London on Friday", "London=Europe/London"},
      {"Bend Oregon", "Bend Oregon=America/Los_Angeles"},
      {"Paris, London", "Paris=Europe/Paris; London=Europe/London"},
      {"U.S. and U.K.", "U.S=America/New_York; U.K=Europe/London"},
      {"the UK", "the UK=Europe/London"},
      {"time in the us", "the us=America/New_York"},
      {"tell the us", ""},
      {"swim in the sea", ""},
      {"İzmir", "İzmir=Europe/Istanbul"},
      {"JFK to lax", "JFK=America/New_York; lax=America/Los_Angeles"},
      {"sfo", "sfo=America/Los_Angeles"},
      {"PST and pdt", "PST=America/Los_Angeles; pdt=America/Los_Angeles"},
      {"GMT+5", "GMT+5=GMT+05:00"},
      {"UTC -3", "UTC -3=GMT-03:00"},
      {"gmt + 5:30", "gmt + 5:30=GMT+05:30"},
      {"UTC+99", "UTC=GMT"},
      {"UTC * 3", "UTC=GMT"},
      {"pacific time", "pacific time=America/Los_Angeles"},
      {"xmas or new year's eve", "xmas=christmasDay; new year's eve=newYearsEve"},
      {"Christmas Eve Day", "Christmas Eve Day=christmasEve"},
      {"easter", "easter=easterSunday"},
      {"here", "here=UTC"},
      // Words that are names as well.
      {"I will see you in Nice", "Nice=Europe/Paris"},
      {"time in nice", "nice=Europe/Paris"},
      {"a nice van", ""},
      {"2 l in bath", ""},
      {"the sea can run per se", ""},
      {"SEA", "SEA=America/Los_Angeles"},
      {"Sea", ""},
      {"call us", ""},
      {"US", "US=America/New_York"},
      {"I met a cat in the west", ""},
      {"CAT", "CAT=Africa/Harare"},
      {"car 5", ""},
      {"new shoes: 5", ""},
      {"1st louis", ""},
      {"2 days after christmas", "christmas=christmasDay"},
  };
  const LineReader reader;
  for (const Case& c : kCases) EXPECT_EQ(namedIn(reader.after("G5", c.line)), c.named) << c.line;
}

TEST(PlacePasses, FlagsTurnThemOff) {
  const LineReader withoutDays([](EngineFeatureFlags& flags) { flags.specialDays = false; });
  EXPECT_EQ(namedIn(withoutDays.after("G5", "easter in Paris, good friday")), "Paris=Europe/Paris");
  const LineReader withoutCalendar([](EngineFeatureFlags& flags) { flags.calendarCalculations = false; });
  EXPECT_EQ(namedIn(withoutCalendar.after("G5", "easter in Paris here")), "");
  const LineReader withoutUSNames([](EngineFeatureFlags& flags) { flags.shortFormUSTimezones = false; });
  EXPECT_EQ(namedIn(withoutUSNames.after("G5", "pacific time")), "");
  const LineReader strict([](EngineFeatureFlags& flags) {
    flags.timezoneCodeAutocorrectionBehavior = TimezoneCodeCorrectionBehavior::never;
  });
  EXPECT_EQ(namedIn(strict.after("G5", "PST")), "PST=GMT-08:00");
}

TEST(PlacePasses, NamesThatNothingUsesAreComments) {
  const LineReader reader;
  for (const std::string_view line : {"I will see you in Nice", "Paris", "easter eggs for Tokyo"}) {
    const TokenList list = reader.tokens(line);
    EXPECT_EQ(namedIn(list), "") << line;
  }
}

TEST(TimeZoneAbbreviations, FollowTheBehaviour) {
  using enum TimezoneCodeCorrectionBehavior;
  struct ZoneCase {
    std::string_view code;
    TimezoneCodeCorrectionBehavior behaviour;
    std::string_view zone;
  };
  constexpr ZoneCase kCases[] = {
      {"PST", automatic, "America/Los_Angeles"},
      {"PST", onlyNonSummerCodes, "America/Los_Angeles"},
      {"PST", never, "GMT-08:00"},
      {"pdt", automatic, "America/Los_Angeles"},
      {"pdt", onlyNonSummerCodes, "GMT-07:00"},
      {"west", onlyNonSummerCodes, "GMT+01:00"},
      {"IST", automatic, "Asia/Kolkata"},
      {"IST", never, "GMT+05:30"},
      {"UTC", automatic, "GMT"},
      {"Z", automatic, "none"},
      {"pt", automatic, "none"},
      {"ACDTX", automatic, "none"},
      {"cost", automatic, "none"},
  };
  for (const ZoneCase& c : kCases) {
    const std::optional<TimeZone> zone = TimeZoneAbbreviationDetector::timezoneFor(c.code, c.behaviour);
    EXPECT_EQ(zone ? zone->identifier() : "none", c.zone) << c.code;
  }
  for (const std::string_view text : {"", "+", "five", "5h", "1e999", "nan", "19", "-18.5"}) {
    EXPECT_FALSE(TimeZoneAbbreviationDetector::timezoneWithGMTOffsetString(text)) << text;
  }
  EXPECT_EQ(TimeZoneAbbreviationDetector::timezoneWithGMTOffsetString("-9.5")->identifier(), "GMT-09:30");
}

}  // namespace
}  // namespace tavrine::testing
