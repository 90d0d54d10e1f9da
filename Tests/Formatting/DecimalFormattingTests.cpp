#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/ResultFormatting/CommonFormattedResultsCache.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"
#include "Tests/Formatting/FormattingTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::contextFor;
using testing::number;
using testing::Settings;

std::string shown(std::string_view value, const Settings& settings = {}, std::string_view locale = "en_US") {
  return DecimalResultFormatter::formatted(number(value), settings.preferences(), Locale(locale));
}

TEST(DecimalFormatting, ChoosesTheStyleBySize) {
  using enum DecimalResultFormatter::DecimalFormattingStyle;
  struct Case {
    std::string_view value;
    DecimalResultFormatter::DecimalFormattingStyle want;
    Settings settings = {};
  };
  const Case cases[] = {
      {"0", plain},
      {"99999", plain},
      {"99999.999", plain},
      {"100000", si},
      {"-100000", si},
      {"100000000000000", si},
      {"100000000000001", scientific},
      {"-100000000000001", scientific},
      {"0.000001", plain},
      {"-0.000001", plain},
      {"0.0000009", scientific},
      // The threshold moves the start of abbreviation, not its end.
      {"1000", si, {.threshold = SIThreshold::thousand}},
      {"100000", plain, {.threshold = SIThreshold::million}},
      {"99999999999999", plain, {.threshold = SIThreshold::quintillion}},
      {"1e15", scientific, {.threshold = SIThreshold::quintillion}},
      // Without abbreviations only what no longer fits a line is scientific.
      {"0.0000000009", plain, {.abbreviates = false}},
      {"1e15", plain, {.abbreviates = false}},
      {"1e34", plain, {.abbreviates = false}},
      {"1.0001e34", scientific, {.abbreviates = false}},
      {"-1.0001e34", scientific, {.abbreviates = false}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(DecimalResultFormatter::formattingStyleFor(number(c.value), c.settings.preferences().notationPreferences),
              c.want)
        << c.value;
  }
  // `on` is no other word for `off`.
  NotationPreferences on;
  on.notationStyle = NotationPreferences::NotationStyle::on;
  EXPECT_EQ(DecimalResultFormatter::formattingStyleFor(number("100000"), on), si);
}

TEST(DecimalFormatting, WritesNumbersAsTheLocaleDoes) {
  struct Case {
    std::string_view locale, value, want;
    Settings settings = {};
  };
  const Case cases[] = {
      {"en_US", "1234.5", "1,234.5"},
      {"de_DE", "1234.5", "1.234,5"},
      {"fr_FR", "1234.5", "1\u202f234,5"},
      {"de_CH", "1234.5", "1’234.5"},
      {"es_ES", "1234.5", "1.234,5"},
      {"en_IN", "1234.5", "1,234.5"},
      {"ru_RU", "1234.5", "1\u00a0234,5"},
      {"en_US", "1234.5", "1234.5", {.groups = false}},
      {"de_DE", "-1234.5", "-1234,5", {.groups = false}},
      {"en_US", "-12345678.25", "-12,345,678.25", {.abbreviates = false}},
      {"en_IN", "12345678.25", "1,23,45,678.25", {.abbreviates = false}},
      // At most `dp` places, half away from zero; no zeros that nobody asked
      // for.
      {"en_US", "2.675", "2.68", {.dp = 2}},
      {"en_US", "-2.675", "-2.68", {.dp = 2}},
      {"en_US", "2.5", "3", {.dp = 0}},
      {"en_US", "0.12345678905", "0.1234567891"},
      {"en_US", "999.995", "1,000", {.dp = 2}},
      {"en_US", "2.5", "3", {.dp = -4}},
      {"en_US", "1000.5", "1,000.50", {.minimum = 2}},
      {"de_DE", "0", "0,00", {.minimum = 2}},
      {"en_US", "1.23456", "1.235", {.dp = 1, .minimum = 3}},
      // Digits that no calculation can vouch for don't show, however many
      // places are asked for.
      {"en_US", "0.99999999999999999999999999999999999999", "1", {.dp = 40}},
      {"en_US", "1e15", "1,000,000,000,000,000", {.abbreviates = false}},
      {"en_US", "1234.5", "1,234.5", {.dp = std::numeric_limits<int>::max()}},
  };
  for (const Case& c : cases) EXPECT_EQ(shown(c.value, c.settings, c.locale), c.want) << c.locale << ' ' << c.value;

  // Padding has an end, whatever a host sets.
  EXPECT_LT(shown("0.5", {.minimum = std::numeric_limits<int>::max()}).size(), 1000u);
  EXPECT_LT(shown("1e20", {.minimum = std::numeric_limits<int>::max()}).size(), 1000u);
}

TEST(DecimalFormatting, Abbreviates) {
  struct Case {
    std::string_view locale, value, want;
    Settings settings = {};
  };
  for (const Case& c : rowsOf<Case>("Formatting/DecimalFormattingTests", "Abbreviates"))
    EXPECT_EQ(shown(c.value, c.settings, c.locale), c.want) << c.locale << ' ' << c.value;
}

TEST(DecimalFormatting, WritesLargeAndSmallNumbersScientifically) {
  struct Case {
    std::string_view locale, value, want;
    Settings settings = {};
  };
  for (const Case& c : rowsOf<Case>("Formatting/DecimalFormattingTests", "WritesLargeAndSmallNumbersScientifically"))
    EXPECT_EQ(shown(c.value, c.settings, c.locale), c.want) << c.locale << ' ' << c.value;

  // What was asked for in this notation is shown in it, whatever its size and
  // the preferences.
  const auto formatted = [](std::string_view value, const Settings& settings) {
    return DecimalResultFormatter::formattedResult(EvaluationResult::scientificNotation(number(value)),
                                                   contextFor("en_US", settings.preferences()));
  };
  EXPECT_EQ(formatted("12345", {.abbreviates = false}), "1.2345E4");
  EXPECT_EQ(formatted("7", {}), "7E0");
  EXPECT_EQ(formatted("100000000000000", {}), "1E14");
}

TEST(DecimalFormatting, CallsWhatIsNoNumberInfinity) {
  EXPECT_EQ(DecimalResultFormatter::formatted(Decimal::nan(), {}, Locale("de_DE")), "Error: ∞");
  EXPECT_EQ(DecimalResultFormatter::formattedResult(EvaluationResult::scientificNotation(Decimal::nan()),
                                                    contextFor("en_US")),
            "Error: ∞");
  EXPECT_EQ(DecimalResultFormatter::formattedAsDecimal(Decimal::nan(), {}, Locale("en_US")), std::nullopt);
  EXPECT_EQ(DecimalResultFormatter::formattedAsFraction(Decimal::nan(), {}, Locale("en_US")), std::nullopt);
}

// What is shown in full reads back as the number that it was rounded to.
TEST(DecimalFormatting, ReadsBack) {
  std::mt19937_64 random(20240229);
  const Settings settings{.dp = 12, .abbreviates = false};
  for (const std::string_view identifier : {"en_US", "de_DE", "fr_FR", "de_CH", "es_ES", "en_IN", "ru_RU"}) {
    const Locale locale(identifier);
    for (int i = 0; i < 400; ++i) {
      const auto mantissa = static_cast<std::int64_t>(random() >> (random() % 63 + 1));
      const int exponent = -static_cast<int>(random() % 20);
      const Decimal value = Decimal::fromParts(static_cast<UInt128>(mantissa), exponent, random() % 2 == 0);
      const std::string text = DecimalResultFormatter::formatted(value, settings.preferences(), locale);
      const Decimal wanted = value.rounded(12, RoundingMode::plain);
      EXPECT_EQ(parseStrict(text, numberSymbolsFor(locale)), wanted) << identifier << ' ' << value << " as " << text;
    }
  }
}

TEST(DecimalFormatting, FollowsTheLocaleFromCallToCall) {
  const Locale english("en_US"), german("de_DE");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(DecimalResultFormatter::formatted(number("0.5"), {}, english), "0.5");
    EXPECT_EQ(DecimalResultFormatter::formatted(number("0.5"), {}, german), "0,5");
  }
}

TEST(CommonFormattedResults, HoldsTheNumbersBelowAThousand) {
  for (int i = 0; i < 1000; ++i) {
    const auto text = CommonFormattedResultsCache::find(Decimal(i));
    ASSERT_TRUE(text.has_value()) << i;
    EXPECT_EQ(*text, std::to_string(i));
  }
  for (const std::string_view other : {"1000", "-1", "0.5", "1e10", "1e127", "18446744073709551617"}) {
    EXPECT_EQ(CommonFormattedResultsCache::find(number(other)), std::nullopt) << other;
  }
  EXPECT_EQ(CommonFormattedResultsCache::find(Decimal::nan()), std::nullopt);
}

}  // namespace
}  // namespace tavrine
