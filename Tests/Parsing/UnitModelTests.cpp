#include <gtest/gtest.h>

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using enum UnitIdentifier;

std::vector<UnitIdentifier> allIdentifiers() {
  std::vector<UnitIdentifier> all;
  for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) all.push_back(static_cast<UnitIdentifier>(i));
  return all;
}

Decimal decimal(std::string_view text) { return Decimal::parse(text).value(); }

TCUnit money(std::string symbol, Decimal rate) {
  return TCUnit::counted({undefined, UnitType::currency, std::move(symbol), {rate, 0}, nullptr});
}

TEST(BuiltInUnitsTest, EveryIdentifierHasItsUnit) {
  const UnitIdentifierSet fixedMoney = {currencyUSD, currencyEUR, currencyAUD};
  std::vector<TCUnit> made;
  for (const UnitIdentifier identifier : allIdentifiers()) {
    const TCUnit& unit = TCUnitFor(identifier);
    const bool isMoney = unitTypeOf(identifier) == UnitType::currency;
    if (identifier == undefined || (isMoney && !fixedMoney.contains(identifier))) {
      EXPECT_TRUE(unit.isNull()) << toString(identifier);
    } else {
      EXPECT_EQ(toString(unit.identifier()), toString(identifier));
      EXPECT_EQ(unit.unitType(), unitTypeOf(identifier)) << toString(identifier);
      EXPECT_GT(unit.coefficient(), Decimal(0)) << toString(identifier);
      EXPECT_EQ(!unit.constant().isZero(), identifier == celsius || identifier == fahrenheit) << toString(identifier);
      // Equality goes by symbol and size, so that two units of the tables could fall together.
      for (const TCUnit& other : made) EXPECT_NE(unit, other) << toString(identifier);
      made.push_back(unit);
    }
    EXPECT_TRUE(unitOf(identifier).isSameObjectAs(isMoney || identifier == undefined ? genericUnit() : unit))
        << toString(identifier);
  }
  EXPECT_EQ(made.size(), 323u);
}

TEST(BuiltInUnitsTest, NamesTellSizes) {
  struct Prefix {
    std::string_view name, factor;
  };
  int compared = 0;
  for (const UnitIdentifier identifier : allIdentifiers()) {
    const std::string_view name = toString(identifier);
    for (const auto& [prefix, factor] : rowsOf<Prefix>("Parsing/UnitModelTests", "NamesTellSizes, prefixes")) {
      if (!name.starts_with(prefix)) continue;
      const std::optional<UnitIdentifier> plain = unitIdentifierNamed(name.substr(prefix.size()));
      if (!plain) continue;
      EXPECT_EQ(unitOf(identifier).coefficient(), unitOf(*plain).coefficient() * decimal(factor)) << name;
      ++compared;
    }
    const bool isSquare = name.starts_with("square");
    if (!isSquare && !name.starts_with("cubic")) continue;
    std::string length(name.substr(isSquare ? 6 : 5));
    length.front() = static_cast<char>(length.front() - 'A' + 'a');
    const Decimal size = unitOf(unitIdentifierNamed(length).value()).coefficient();
    EXPECT_EQ(unitOf(identifier).coefficient(), isSquare ? size * size : size * size * size) << name;
    ++compared;
  }
  EXPECT_GT(compared, 180);
}

TEST(BuiltInUnitsTest, BasesHaveTheSizeOne) {
  for (std::size_t i = 0; i < kUnitTypeCount; ++i) {
    const auto type = static_cast<UnitType>(i);
    if (type == UnitType::other) continue;
    const TCUnit& base = baseUnitOf(type);
    EXPECT_EQ(base.unitType(), type);
    EXPECT_EQ(base.coefficient(), Decimal(1)) << toString(type);
    EXPECT_TRUE(base.constant().isZero()) << toString(type);
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(base, baseUnitOf(static_cast<UnitType>(j))) << toString(type);
  }
  EXPECT_TRUE(baseUnitOf(TCUnit()).isNull());
  EXPECT_EQ(baseUnitOf(genericUnit()), genericUnit());
  EXPECT_FALSE(haveEqualBaseUnits(TCUnit(), genericUnit()));
  EXPECT_TRUE(haveEqualBaseUnits(TCUnitFor(currencyUSD), money("smackers", 3)));
}

TEST(UnitConversionTest, ThereAndBackAgain) {
  // Multiplying and dividing round once each, by half a unit of the 38th digit. What is rounded to places by design may
  // be off by half of the last of them.
  const Decimal relativeBound = decimal("2e-37");
  const UnitIdentifierSet roundedTo6Places = {pints, cups, quarts, gallons, fluidOunces, bushels, cubicYards};
  for (const UnitIdentifier identifier : allIdentifiers()) {
    const TCUnit& unit = TCUnitFor(identifier);
    if (unit.isNull()) continue;
    for (const char* text : {"1", "7", "0.1", "-273.15", "123456789.123456789", "1e15"}) {
      const Decimal value = decimal(text);
      const std::optional<UnitExpression> base = convertedTo({value, unit}, baseUnitOf(unit));
      ASSERT_TRUE(base) << toString(identifier);
      const std::optional<UnitExpression> back = convertedTo(*base, unit);
      ASSERT_TRUE(back) << toString(identifier);
      EXPECT_EQ(back->unit, unit);
      Decimal bound = value.magnitude() * relativeBound;
      if (roundedTo6Places.contains(identifier)) bound = decimal("5e-7");
      if (unit.unitType() == UnitType::temperature) bound += decimal("1e-34");
      EXPECT_LE((back->value - value).magnitude(), bound) << text << ' ' << toString(identifier) << ": " << back->value;
    }
  }
}

TEST(UnitConversionTest, KnownValues) {
  struct Case {
    std::string_view value;
    UnitIdentifier from, into;
    std::string_view want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/UnitModelTests", "KnownValues")) {
    const std::optional<UnitExpression> result = to({decimal(c.value), unitOf(c.from)}, unitOf(c.into));
    ASSERT_TRUE(result) << toString(c.from) << " to " << toString(c.into);
    EXPECT_EQ(result->unit, unitOf(c.into));
    EXPECT_EQ(result->value, decimal(c.want)) << toString(c.from) << " to " << toString(c.into);
  }
}

TEST(UnitConversionTest, OtherKindsDoNotConvert) {
  constexpr UnitIdentifier kPairs[][2] = {
      {kilometers, seconds},           {watts, joules},        {squareMeters, meters}, {hertz, framesPerSecond},
      {revolutionsPerMinute, seconds}, {hertz, bitsPerSecond}, {celsius, degrees},     {undefined, meters},
  };
  for (const auto& [from, into] : kPairs) {
    EXPECT_FALSE(to({1, unitOf(from)}, unitOf(into))) << toString(from) << " to " << toString(into);
    EXPECT_FALSE(to({1, unitOf(into)}, unitOf(from))) << toString(into) << " to " << toString(from);
    EXPECT_EQ(factorOf(unitOf(from), unitOf(into)), Decimal(0));
    EXPECT_EQ(ratioOf(unitOf(from), unitOf(into)), std::nullopt);
  }
  // The reciprocal of a second is no unit for what only has a plain conversion.
  EXPECT_FALSE(convertedTo({2, unitOf(seconds)}, hertz));
  EXPECT_FALSE(convertedTo({2, unitOf(meters)}, TCUnit()));
}

TEST(UnitConversionTest, MoneyGoesByItsRates) {
  const TCUnit crowns = money("kr", decimal("0.125"));
  EXPECT_EQ(convertedTo({16, crowns}, TCUnitFor(currencyUSD))->value, Decimal(2));
  EXPECT_EQ(convertedTo({2, TCUnitFor(currencyUSD)}, crowns)->value, Decimal(16));
  // Its rate is not known yet.
  EXPECT_TRUE(convertedTo({2, TCUnitFor(currencyUSD)}, money("?", 0))->value.isNaN());
  EXPECT_FALSE(to({2, crowns}, unitOf(seconds)));
}

TEST(UnitConversionTest, FactorsAndOrder) {
  EXPECT_EQ(factorOf(unitOf(kilometers), unitOf(meters)), Decimal(1000));
  EXPECT_EQ(ratioOf(unitOf(minutes), unitOf(hours)).value() * 60, Decimal(1));

  EXPECT_EQ(compareQuantities({1, unitOf(kilometers)}, {1, unitOf(miles)}), std::partial_ordering::less);
  EXPECT_EQ(compareQuantities({0, unitOf(celsius)}, {decimal("273.15"), unitOf(kelvin)}),
            std::partial_ordering::equivalent);
  EXPECT_EQ(compareQuantities({1, unitOf(newtonMeters)}, {1, unitOf(joules)}), std::partial_ordering::equivalent);
  EXPECT_EQ(compareQuantities({1, unitOf(meters)}, {1, unitOf(seconds)}), std::partial_ordering::unordered);
}

TEST(UnitConversionTest, UnitsAsRates) {
  struct Case {
    UnitIdentifier unit;
    std::optional<UnitRate> want;
  };
  const Case cases[] = {
      {knots, UnitRate{1, unitOf(nauticalMiles), unitOf(hours)}},
      {litersPer100Kilometers, UnitRate{1, unitOf(liters), unitOf(hectokilometers)}},
      {gibibitsPerSecond, UnitRate{1, unitOf(gibibits), unitOf(seconds)}},
      {siemens, UnitRate{1, unitOf(amperes), unitOf(volts)}},
      // Ohms have no parts of their own, but a reciprocal.
      {kiloohms, UnitRate{1000, std::nullopt, unitOf(siemens)}},
      {minutes, UnitRate{60, std::nullopt, unitOf(hertz)}},
      {meters, std::nullopt},
      {joules, std::nullopt},
      {gramsPerLiter, std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(rateValueOf(unitOf(c.unit)), c.want) << toString(c.unit);
}

}  // namespace
}  // namespace tavrine
