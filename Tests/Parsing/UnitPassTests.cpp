// Which words of a line are units, and what they make of the numbers beside them.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

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
  for (const auto& [line, units] : rowsOf<UnitsCase>("Parsing/UnitPassTests", "FindUnitsInWords"))
    EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;
}

TEST(UnitPasses, TellAmbiguousWordsByTheLine) {
  LineReader reader;
  for (const auto& [line, units] : rowsOf<UnitsCase>("Parsing/UnitPassTests", "TellAmbiguousWordsByTheLine"))
    EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;

  reader.declare("way", EvaluationResult::unitExpression(UnitExpression{5, unitOf(UnitIdentifier::kilometers)}));
  EXPECT_EQ(unitsAfter("G3", reader, "way + 20 m in 2 h"), "kilometers meters hours");
}

TEST(UnitPasses, ReadQuotationMarksAsInchesAllOrNone) {
  const LineReader reader;
  for (const auto& [line, units] : rowsOf<UnitsCase>("Parsing/UnitPassTests", "ReadQuotationMarksAsInchesAllOrNone"))
    EXPECT_EQ(unitsAfter("G3", reader, line), units) << line;
}

struct ShapeCase {
  std::string_view line;
  std::string_view shape;
};

TEST(UnitPasses, PairNumbersAndUnits) {
  const LineReader reader;
  for (const auto& [line, shape] : rowsOf<ShapeCase>("Parsing/UnitPassTests", "PairNumbersAndUnits"))
    EXPECT_EQ(reader.shapeAfter("G11", line), shape) << line;
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
  for (const Case& expected : rowsOf<Case>("Parsing/UnitPassTests", "ValuesOfAmounts")) {
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
  for (const Case& expected : rowsOf<Case>("Parsing/UnitPassTests", "AnglesAndPlaces")) {
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
  for (const auto& [line, shape] : rowsOf<ShapeCase>("Parsing/UnitPassTests", "FindWordsOfTheKitchen"))
    EXPECT_EQ(reader.shapeAfter("G6", line), shape) << line;
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
