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

namespace tavrine {
namespace {

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
  constexpr Prefix kPrefixes[] = {
      {"yotta", "1e24"},
      {"zetta", "1e21"},
      {"exa", "1e18"},
      {"peta", "1e15"},
      {"tera", "1e12"},
      {"giga", "1e9"},
      {"mega", "1e6"},
      {"kilo", "1e3"},
      {"hecto", "1e2"},
      {"deca", "1e1"},
      {"deci", "1e-1"},
      {"centi", "1e-2"},
      {"milli", "1e-3"},
      {"micro", "1e-6"},
      {"nano", "1e-9"},
      {"pico", "1e-12"},
      {"femto", "1e-15"},
      {"kibi", "1024"},
      {"mebi", "1048576"},
      {"gibi", "1073741824"},
      {"tebi", "1099511627776"},
      {"pebi", "1125899906842624"},
      {"exbi", "1152921504606846976"},
      {"zebi", "1180591620717411303424"},
      {"yobi", "1208925819614629174706176"},
  };
  int compared = 0;
  for (const UnitIdentifier identifier : allIdentifiers()) {
    const std::string_view name = toString(identifier);
    for (const auto& [prefix, factor] : kPrefixes) {
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
  constexpr Case kCases[] = {
      {"1", miles, kilometers, "1.609344"},
      {"1", feet, inches, "12"},
      {"1", em, pixel, "16"},
      {"3", pixel, point, "2.25"},
      {"1", acres, squareFeet, "43560"},
      {"1", hectares, ares, "100"},
      {"1", stones, pounds, "14"},
      {"1", pounds, ounces, "16"},
      {"5", carats, grams, "1"},
      {"36", kilometersPerHour, metersPerSecond, "10"},
      {"1", kilowattHours, megajoules, "3.6"},
      {"1", kilocalories, joules, "4184"},
      {"1", atmospheres, hectopascals, "1013.25"},
      {"1", milliampereHours, coulombs, "3.6"},
      {"360", degrees, gradians, "400"},
      {"60", arcMinutes, degrees, "1"},
      {"3600", arcSeconds, degrees, "1"},
      // Both constants are long; the rounding takes their noise away.
      {"0", celsius, fahrenheit, "32"},
      {"100", celsius, fahrenheit, "212"},
      {"-40", fahrenheit, celsius, "-40"},
      {"0", kelvin, celsius, "-273.15"},
      // Five workdays make a week; months and years are mean ones.
      {"5", weekdays, weeks, "1"},
      {"1", months, days, "30.436875"},
      {"1", years, months, "12"},
      // Kitchen units are rounded to 6 places, liters are not.
      {"1", cups, pints, "0.5"},
      {"1", bushels, pints, "74.473483"},
      {"1", liters, fluidOunces, "33.814023"},
      {"1", fluidOunces, milliliters, "29.5735295625"},
      {"1", liters, cubicCentimeters, "1000"},
      {"1", metricTablespoons, metricTeaspoons, "3"},
      {"1", bytes, bits, "8"},
      {"1", gigabits, megabytes, "125"},
      {"1", gibibytes, mebibytes, "1024"},
      {"1", yobibytes, bytes, "1208925819614629174706176"},
      {"1", mebibitsPerSecond, bytesPerSecond, "131072"},
      {"1", milligramsPerDeciliter, gramsPerLiter, "0.01"},
      {"10", newtonMeters, joules, "10"},
      {"2", kilojoules, newtonMeters, "2000"},
      // Reciprocals.
      {"10", kilometersPerLiter, litersPer100Kilometers, "10"},
      {"2", litersPerKilometer, kilometersPerLiter, "0.5"},
      {"2", kilohertz, milliseconds, "0.5"},
      {"1", minutes, millihertz, "16.666666666666666666666666666666666667"},
      {"4", ohms, siemens, "0.25"},
      // Turns per time.
      {"60", revolutionsPerMinute, hertz, "1"},
      {"90", revolutionsPerMinute, millihertz, "1500"},
      {"3", kilohertz, revolutionsPerSecond, "3000"},
      {"1", radiansPerSecond, hertz, "0.15915494309189533576888376337251436203"},
  };
  for (const Case& c : kCases) {
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
