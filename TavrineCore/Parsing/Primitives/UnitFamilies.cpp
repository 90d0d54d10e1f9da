#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"

#include <array>
#include <cstddef>

namespace tavrine {

namespace {

using enum UnitIdentifier;

struct Family {
  UnitIdentifier mother;
  UnitIdentifierSet members;
};

constexpr UnitIdentifierSet run(UnitIdentifier first, UnitIdentifier last) {
  return UnitIdentifierSet::fromTo(first, last);
}

constexpr UnitIdentifierSet operator|(UnitIdentifierSet left, const UnitIdentifierSet& right) {
  right.forEach([&left](UnitIdentifier member) { left.insert(member); });
  return left;
}

constexpr auto kFamilies = std::to_array<Family>({
    {squareMeters,
     {squareMegameters, squareKilometers, squareMeters, squareMillimeters, squareMicrometers, squareNanometers}},
    {squareFeet, {squareInches, squareFeet, squareYards, squareMiles}},
    {seconds, run(seconds, milliseconds)},
    {joules, {joules, kilojoules, megajoules, gigajoules}},
    {calories, {kilocalories, calories}},
    {wattSeconds, {wattSeconds, wattMinutes, wattHours, kilowattHours, megawattHours, gigawattHours, terawattHours}},
    {hertz, run(terahertz, framesPerSecond)},
    {meters, run(megameters, picometers)},
    {feet, {inches, feet, yards, miles}},
    {grams, run(kilograms, picograms)},
    {ounces, {ounces, pounds, stones}},
    {watts, {terawatts, gigawatts, kilowatts, watts, milliwatts, microwatts, nanowatts, picowatts, femtowatts}},
    {pascals, {pascals, gigapascals, megapascals, kilopascals, hectopascals}},
    {bars, {bars, millibars}},
    {metersPerSecond, {metersPerSecond, kilometersPerHour}},
    {liters, run(megaliters, nanoliters)},
    {cubicMeters, {cubicKilometers, cubicMeters, cubicCentimeters, cubicMillimeters, cubicNanometers}},
    {cubicFeet, {cubicInches, cubicFeet, cubicYards, cubicMiles}},
    {newtons, run(newtons, nanonewtons)},
    {ampereHours, run(ampereHours, microampereHours)},
    {amperes, run(amperes, microamperes)},
    {volts, run(megavolts, microvolts)},
    {ohms, run(megaohms, microohms)},
    {siemens, run(megasiemens, microsiemens)},
    {henrys, run(megahenrys, microhenrys)},
    {farads, run(megafarads, microfarads)},
    {webers, run(megawebers, microwebers)},
    {teslas, run(megateslas, microteslas)},
    {bytes, UnitIdentifierSet{bytes} | run(kilobytes, yottabytes) | run(kibibytes, yobibytes)},
    {bits, UnitIdentifierSet{bits} | run(kilobits, yottabits) | run(kibibits, yobibits)},
    {bytesPerSecond, UnitIdentifierSet{bytesPerSecond} | run(kilobytesPerSecond, yottabytesPerSecond) |
                         run(kibibytesPerSecond, yobibytesPerSecond)},
    {bitsPerSecond, UnitIdentifierSet{bitsPerSecond} | run(kilobitsPerSecond, yottabitsPerSecond) |
                        run(kibibitsPerSecond, yobibitsPerSecond)},
    {currencyBTC, {currencySatoshi}},
    {currencyUSD, {currencyDollarCents}},
    {currencyGBP, {currencyBritishPence}},
    {currencyEUR, {currencyEuroCents}},
});

constexpr std::array<UnitIdentifier, kUnitIdentifierCount> makeMothers() {
  std::array<UnitIdentifier, kUnitIdentifierCount> mothers{};
  for (std::size_t i = 0; i < mothers.size(); ++i) mothers[i] = static_cast<UnitIdentifier>(i);
  for (const Family& family : kFamilies) {
    family.members.forEach([&](UnitIdentifier member) { mothers[static_cast<std::size_t>(member)] = family.mother; });
  }
  return mothers;
}

constexpr auto kMothers = makeMothers();

}  // namespace

UnitIdentifier motherUnitIdentifierOf(UnitIdentifier identifier) {
  return kMothers[static_cast<std::size_t>(identifier)];
}

std::optional<Calendar::Component> calendarUnitOf(UnitIdentifier identifier) {
  switch (identifier) {
    case seconds:
      return Calendar::Component::second;
    case minutes:
      return Calendar::Component::minute;
    case hours:
      return Calendar::Component::hour;
    case days:
    case nights:
      return Calendar::Component::day;
    case weekdays:
      return Calendar::Component::weekday;
    case weeks:
      return Calendar::Component::weekOfYear;
    case months:
      return Calendar::Component::month;
    case years:
      return Calendar::Component::year;
    case nanoseconds:
      return Calendar::Component::nanosecond;
    default:
      return std::nullopt;  // one of 500 units that count no part of a date
  }
}

std::optional<UnitIdentifier> unitIdentifierFor(Calendar::Component component) {
  switch (component) {
    case Calendar::Component::year:
      return years;
    case Calendar::Component::month:
      return months;
    case Calendar::Component::day:
    case Calendar::Component::weekday:
      return days;
    case Calendar::Component::hour:
      return hours;
    case Calendar::Component::minute:
      return minutes;
    case Calendar::Component::second:
      return seconds;
    case Calendar::Component::weekOfMonth:
    case Calendar::Component::weekOfYear:
      return weeks;
    case Calendar::Component::nanosecond:
      return nanoseconds;
    case Calendar::Component::era:
    case Calendar::Component::weekdayOrdinal:
    case Calendar::Component::quarter:
    case Calendar::Component::yearForWeekOfYear:
    case Calendar::Component::calendar:
    case Calendar::Component::timeZone:
      return std::nullopt;
  }
  return std::nullopt;
}

constinit const UnitIdentifierSet zeroDPformattingCurrencies = {
    currencyBIF, currencyXOF,     currencyXAF,       currencyXPF,         currencyCLP,
    currencyKMF, currencyDJF,     currencyGNF,       currencyISK,         currencyJPY,
    currencyPYG, currencyRWF,     currencyKRW,       currencyUGX,         currencyVUV,
    currencyVND, currencySatoshi, currencyEuroCents, currencyDollarCents, currencyBritishPence,
};

constinit const UnitIdentifierSet threeDPformattingCurrencies = {currencyBHD};

constinit const UnitIdentifierSet cryptoCurrencies = {
    currencyADA,   currencyBCH,  currencyBNB, currencyBSV,  currencyBTC, currencyDASH, currencyDOGE, currencyEOS,
    currencyETC,   currencyETH,  currencyLTC, currencyNEO,  currencySOL, currencyAVAX, currencyLUNA, currencyDOT,
    currencyMATIC, currencySHIB, currencyTRX, currencyUSDT, currencyXLM, currencyXMR,  currencyXRP,  currencySatoshi,
};

}  // namespace tavrine
