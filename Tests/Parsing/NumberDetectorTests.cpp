#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Helpers/DigitDetector.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using enum MisplacedThousandsSeparatorBehavior;

constexpr std::string_view kNothing = "nothing";

struct Case {
  std::string_view locale, text, want;
  MisplacedThousandsSeparatorBehavior behavior = allow;
};

TEST(NumberDetector, ReadsNumbersByLocaleAndBehaviour) {
  for (const Case& c : rowsOf<Case>("Parsing/NumberDetectorTests", "cases")) {
    const NumberDetector detector(Locale(c.locale), c.behavior);
    const std::optional<Decimal> value = detector.decimalValueOf(c.text);
    EXPECT_EQ(value ? value->description() : std::string(kNothing), c.want) << c.locale << ": " << c.text;
  }
}

TEST(NumberDetector, ReadsLongTextsInBoundedTime) {
  const NumberDetector detector(Locale("en_US"), allow);
  EXPECT_TRUE(detector.decimalValueOf(std::string(1'000'000, '0') + "7").has_value());
  EXPECT_FALSE(detector.decimalValueOf("1" + std::string(1'000'000, ',')).value_or(Decimal(0)).isNaN());
  std::string halves;
  for (int i = 0; i < 100'000; ++i) halves += "½";
  EXPECT_FALSE(detector.decimalValueOf(halves).has_value());
}

TEST(DigitDetector, KnowsWhatMayOpenANumber) {
  EXPECT_TRUE(DigitDetector::firstCharacterIsDecimalPointIn(".5", Locale("en_US")));
  EXPECT_FALSE(DigitDetector::firstCharacterIsDecimalPointIn(",5", Locale("en_US")));
  EXPECT_TRUE(DigitDetector::firstCharacterIsDecimalPointIn(",5", Locale("de_DE")));
  EXPECT_FALSE(DigitDetector::firstCharacterIsDecimalPointIn(".5", Locale("de_DE")));
  EXPECT_TRUE(DigitDetector::firstCharacterIsDecimalPointIn(".5", Locale("fr_FR")));
  EXPECT_FALSE(DigitDetector::firstCharacterIsDecimalPointIn("", Locale("en_US")));
}

}  // namespace
}  // namespace tavrine
