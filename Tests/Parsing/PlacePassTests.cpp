#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/TimeZoneAbbreviationDetector.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

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
  const LineReader reader;
  for (const Case& c : rowsOf<Case>("Parsing/PlacePassTests", "FindNames"))
    EXPECT_EQ(namedIn(reader.after("G5", c.line)), c.named) << c.line;
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
