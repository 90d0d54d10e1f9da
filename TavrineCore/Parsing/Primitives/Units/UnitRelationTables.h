#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

// How units multiply and divide into other units.
namespace tavrine::units {

/// A length with its square and its cube.
struct PowerRow {
  UnitIdentifier length, square, cube;
};
inline constexpr auto kPowers = [] {
  using enum UnitIdentifier;
  return std::to_array<PowerRow>({
      {meters, squareMeters, cubicMeters},
      {kilometers, squareKilometers, cubicKilometers},
      {centimeters, squareCentimeters, cubicCentimeters},
      {decimeters, squareDecimeters, cubicDecimeters},
      {millimeters, squareMillimeters, cubicMillimeters},
      {nanometers, squareNanometers, cubicNanometers},
      {inches, squareInches, cubicInches},
      {feet, squareFeet, cubicFeet},
      {miles, squareMiles, cubicMiles},
  });
}();

/// unit1 × unit2 = product. What holds of two units needn't be written down for their multiples: those go through
/// their base units. Where a product has several rows, the first that serves is taken.
struct ProductRow {
  UnitIdentifier unit1, unit2, product;
};
inline constexpr auto kProducts = [] {
  using enum UnitIdentifier;
  return std::to_array<ProductRow>({
      {metersPerSecond, seconds, meters},
      {feetPerSecond, seconds, feet},
      {kilometersPerHour, hours, kilometers},
      {milesPerHour, hours, miles},
      {knots, hours, nauticalMiles},
      {meters, hertz, metersPerSecond},
      {hertz, seconds, cycles},
      {framesPerSecond, seconds, frames},
      {radiansPerSecond, seconds, radians},
      {revolutionsPerSecond, seconds, revolutions},
      {metersPerSecondSquared, seconds, metersPerSecond},
      {kilograms, metersPerSecondSquared, newtons},
      {pounds, feetPerSecondSquared, poundals},
      {pascals, squareMeters, newtons},
      {poundsForcePerSquareInch, squareInches, poundsOfForce},
      {newtons, meters, newtonMeters},
      {poundsOfForce, feet, poundFeet},
      {poundsOfForce, inches, poundInches},
      {ouncesOfForce, inches, ounceInches},
      {radiansPerSecond, newtonMeters, watts},
      {ppi, inches, pixel},
      {liters, molar, moles},
      {kilometers, litersPerKilometer, liters},
      {liters, kilometersPerLiter, kilometers},
      {gallons, milesPerGallon, miles},
      {imperialGallons, milesPerImperialGallon, miles},
      {amperes, ohms, volts},
      {amperes, seconds, coulombs},
      {volts, amperes, watts},
      {volts, coulombs, joules},
      {siemens, volts, amperes},
      {ohms, seconds, henrys},
      {farads, volts, coulombs},
      {volts, seconds, webers},
      {teslas, squareMeters, webers},
      {watts, seconds, joules},
      {kilowatts, seconds, kilojoules},
      {watts, minutes, wattMinutes},
      {watts, hours, wattHours},
      {kilowatts, hours, kilowattHours},
  });
}();

/// Data per second × seconds = data.
struct DataRow {
  UnitIdentifier transfer, storage;
};
inline constexpr auto kDataTransfers = [] {
  using enum UnitIdentifier;
  return std::to_array<DataRow>({
      {bytesPerSecond, bytes},           {bitsPerSecond, bits},           {kilobytesPerSecond, kilobytes},
      {megabytesPerSecond, megabytes},   {gigabytesPerSecond, gigabytes}, {terabytesPerSecond, terabytes},
      {petabytesPerSecond, petabytes},   {exabytesPerSecond, exabytes},   {zettabytesPerSecond, zettabytes},
      {yottabytesPerSecond, yottabytes}, {kilobitsPerSecond, kilobits},   {megabitsPerSecond, megabits},
      {gigabitsPerSecond, gigabits},     {terabitsPerSecond, terabits},   {petabitsPerSecond, petabits},
      {exabitsPerSecond, exabits},       {zettabitsPerSecond, zettabits}, {yottabitsPerSecond, yottabits},
      {kibibytesPerSecond, kibibytes},   {mebibytesPerSecond, mebibytes}, {gibibytesPerSecond, gibibytes},
      {tebibytesPerSecond, tebibytes},   {pebibytesPerSecond, pebibytes}, {exbibytesPerSecond, exbibytes},
      {zebibytesPerSecond, zebibytes},   {yobibytesPerSecond, yobibytes}, {kibibitsPerSecond, kibibits},
      {mebibitsPerSecond, mebibits},     {gibibitsPerSecond, gibibits},   {tebibitsPerSecond, tebibits},
      {pebibitsPerSecond, pebibits},     {exbibitsPerSecond, exbibits},   {zebibitsPerSecond, zebibits},
      {yobibitsPerSecond, yobibits},
  });
}();

/// Units that are named as one unit per another. Data transfers, all per second, are left to their own table.
struct PerStyleRow {
  UnitIdentifier unit, numerator, denominator;
};
inline constexpr auto kPerStyleUnits = [] {
  using enum UnitIdentifier;
  return std::to_array<PerStyleRow>({
      {milesPerGallon, miles, gallons},
      {milesPerImperialGallon, miles, imperialGallons},
      {kilometersPerLiter, kilometers, liters},
      {litersPer100Kilometers, liters, hectokilometers},
      {litersPerKilometer, liters, kilometers},
      {framesPerSecond, frames, seconds},
      {hertz, cycles, seconds},
      {radiansPerSecond, radians, seconds},
      {revolutionsPerMinute, revolutions, minutes},
      {revolutionsPerSecond, revolutions, seconds},
      {metersPerSecond, meters, seconds},
      {feetPerSecond, feet, seconds},
      {kilometersPerHour, kilometers, hours},
      {milesPerHour, miles, hours},
      {knots, nauticalMiles, hours},
      {molar, moles, liters},
      {metersPerSecondSquared, metersPerSecond, seconds},
      {feetPerSecondSquared, feetPerSecond, seconds},
      {pascals, newtons, squareMeters},
      {poundsForcePerSquareInch, poundsOfForce, squareInches},
      {siemens, amperes, volts},
      {farads, coulombs, volts},
      {teslas, webers, squareMeters},
  });
}();

/// Each the reciprocal of the other.
struct ReciprocalRow {
  UnitIdentifier unit1, unit2;
};
inline constexpr auto kReciprocals = [] {
  using enum UnitIdentifier;
  return std::to_array<ReciprocalRow>({
      {kilometersPerLiter, litersPerKilometer},
      {seconds, hertz},
      {ohms, siemens},
  });
}();

}  // namespace tavrine::units
