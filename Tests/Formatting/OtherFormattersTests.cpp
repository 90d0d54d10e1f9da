#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "Tests/Formatting/FormattingTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::contextFor;
using testing::number;
using testing::Settings;

std::string shown(const EvaluationResult& result, const Settings& settings = {}, std::string_view locale = "en_US") {
  const auto formatted = ModernResultFactory::formattedResultFor(result, contextFor(locale, settings.preferences()));
  return formatted ? formatted->stringValue : "no formatter";
}

struct NumberCase {
  std::string_view locale, value, want;
  Settings settings = {};
};

TEST(OtherFormatters, Percentages) {
  for (const NumberCase& c : rowsOf<NumberCase>("Formatting/OtherFormattersTests", "Percentages")) {
    EXPECT_EQ(shown(EvaluationResult::percentage({number(c.value)}), c.settings, c.locale), c.want)
        << c.locale << ' ' << c.value;
    EXPECT_EQ(shown(EvaluationResult::salesTax({number(c.value)}), c.settings, c.locale), c.want)
        << c.locale << ' ' << c.value;
  }
}

TEST(OtherFormatters, Fractions) {
  for (const NumberCase& c : rowsOf<NumberCase>("Formatting/OtherFormattersTests", "Fractions")) {
    EXPECT_EQ(shown(EvaluationResult::fraction({number(c.value), std::nullopt}), c.settings, c.locale), c.want)
        << c.locale << ' ' << c.value;
  }
}

TEST(OtherFormatters, FractionsOfUnits) {
  const auto shownWith = [](UnitIdentifier identifier, UnitType type, std::string_view described) {
    TCUnit::Record record{identifier, type, "own", {}, nullptr};
    if (!described.empty()) {
      record.unitDescription =
          std::make_shared<const UnitDescription>(UnitDescription{std::string(described), {}, identifier});
    }
    return shown(EvaluationResult::fraction({number("1.5"), TCUnit::counted(record)}));
  };
  EXPECT_EQ(shownWith(UnitIdentifier::cups, UnitType::volume, ""), "1 ½ own");
  EXPECT_EQ(shownWith(UnitIdentifier::cups, UnitType::volume, "Tasse"), "1 ½ Tasse");
  EXPECT_EQ(shownWith(UnitIdentifier::miles, UnitType::length, "Meile"), "1 ½ own");
  EXPECT_EQ(shownWith(UnitIdentifier::cycles, UnitType::period, "Zyklen"), "1 ½ ");
}

TEST(OtherFormatters, Coordinates) {
  const auto point = [](std::string_view latitude, std::string_view longitude) {
    return EvaluationResult::gpsCoordinates({number(latitude), number(longitude)});
  };
  EXPECT_EQ(shown(point("48.8566", "-2.3522")), "48.8566°, -2.3522°");
  EXPECT_EQ(shown(point("48.8566", "-2.3522"), {.dp = 1}, "de_DE"), "48,9°, -2,4°");
  EXPECT_EQ(shown(point("48.8566", "not a number")), "");

  using enum DegreesMinutesSeconds::CardinalDirection;
  const auto angle = [](std::string_view seconds, std::optional<DegreesMinutesSeconds::CardinalDirection> direction) {
    return EvaluationResult::degreesMinutesSeconds({Decimal(48), Decimal(5), number(seconds), direction});
  };
  EXPECT_EQ(shown(angle("24", north)), "48° 5′ 24″ N");
  EXPECT_EQ(shown(angle("24.5", std::nullopt), {}, "fr_FR"), "48° 5′ 24,5″");
  EXPECT_EQ(shown(angle("not a number", west)), "");
}

TEST(OtherFormatters, Multipliers) {
  for (const NumberCase& c : rowsOf<NumberCase>("Formatting/OtherFormattersTests", "Multipliers")) {
    EXPECT_EQ(shown(EvaluationResult::multiplier({number(c.value)}), c.settings, c.locale), c.want)
        << c.locale << ' ' << c.value;
  }
}

TEST(OtherFormatters, OtherBases) {
  constexpr std::uint64_t kAllOnes = std::numeric_limits<std::uint64_t>::max();
  struct Case {
    std::uint64_t value;
    std::string hex, octal, binary;
  };
  const Case cases[] = {
      {0, "0x0", "0o0", "0b0"},
      {15, "0xF", "0o17", "0b1111"},
      {255, "0xFF", "0o377", "0b11111111"},
      {0xdeadbeef, "0xDEADBEEF", "0o33653337357", "0b11011110101011011011111011101111"},
      // The complement of 0 and of 1.
      {kAllOnes, "0xFFFFFFFFFFFFFFFF", "0o1777777777777777777777", "0b" + std::string(64, '1')},
      {kAllOnes - 1, "0xFFFFFFFFFFFFFFFE", "0o1777777777777777777776", "0b" + std::string(63, '1') + "0"},
  };
  for (const Case& c : cases) {
    // No locale groups these, and no preference shortens them.
    EXPECT_EQ(shown(EvaluationResult::hex(c.value), {.dp = 0}, "de_DE"), c.hex);
    EXPECT_EQ(shown(EvaluationResult::octal(c.value)), c.octal);
    EXPECT_EQ(shown(EvaluationResult::binary(c.value)), c.binary);
  }
}

TEST(OtherFormatters, Texts) {
  EXPECT_EQ(shown(EvaluationResult::boolean(true), {}, "de_DE"), "true");
  EXPECT_EQ(shown(EvaluationResult::boolean(false)), "false");
  EXPECT_EQ(shown(EvaluationResult::error(EvaluationError::DivideByZero)), "Error: divide by zero");
  EXPECT_EQ(shown(EvaluationResult::error(EvaluationError::SilentError)), "");
  EXPECT_EQ(shown(EvaluationResult::rawString("1234.5 <ü>"), {}, "de_DE"), "1234.5 <ü>");
  EXPECT_EQ(shown(EvaluationResult::dynamicPlace("Zürich")), "Zürich");
  EXPECT_EQ(shown(EvaluationResult::pitch({Pitch::NoteName::C, Pitch::NoteModifier::sharp, 4})), "C#4");
  EXPECT_EQ(shown(EvaluationResult::pending()), "pending\u2026");
  EXPECT_EQ(shown(EvaluationResult::failed()), "\u26a0\ufe0f");
}

}  // namespace
}  // namespace tavrine
