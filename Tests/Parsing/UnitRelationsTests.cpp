#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using enum UnitIdentifier;

std::optional<UnitIdentifier> nameOf(const std::optional<TCUnit>& unit) {
  return unit ? std::optional(unit->identifier()) : std::nullopt;
}

double sizeOf(const TCUnit& unit) { return unit.coefficient().toDouble(); }

// Kinds whose bases are no product of bases: degrees for radians, liters for cubic meters, pixels for inches.
bool hasBaseOfItsOwn(const TCUnit& unit) {
  const UnitType type = unit.unitType();
  return type == UnitType::angularVelocity || type == UnitType::fuelConsumption || type == UnitType::fuelEconomy ||
         type == UnitType::substanceConcentraion || type == UnitType::screenDensity;
}

TEST(UnitRelationsTest, ProductsHaveTheSizeOfTheirFactors) {
  EXPECT_EQ(UnitRelations::mappings().size(), 92u);
  int compared = 0;
  for (const UnitRelations::Mapping& m : UnitRelations::mappings()) {
    // Each row stands in the way of no other.
    EXPECT_EQ(UnitRelations::productUnitFor(m.unit1, m.unit2), m.product);
    EXPECT_EQ(UnitRelations::productUnitFor(m.unit2, m.unit1), m.product);
    for (const TCUnit& divisor : {m.unit1, m.unit2}) {
      const std::optional<TCUnit> quotient = UnitRelations::divisionUnitFor(m.product, divisor);
      ASSERT_TRUE(quotient) << m.product.symbol() << '/' << divisor.symbol();
      EXPECT_EQ(UnitRelations::productUnitFor(divisor, *quotient), m.product);
    }
    if (hasBaseOfItsOwn(m.unit1) || hasBaseOfItsOwn(m.unit2)) continue;
    // Some coefficients have five digits alone.
    EXPECT_NEAR(sizeOf(m.unit1) * sizeOf(m.unit2) / sizeOf(m.product), 1.0, 1e-4)
        << m.unit1.symbol() << " * " << m.unit2.symbol();
    ++compared;
  }
  EXPECT_EQ(compared, 92 - 9);
}

TEST(UnitRelationsTest, PerStyleUnitsHaveTheSizeOfTheirParts) {
  int found = 0;
  for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) {
    const TCUnit& unit = unitOf(static_cast<UnitIdentifier>(i));
    const std::optional<TCUnit> numerator = UnitRelations::numeratorOf(unit);
    const std::optional<TCUnit> denominator = UnitRelations::denomenatorOf(unit);
    ASSERT_EQ(numerator.has_value(), denominator.has_value());
    if (!numerator) continue;
    ++found;
    if (hasBaseOfItsOwn(unit)) continue;
    EXPECT_NEAR(sizeOf(*numerator) / sizeOf(*denominator) / sizeOf(unit), 1.0, 1e-4) << unit.symbol();
  }
  EXPECT_EQ(found, 23 + 34);
  EXPECT_EQ(nameOf(UnitRelations::numeratorOf(unitOf(milesPerImperialGallon))), miles);
  EXPECT_EQ(nameOf(UnitRelations::denomenatorOf(unitOf(milesPerImperialGallon))), imperialGallons);
  EXPECT_EQ(nameOf(UnitRelations::denomenatorOf(unitOf(revolutionsPerMinute))), minutes);
  EXPECT_EQ(nameOf(UnitRelations::numeratorOf(unitOf(molar))), moles);
}

TEST(UnitRelationsTest, Products) {
  struct Case {
    UnitIdentifier unit1, unit2;
    std::optional<UnitIdentifier> want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitRelationsTests", "Products")) {
    EXPECT_EQ(nameOf(UnitRelations::productUnitFor(unitOf(c.unit1), unitOf(c.unit2))), c.want)
        << toString(c.unit1) << " * " << toString(c.unit2);
  }

  // Money stays money, the second of two.
  const TCUnit crowns = TCUnit::counted({undefined, UnitType::currency, "kr", {8, 0}, nullptr});
  EXPECT_EQ(UnitRelations::productUnitFor(crowns, unitOf(hours)), crowns);
  EXPECT_EQ(UnitRelations::productUnitFor(unitOf(hours), crowns), crowns);
  EXPECT_EQ(UnitRelations::productUnitFor(crowns, TCUnitFor(currencyUSD)), TCUnitFor(currencyUSD));

  // A unit of the vocabulary is another object, and serves as well.
  const TCUnit namesake = TCUnit::counted({undefined, UnitType::length, "m", {1, 0}, nullptr});
  EXPECT_EQ(nameOf(UnitRelations::productUnitFor(namesake, unitOf(meters))), squareMeters);
}

TEST(UnitRelationsTest, Roots) {
  struct Case {
    UnitIdentifier unit;
    std::optional<UnitIdentifier> square, cube;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitRelationsTests", "Roots")) {
    EXPECT_EQ(nameOf(UnitRelations::squareRootUnitFor(unitOf(c.unit))), c.square) << toString(c.unit);
    EXPECT_EQ(nameOf(UnitRelations::cubeRootUnitFor(unitOf(c.unit))), c.cube) << toString(c.unit);
  }
}

TEST(UnitRelationsTest, QuotientsThatAreQuantities) {
  struct Case {
    UnitIdentifier numerator, denominator;
    std::optional<UnitIdentifier> want;
    bool convertToBase = false;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitRelationsTests", "QuotientsThatAreQuantities")) {
    const auto quotient = UnitRelations::formUnitExpressionInDivision(unitOf(c.numerator), unitOf(c.denominator));
    ASSERT_EQ(quotient.has_value(), c.want.has_value()) << toString(c.numerator) << '/' << toString(c.denominator);
    if (!quotient) continue;
    EXPECT_EQ(quotient->unit.identifier(), *c.want) << toString(c.numerator) << '/' << toString(c.denominator);
    EXPECT_EQ(quotient->convertToBase, c.convertToBase) << toString(c.numerator) << '/' << toString(c.denominator);
  }
}

TEST(UnitRelationsTest, QuotientsThatAreRates) {
  struct Case {
    UnitIdentifier numerator, denominator;
    bool cancel;
    std::optional<UnitIdentifier> want;
    bool convertToBase = false;
    std::optional<UnitIdentifier> preferred = std::nullopt;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitRelationsTests", "QuotientsThatAreRates")) {
    const TCUnit& numerator = unitOf(c.numerator);
    const TCUnit& denominator = unitOf(c.denominator);
    EXPECT_EQ(UnitRelations::unitsCancel(numerator, denominator), c.cancel) << toString(c.numerator);
    const auto quotient = UnitRelations::formRateInDivision(numerator, denominator);
    ASSERT_EQ(quotient.has_value(), c.want.has_value()) << toString(c.numerator) << '/' << toString(c.denominator);
    if (!quotient) continue;
    EXPECT_EQ(quotient->unit.identifier(), *c.want) << toString(c.numerator) << '/' << toString(c.denominator);
    EXPECT_EQ(quotient->convertToBase, c.convertToBase);
    EXPECT_EQ(nameOf(quotient->preferredFinalUnit), c.preferred);
  }
}

TEST(UnitRelationsTest, Components) {
  using Units = std::vector<TCUnit>;
  EXPECT_EQ(UnitRelations::componentsOf(unitOf(cubicMeters)), (Units{unitOf(squareMeters), unitOf(meters)}));
  // Angular velocity times torque comes first, but is a rate.
  EXPECT_EQ(UnitRelations::componentsOf(unitOf(watts)), (Units{unitOf(volts), unitOf(amperes)}));
  EXPECT_EQ(UnitRelations::componentsOf(unitOf(newtons)), Units{});
  // Meters are speed times time, but no kind of product.
  EXPECT_EQ(UnitRelations::componentsOf(unitOf(meters)), Units{});
}

TEST(UnitRelationsTest, ReciprocalsAndLarger) {
  const UnitRate speed{1, unitOf(kilometers), unitOf(hours)};
  const UnitRate pace{5, unitOf(minutes), unitOf(miles)};
  EXPECT_TRUE(UnitRelations::ratesAreReciprocal(speed, pace));
  EXPECT_FALSE(UnitRelations::ratesAreReciprocal(speed, speed));
  const UnitRate slope{1, unitOf(meters), unitOf(kilometers)};
  EXPECT_FALSE(UnitRelations::ratesAreReciprocal(slope, slope));
  EXPECT_FALSE(UnitRelations::ratesAreReciprocal(speed, {1, std::nullopt, unitOf(kilometers)}));

  EXPECT_EQ(nameOf(UnitRelations::reciprocalOf(unitOf(siemens))), ohms);
  EXPECT_FALSE(UnitRelations::reciprocalOf(unitOf(kilohertz)));

  EXPECT_EQ(nameOf(UnitRelations::largerOf(unitOf(months), unitOf(years))), years);
  EXPECT_EQ(nameOf(UnitRelations::largerOf(unitOf(days), unitOf(nights))), days);
  EXPECT_FALSE(UnitRelations::largerOf(unitOf(days), unitOf(meters)));
}

}  // namespace
}  // namespace tavrine
