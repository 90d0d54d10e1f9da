#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Primitives/MidiNumber.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/SIThreshold.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

Decimal dec(std::string_view text) { return Decimal::parse(text).value(); }

TEST(PitchTest, ReadsExactlyTheNotationThatItWrites) {
  for (const std::string_view text : {"A4", "C0", "B9", "A#3", "Bb3", "E#5", "Fb2"}) {
    const std::optional<Pitch> pitch = Pitch::fromNotation(text);
    ASSERT_TRUE(pitch) << text;
    EXPECT_EQ(pitch->notationString(), text);
  }
  for (const std::string_view text :
       {"", "A", "4", "H4", "a4", "A10", "A##4", "Ab", "A-1", "A♯4", "A4 ", "b#3", "A#"}) {
    EXPECT_FALSE(Pitch::fromNotation(text)) << text;
  }
}

TEST(PitchTest, FrequenciesFollowEqualTemperament) {
  struct Case {
    std::string_view notation;
    std::string_view want;  // hertz, rounded to 6 places
  };
  for (const Case& c : rowsOf<Case>("Parsing/ValueTests", "FrequenciesFollowEqualTemperament")) {
    const Decimal frequency = Pitch::frequencyFor(Pitch::fromNotation(c.notation).value());
    EXPECT_EQ(frequency.rounded(6, RoundingMode::plain), dec(c.want)) << c.notation;
  }
  EXPECT_EQ(Pitch::frequencyFor(Pitch::fromNotation("A5").value()), Decimal(880));
  EXPECT_EQ(Pitch::frequencyFor({.note = Pitch::NoteName::A, .modifier = {}, .octave = 2000000000}), Decimal(0));
}

TEST(MidiNumberTest, TakesTheNearestKeyWithinTheKeyboard) {
  struct Case {
    std::string_view frequency;
    std::optional<int> want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/ValueTests", "TakesTheNearestKeyWithinTheKeyboard")) {
    const std::optional<MidiNumber> key = MidiNumber::fromFrequency(dec(c.frequency));
    EXPECT_EQ(key ? std::optional(key->number) : std::nullopt, c.want) << c.frequency;
  }
  EXPECT_FALSE(MidiNumber::fromFrequency(Decimal::nan()));
}

TEST(MidiNumberTest, EveryKeyFindsItselfAgainByItsFrequency) {
  for (int number = 21; number <= MidiNumber::maximumMidiNumber; ++number) {
    const std::optional<Pitch> pitch = Pitch::fromNotation(MidiNumber{number}.notation().value());
    ASSERT_TRUE(pitch) << number;
    const std::optional<MidiNumber> key = MidiNumber::fromFrequency(Pitch::frequencyFor(*pitch));
    // The lowest keys lie at the limit of 26 Hz, but above it.
    ASSERT_TRUE(key) << number;
    EXPECT_EQ(key->number, number);
  }
}

DegreesMinutesSeconds angle(std::string_view degrees, std::string_view minutes, std::string_view seconds,
                            std::optional<DegreesMinutesSeconds::CardinalDirection> direction = {}) {
  return {dec(degrees), dec(minutes), dec(seconds), direction};
}

TEST(DegreesMinutesSecondsTest, GoesToDegreesAndBack) {
  struct Case {
    std::string_view decimal, degrees, minutes, seconds;
  };
  for (const Case& c : rowsOf<Case>("Parsing/ValueTests", "GoesToDegreesAndBack")) {
    const DegreesMinutesSeconds dms = DegreesMinutesSeconds::fromDecimal(dec(c.decimal));
    EXPECT_EQ(dms, angle(c.degrees, c.minutes, c.seconds)) << c.decimal;
    EXPECT_EQ(dms.decimalDegrees(), dec(c.decimal));
  }
  // Minutes beyond 59 and sums carry over.
  EXPECT_EQ(angle("10", "50", "40") + angle("0", "9", "20"), angle("11", "0", "0"));
  EXPECT_EQ(angle("11", "0", "0") - angle("0", "90", "0"), angle("9", "30", "0"));
}

TEST(GPSCoordinatesTest, DirectionsMustFitAndGiveTheSign) {
  using enum DegreesMinutesSeconds::CardinalDirection;
  const auto coordinates = [](auto latitudeDirection, auto longitudeDirection) {
    return GPSCoordinates::make(angle("10", "30", "0", latitudeDirection), angle("20", "15", "0", longitudeDirection));
  };
  const std::optional<DegreesMinutesSeconds::CardinalDirection> none;
  EXPECT_EQ(coordinates(none, none), (GPSCoordinates{dec("10.5"), dec("20.25")}));
  EXPECT_EQ(coordinates(std::optional(north), std::optional(east)), (GPSCoordinates{dec("10.5"), dec("20.25")}));
  EXPECT_EQ(coordinates(std::optional(south), std::optional(west)), (GPSCoordinates{dec("-10.5"), dec("-20.25")}));
  EXPECT_FALSE(coordinates(std::optional(east), std::optional(north)));
  EXPECT_FALSE(coordinates(none, std::optional(south)));
}

TEST(GPSCoordinatesTest, EndsWithTheEarth) {
  EXPECT_TRUE(GPSCoordinates::make(Decimal(90), Decimal(-180)));
  EXPECT_FALSE(GPSCoordinates::make(dec("90.0001"), Decimal(0)));
  EXPECT_FALSE(GPSCoordinates::make(Decimal(0), dec("-180.0001")));
  EXPECT_FALSE(GPSCoordinates::make(Decimal::nan(), Decimal(0)));
  EXPECT_FALSE(GPSCoordinates::make(angle("90", "0", "1"), angle("0", "0", "0")));
}

TEST(CalendarEnvironmentTest, AHolidayIsADayOfOneYear) {
  const Calendar calendar(Calendar::Identifier::gregorian);
  const CalendarEnvironment environment(
      calendar, {{.day = 25, .month = 12, .year = 2024}, {.day = 25, .month = 12, .year = 2025}});
  const auto isHoliday = [&](int year, int month, int day) {
    DateComponents components;
    components.year = year;
    components.month = month;
    components.day = day;
    return environment.isHoliday(components);
  };
  EXPECT_TRUE(isHoliday(2024, 12, 25));
  EXPECT_TRUE(isHoliday(2025, 12, 25));
  EXPECT_FALSE(isHoliday(2026, 12, 25));
  EXPECT_FALSE(isHoliday(2024, 12, 24));
  EXPECT_FALSE(isHoliday(2024, 11, 25));
  EXPECT_FALSE(environment.isHoliday(DateComponents{}));
  EXPECT_FALSE(environment == CalendarEnvironment(calendar));
  EXPECT_TRUE(CalendarEnvironment(calendar) == CalendarEnvironment(calendar, {}));
}

}  // namespace
}  // namespace tavrine
