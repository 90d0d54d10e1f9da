// Which words of a line are units, and what they make of the numbers beside them.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

void appendUnits(const TokenList& list, std::string& text) {
  for (const Token& token : list) {
    if (token.subtokens && !token.is(TokenType::unitExpression)) {
      appendUnits(*token.subtokens, text);
    } else if (const TCUnit* unit = unitIn(token)) {
      text += text.empty() ? "" : " ";
      text += toString(unit->identifier());
    }
  }
}

/// The identifiers of the units behind the stage, in order.
std::string unitsAfter(std::string_view stage, const LineReader& reader, std::string_view line) {
  std::string text;
  appendUnits(reader.after(stage, line), text);
  return text;
}

struct UnitsCase {
  std::string_view line;
  std::string_view units;
};

TEST(UnitPasses, FindUnitsInWords) {
  const LineReader reader;
  const UnitsCase cases[] = {
      {"5 km", "kilometers"},
      // The longest name wins, over blanks and signs.
      {"2 nautical miles", "nauticalMiles"},
      {"5 km/h", "kilometersPerHour"},
      {"7 L/100km", "litersPer100Kilometers"},
      {"9 m/s2", "metersPerSecondSquared"},
      // Ordinals, and words that convert.
      {"1st", ""},
      {"10 st", "stones"},
      {"5 in", ""},
      {"5 to", ""},
      // Exponents.
      {"5 m2", "squareMeters"},
      {"5 cm3", "cubicCentimeters"},
      {"5 m ^ 2", "squareMeters"},
      {"5ft3in", "feet inches"},
      {"2 km ^ 9", "kilometers"},
      // A letter behind a number scales it only where it stands directly behind.
      {"300 K", "kelvin"},
      {"300K", ""},
  };
  for (const auto& [line, units] : cases) EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;
}

TEST(UnitPasses, TellAmbiguousWordsByTheLine) {
  LineReader reader;
  const UnitsCase cases[] = {
      {"5m", "meters"},
      {"1 h 20 m", "hours minutes"},
      {"1 h 5 m/s", "hours metersPerSecond"},
      {"1 h 5 m / 2", "hours meters"},
      // What the metres are per is no amount of time.
      {"20 m / h", "meters hours"},
      {"12 oz", "ounces"},
      {"12 oz in ml", "fluidOunces milliliters"},
      {"3 pounds", "pounds"},
      {"3 pounds in $", "currencyGBP currencyUSD"},
      {"3 Pounds + 2 newtons", "poundsOfForce newtons"},
  };
  for (const auto& [line, units] : cases) EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;

  reader.declare("way", EvaluationResult::unitExpression(UnitExpression{5, unitOf(UnitIdentifier::kilometers)}));
  EXPECT_EQ(unitsAfter("G3", reader, "way + 20 m in 2 h"), "kilometers meters hours");
}

TEST(UnitPasses, ReadQuotationMarksAsInchesAllOrNone) {
  const LineReader reader;
  const UnitsCase cases[] = {
      {"5\"", "inches"},
      {"5' 3\"", "feet inches"},
      {"5'3\"", "feet inches"},
      {"5/8\"", "inches"},
      {"3\" + 4\"", "inches inches"},
      {"5 km in \"", "kilometers inches"},
      {"5\"x", ""},
      {"say \"5\"", ""},
      {"\"big\" 5\"", ""},
      {"abc5\"", ""},
  };
  for (const auto& [line, units] : cases) EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;
}

struct ShapeCase {
  std::string_view line;
  std::string_view shape;
};

TEST(UnitPasses, PairNumbersAndUnits) {
  const LineReader reader;
  const ShapeCase cases[] = {
      {"5 km", "unitExpression[number.unit]"},
      {"5km", "unitExpression[number unit]"},
      {"$5", "unitExpression[unit number]"},
      {"km 5", "unit.number"},
      {"$5 AUD", "unitExpression[unit number.unit]"},
      {"AUD $5", "unitExpression[unit.unitExpression[unit number]]"},
      {"$ -5", "unitExpression[unit.operator number]"},
      {"$ -5%", "unit.operator number percentageSymbol"},
      {"10 $ 5 AUD", "compoundUnitExpression[unitExpression[number.unit].unitExpression[number.unit]]"},
      // Several amounts in one, and those that only stand beside each other.
      {"5 ft, 3 inches", "compoundUnitExpression[unitExpression[number.unit] comma.unitExpression[number.unit]]"},
      {"5 ft, 3 ft", "unitExpression[number.unit] comma.unitExpression[number.unit]"},
      {"5 kg 3 ft", "unitExpression[number.unit].unitExpression[number.unit]"},
      {"5 km and 3 m", "unitExpression[number.unit].conjunctionWord.unitExpression[number.unit]"},
      {"45.5°, 120.3°", "unitExpression[number unit] comma.unitExpression[number unit]"},
      // Ranges run upwards, and beside another operator the dash is a minus.
      {"5 - 10 km", "unitRange[number.operator.unitExpression[number.unit]]"},
      {"5 to 10 km", "unitRange[number.converterSymbol.unitExpression[number.unit]]"},
      {"10 to 5 km", "number.converterSymbol.unitExpression[number.unit]"},
      {"2 * 5 - 10 km", "number.operator.number.operator.unitExpression[number.unit]"},
      {"5 - $10", "number.operator.unitExpression[unit number]"},
      // Articles.
      {"10 km a day", "unitExpression[number.unit].operator.unit"},
      {"10 km a while", "unitExpression[number.unit].grammerArticleWord.unidentified"},
      // "in", and inches that nobody names.
      {"5 in in cm", "unitExpression[number.unit].converterSymbol.unit"},
      {"5 3/4 in", "unitExpression[number.number operator unitExpression[number.unit]]"},
      {"3/4 in", "number operator unitExpression[number.unit]"},
      {"3/4 in cm", "number operator number.converterSymbol.unit"},
      {"5 ft 3 in", "compoundUnitExpression[unitExpression[number.unit].unitExpression[number.unit]]"},
      {"5 ft + 3 in", "unitExpression[number.unit].operator.unitExpression[number.unit]"},
      {"5 kg 3 in", "unitExpression[number.unit].number.converterSymbol"},
      {"5 ft 3", "compoundUnitExpression[unitExpression[number.unit].unitExpression[number]]"},
      {"5 ft 3%", "unitExpression[number.unit].number percentageSymbol"},
      {"2 1/2 cups", "unitExpression[number.number operator unitExpression[number.unit]]"},
      {"2 1 / 2 cups", "number.number.operator.unitExpression[number.unit]"},
  };
  for (const auto& [line, shape] : cases) EXPECT_EQ(reader.shapeAfter("G11", line), shape) << line;
}

TEST(UnitPasses, CompoundNothingLeftOfANegativeAmount) {
  const LineReader reader;
  EXPECT_EQ(reader.shapeAfter("G11", "5 ft 3 inches + -2 kg"),
            "unitExpression[number.unit].unitExpression[number.unit].operator.unitExpression[number[operator "
            "number].unit]");
}

TEST(UnitPasses, ValuesOfAmounts) {
  const LineReader reader;
  struct Case {
    std::string_view line;
    std::string_view value;
    UnitIdentifier unit;
    bool prefersCompound;
  };
  const Case cases[] = {
      {"5 km", "5", UnitIdentifier::kilometers, true},    {"5 km / hour", "5", UnitIdentifier::kilometers, false},
      {"$5 AUD", "5", UnitIdentifier::currencyAUD, true}, {"5$ CAD", "5", UnitIdentifier::currencyCAD, true},
      {"$ -5", "-5", UnitIdentifier::currencyUSD, true},  {"5 3/4 in", "5.75", UnitIdentifier::inches, false},
      {"2 1/2 cups", "2.5", UnitIdentifier::cups, true},  {"-2 1/2 cups", "-2.5", UnitIdentifier::cups, true},
  };
  for (const Case& expected : cases) {
    const TokenList list = reader.after("G11", expected.line);
    ASSERT_FALSE(list.isEmpty()) << expected.line;
    const auto* amount = list[0].metadataAs<UnitExpressionTokenMetadata>();
    ASSERT_NE(amount, nullptr) << expected.line;
    EXPECT_EQ(amount->numericValue.decimalValue.description(), expected.value) << expected.line;
    EXPECT_EQ(amount->unitMetaData.underlyingTCUnit.identifier(), expected.unit) << expected.line;
    EXPECT_EQ(amount->prefersCompoundFormatting, expected.prefersCompound) << expected.line;
  }
}

TEST(UnitPasses, AnglesAndPlaces) {
  const LineReader reader;
  struct Case {
    std::string_view line;
    TokenType type;
    std::string_view first;   // degrees, or the latitude
    std::string_view second;  // seconds, or the longitude
  };
  const Case cases[] = {
      {"40° 26' 46\" N", TokenType::degreesMinutesSeconds, "40", "46"},
      {"40° 26′ 46″", TokenType::degreesMinutesSeconds, "40", "46"},
      {"40° 26' 46 N", TokenType::degreesMinutesSeconds, "40", "46"},
      {"40° 26'46\"N", TokenType::degreesMinutesSeconds, "40", "46"},
      {"40° 30' 0\" S, 79° 30' 0\" W", TokenType::gpsCoordinates, "-40.5", "-79.5"},
      {"45.5°, 120.3°", TokenType::gpsCoordinates, "45.5", "120.3"},
  };
  for (const Case& expected : cases) {
    const TokenList list = reader.after("G33", expected.line);
    ASSERT_FALSE(list.isEmpty()) << expected.line;
    EXPECT_EQ(list[0].type, expected.type) << expected.line << ": " << shapeOf(list);
    if (const auto angle = list[0].dmsValue()) {
      EXPECT_EQ(angle->degrees.description(), expected.first) << expected.line;
      EXPECT_EQ(angle->seconds.description(), expected.second) << expected.line;
    } else if (const auto place = list[0].gpsCoordinatesValue()) {
      EXPECT_EQ(place->lat.description(), expected.first) << expected.line;
      EXPECT_EQ(place->long_.description(), expected.second) << expected.line;
    } else {
      ADD_FAILURE() << expected.line << " tells no angle";
    }
  }
  EXPECT_EQ(reader.shapeAfter("G33", "91°, 120°"), "unitExpression[number unit] comma.unitExpression[number unit]");
}

TEST(SubstancePasses, FindWordsOfTheKitchen) {
  const LineReader reader([](EngineFeatureFlags& flags) { flags.cookingSubstances = true; });
  const ShapeCase cases[] = {
      {"2 cups flour", "number.unit.substance"},
      {"2 cups Baking Powder", "number.unit.substance"},
      {"2 cups olive branches", "number.unit.unidentified.unidentified"},
      // A unit stays a unit.
      {"2 cups", "number.unit"},
  };
  for (const auto& [line, shape] : cases) EXPECT_EQ(reader.shapeAfter("G6", line), shape) << line;
}

TEST(UnitPasses, DeclareUnitsWhereAllowed) {
  const LineReader reader([](EngineFeatureFlags& flags) {
    flags.variableDeclarations = true;
    flags.additionalOptions.unitDeclarations = true;
  });
  const TokenList list = reader.after("G34", "2 sprints = 4 weeks");
  ASSERT_EQ(shapeOf(list),
            "number.unitDeclaration[declaredUnit.variableAssignmentOperator.unitExpression[number.unit]]");
  const auto* declaration = list[2].metadataAs<UnitDeclarationTokenMetadata>();
  ASSERT_NE(declaration, nullptr);
  EXPECT_EQ(declaration->name, "sprints");
  EXPECT_EQ(declaration->value, Decimal(2));
  EXPECT_EQ(declaration->equivalentUnitExpression.unit.identifier(), UnitIdentifier::weeks);
  // Without a number in front it is a variable, and without an amount too.
  EXPECT_EQ(reader.after("G34", "sprint = 2 weeks")[0].type, TokenType::variableDeclaration);
  EXPECT_EQ(reader.after("G34", "2 sprints = 4")[0].type, TokenType::variableDeclaration);
  const LineReader withoutUnits([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
  EXPECT_EQ(withoutUnits.after("G34", "2 sprints = 4 weeks")[0].type, TokenType::variableDeclaration);
}

}  // namespace
}  // namespace tavrine::testing
