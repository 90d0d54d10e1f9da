#include "TavrineCore/Customization/Units/CommonConversions.h"

#include <array>

namespace tavrine {

namespace {

using enum UnitIdentifier;

struct Conversion {
  UnitIdentifier from;
  UnitIdentifier to;
};

constexpr auto kBothWays = std::to_array<Conversion>({
    {celsius, fahrenheit},
    {grams, ounces},
    {kilograms, pounds},
    {metricTons, shortTons},
    {metersPerSecond, feetPerSecond},
    {kilometersPerHour, milesPerHour},
    {pascals, bars},
    {calories, joules},
    {kilocalories, kilojoules},
    {tablespoons, fluidOunces},
    {cups, pints},
    {gallons, liters},
    {teaspoons, milliliters},
    {cubicKilometers, cubicMiles},
    {cubicMeters, cubicYards},
    {cubicCentimeters, cubicInches},
    {kilometers, miles},
    {meters, yards},
    {centimeters, inches},
    {squareKilometers, squareMiles},
    {squareMeters, squareYards},
    {squareCentimeters, squareInches},
    {hectares, acres},
    {metersPerSecondSquared, feetPerSecondSquared},
    {litersPer100Kilometers, milesPerGallon},
    {days, weeks},
    {pixel, rem},
    {radians, degrees},
    {bytesPerSecond, bitsPerSecond},
    {kilobytesPerSecond, kilobitsPerSecond},
    {megabytesPerSecond, megabitsPerSecond},
    {gigabytesPerSecond, gigabitsPerSecond},
    {terabytesPerSecond, terabitsPerSecond},
});

constexpr auto kOneWay = std::to_array<Conversion>({
    {knots, metersPerSecond},
    {stones, metricTons},
    {kelvin, celsius},
    {feet, meters},
    {cubicFeet, cubicMeters},
    {squareFeet, squareMeters},
    {millimeters, inches},
    {squareMillimeters, squareInches},
    {cubicMillimeters, cubicInches},
    {milligrams, ounces},
    {milliseconds, seconds},
    {nanoseconds, milliseconds},
});

using Table = std::array<std::optional<UnitIdentifier>, kUnitIdentifierCount>;

constexpr Table makeTable() {
  Table table;
  const auto add = [&table](UnitIdentifier from, UnitIdentifier to) { table[static_cast<std::size_t>(from)] = to; };
  for (const Conversion& row : kBothWays) {
    add(row.from, row.to);
    add(row.to, row.from);
  }
  for (const Conversion& row : kOneWay) add(row.from, row.to);
  return table;
}

constexpr Table kConversions = makeTable();

}  // namespace

std::optional<UnitIdentifier> mostCommonConversionOf(UnitIdentifier identifier) {
  return kConversions[static_cast<std::size_t>(identifier)];
}

}  // namespace tavrine
