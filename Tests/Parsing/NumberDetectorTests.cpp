#include "TavrineCore/Parsing/Helpers/NumberDetector.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Helpers/DigitDetector.h"

namespace tavrine {
namespace {

using enum MisplacedThousandsSeparatorBehavior;

constexpr std::string_view kNothing = "nothing";

struct Case {
  std::string_view locale, text, want;
  MisplacedThousandsSeparatorBehavior behavior = allow;
};

constexpr Case kCases[] = {
    // Digits alone read alike everywhere.
    {"en_US", "0", "0"},
    {"en_US", "00", "0"},
    {"en_US", "010", "10"},
    {"de_DE", "9999", "9999"},
    {"en_US", "123456789012345678901234567890", "123456789012345678901234567890"},
    {"en_US", "", kNothing},
    {"en_US", "abc", kNothing},
    {"en_US", ",", kNothing},

    // The separators are the locale's.
    {"en_US", "1,234.5", "1234.5"},
    {"en_US", ".5", "0.5"},
    {"en_US", "5.", "5"},
    {"de_DE", "1.234,5", "1234.5"},
    {"de_DE", ",5", "0.5"},
    {"es_ES", "1.234,5", "1234.5"},
    {"fr_FR", "1\u202F234,5", "1234.5"},
    {"fr_FR", "1 234,5", "1234.5"},
    {"ru_RU", "1\u00A0234,5", "1234.5"},
    {"de_CH", "1’234.5", "1234.5"},
    {"de_CH", "1'234.5", "1234.5"},
    {"en_IN", "12,34,567.5", "1234567.5"},
    // An apostrophe groups anywhere, and must not cut the number short.
    {"en_US", "1'000", "1000"},

    // A point that is neither of the locale's separators is no number there.
    {"fr_FR", "3.5", kNothing},
    {"fr_FR", ".5", kNothing},

    // Two readings of one text.
    {"en_US", "1.234,5", kNothing},
    {"de_DE", "1,234.5", kNothing},
    {"en_US", "1.2.3", kNothing},

    // Separators at the wrong place.
    {"en_US", "1,23", "123", allow},
    {"en_US", "1,23", kNothing, disallow},
    {"en_US", "1,23", "1.23", interpretAsDecimalPoint},
    {"de_DE", "1.23", "123", allow},
    {"de_DE", "1.23", kNothing, disallow},
    {"de_DE", "1.23", "1.23", interpretAsDecimalPoint},
    {"en_US", "1,234", "1234", interpretAsDecimalPoint},
    {"en_US", "1_000", "1000", allow},
    {"en_US", "1_000", kNothing, disallow},

    // Exponents are part of a number; a bare one isn't.
    {"en_US", "1e5", "100000"},
    {"en_US", "1e", kNothing},

    // Fraction characters, alone and behind a whole number.
    {"en_US", "½", "0.5"},
    {"en_US", "5½", "5.5"},
    {"de_DE", "1000¼", "1000.25"},
    {"en_US", "5.5½", kNothing},
    {"en_US", "½½", kNothing},
    {"en_US", "²", kNothing},
    {"en_US", "五", kNothing},
};

TEST(NumberDetector, ReadsNumbersByLocaleAndBehaviour) {
  for (const Case& c : kCases) {
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
