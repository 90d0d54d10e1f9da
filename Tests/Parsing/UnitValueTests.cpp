#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

TCUnit::Record record(std::string symbol, Decimal coefficient, UnitIdentifier identifier = UnitIdentifier::undefined,
                      UnitType type = UnitType::other) {
  return {identifier, type, std::move(symbol), {coefficient, 0}, nullptr};
}

TEST(TCUnitTest, EqualityIsIdentityOrSymbolAndConverter) {
  // Static, as the tables of built-in units are.
  static const TCUnit meters = TCUnit::permanent(record("m", 1, UnitIdentifier::meters, UnitType::length));
  const TCUnit copy = meters;
  EXPECT_EQ(copy, meters);
  EXPECT_TRUE(copy.isSameObjectAs(meters));

  // Neither the identifier nor the kind counts.
  const TCUnit namesake = TCUnit::counted(record("m", 1));
  EXPECT_FALSE(namesake.isSameObjectAs(meters));
  EXPECT_EQ(namesake, meters);
  EXPECT_EQ(namesake.hash(), meters.hash());

  EXPECT_NE(TCUnit::counted(record("m", 2)), meters);
  EXPECT_NE(TCUnit::counted(record("M", 1)), meters);
  TCUnit::Record shifted = record("m", 1);
  shifted.converter.constant = 1;
  EXPECT_NE(TCUnit::counted(shifted), meters);
}

TEST(TCUnitTest, TheNullUnitEqualsNoOther) {
  const TCUnit null;
  EXPECT_TRUE(null.isNull());
  EXPECT_EQ(null, TCUnit());
  EXPECT_EQ(null.identifier(), UnitIdentifier::undefined);
  EXPECT_EQ(null.unitType(), UnitType::other);
  // A generic unit has no symbol and the same converter.
  EXPECT_NE(null, TCUnit::counted(record("", 0)));
}

TEST(TCUnitTest, ARecordLivesAsLongAsItsLastHandle) {
  const auto description = std::make_shared<const UnitDescription>();
  TCUnit::Record counted = record("smoot", 1);
  counted.unitDescription = description;
  {
    std::vector<TCUnit> handles(3, TCUnit::counted(std::move(counted)));
    handles[0] = TCUnit(handles[1]);
    handles[0] = handles[0];
    TCUnit moved = std::move(handles[1]);
    EXPECT_TRUE(handles[1].isNull());
    EXPECT_EQ(moved.symbol(), "smoot");
    handles[2] = std::move(moved);
    EXPECT_EQ(handles[2].unitDescription(), description);
    handles.erase(handles.begin());
    EXPECT_EQ(description.use_count(), 2);
  }
  EXPECT_EQ(description.use_count(), 1);
}

TEST(TCUnitTest, HandlesAreCopiedFromManyThreads) {
  const auto description = std::make_shared<const UnitDescription>();
  TCUnit::Record counted = record("smoot", 1);
  counted.unitDescription = description;
  {
    const TCUnit unit = TCUnit::counted(std::move(counted));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([unit] {
        for (int round = 0; round < 2000; ++round) {
          const TCUnit copy = unit;
          const UnitExpression expression{round, copy};
          ASSERT_EQ(expression.unit, unit);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  EXPECT_EQ(description.use_count(), 1);
}

TEST(UnitIdentifierTest, KindsAgreeWithNames) {
  for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) {
    const auto identifier = static_cast<UnitIdentifier>(i);
    const bool isCurrency = unitTypeOf(identifier) == UnitType::currency;
    EXPECT_EQ(isCurrency, toString(identifier).starts_with("currency")) << toString(identifier);
  }
  EXPECT_EQ(unitTypeOf(UnitIdentifier::undefined), UnitType::other);
  EXPECT_EQ(unitTypeOf(UnitIdentifier::pixel), UnitType::length);
  EXPECT_EQ(unitTypeOf(UnitIdentifier::framesPerSecond), UnitType::frameRate);
  EXPECT_EQ(unitTypeOf(UnitIdentifier::litersPer100Kilometers), UnitType::fuelConsumption);
  EXPECT_EQ(unitTypeOf(UnitIdentifier::yobibitsPerSecond), UnitType::dataTransfer);

  // The unit that stands for a kind is of that kind, or else the seconds that stand for none.
  for (std::size_t i = 0; i < kUnitTypeCount; ++i) {
    const auto type = static_cast<UnitType>(i);
    EXPECT_EQ(unitTypeNamed(toString(type)), type);
    const UnitIdentifier base = baseUnitIdentifierOf(type);
    if (base == UnitIdentifier::seconds) continue;
    EXPECT_EQ(unitTypeOf(base), type) << toString(type);
  }
}

TEST(UnitFamiliesTest, AMotherStandsForHerFamilyAndForNothingElse) {
  for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) {
    const auto identifier = static_cast<UnitIdentifier>(i);
    const UnitIdentifier mother = motherUnitIdentifierOf(identifier);
    EXPECT_EQ(motherUnitIdentifierOf(mother), mother) << toString(identifier);
    // Frames per second are the one unit whose mother is of another kind.
    if (identifier == UnitIdentifier::framesPerSecond) continue;
    EXPECT_EQ(unitTypeOf(mother), unitTypeOf(identifier)) << toString(identifier);
  }

  using enum UnitIdentifier;
  struct Case {
    UnitIdentifier identifier, want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitValueTests", "AMotherStandsForHerFamilyAndForNothingElse"))
    EXPECT_EQ(motherUnitIdentifierOf(c.identifier), c.want) << toString(c.identifier);
}

TEST(UnitFamiliesTest, UnitsCountPartsOfADate) {
  EXPECT_EQ(calendarUnitOf(UnitIdentifier::nights), Calendar::Component::day);
  EXPECT_EQ(calendarUnitOf(UnitIdentifier::weeks), Calendar::Component::weekOfYear);
  EXPECT_FALSE(calendarUnitOf(UnitIdentifier::milliseconds));
  EXPECT_FALSE(calendarUnitOf(UnitIdentifier::meters));
  // There and back, but for the weekdays, which are days then.
  for (const Calendar::Component component : orderedTavrineSupportedComponents) {
    const std::optional<UnitIdentifier> unit = unitIdentifierFor(component);
    ASSERT_TRUE(unit) << toString(component);
    const auto want = component == Calendar::Component::weekday ? Calendar::Component::day : component;
    EXPECT_EQ(calendarUnitOf(*unit), want);
  }
  EXPECT_FALSE(unitIdentifierFor(Calendar::Component::era));

  EXPECT_EQ(zeroDPformattingCurrencies.size(), 20u);
  EXPECT_EQ(cryptoCurrencies.size(), 24u);
}

}  // namespace
}  // namespace tavrine
