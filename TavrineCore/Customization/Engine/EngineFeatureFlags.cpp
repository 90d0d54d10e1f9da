#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"

#include "Foundation/Hashing.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

namespace {

constexpr FunctionIdentifierSet functionsUnknownToTavrine3() {
  using enum FunctionIdentifier;
  return {dayOfYear,
          dayNumberOnDate,
          dollarWorthAdjustedForInflation,
          dollarWorthFromTodayAdjustedForInflation,
          dollarWorthToTodayAdjustedForInflation,
          predictedDollarWorthGivenInflation,
          salesTaxIn,
          isWhatPercentWith,
          permutation,
          combination,
          reversedPermutation,
          reversedCombination,
          tyreSpeed,
          screenDensity,
          pixelsInLengthAtPPI,
          isPrime,
          clamp,
          exponentialDecay,
          exponentialGrowth,
          growthOverExponentialChange,
          timeRequiredForExponentialChange,
          timeRequiredForLinearChange,
          longitudeOfPlace,
          latitudeOfPlace,
          gpsCoordinatesOfPlace,
          distanceBetweenPlaces};
}

constexpr UnitIdentifierSet unitsUnknownToTavrine3() {
  using enum UnitIdentifier;
  return {ppi,
          molar,
          moles,
          millimoles,
          micromoles,
          nanomoles,
          milligramsPerDeciliter,
          newtons,
          kilonewtons,
          meganewtons,
          giganewtons,
          millinewtons,
          micronewtons,
          nanonewtons,
          poundals,
          poundsOfForce,
          ouncesOfForce,
          newtonMeters,
          poundFeet,
          poundInches,
          ounceInches,
          pascals,
          hectopascals,
          kilopascals,
          megapascals,
          gigapascals,
          atmospheres,
          bars,
          millibars,
          poundsForcePerSquareInch,
          kilopoundsForcePerSquareInch,
          megapoundsForcePerSquareInch,
          revolutionsPerSecond,
          revolutionsPerMinute,
          radiansPerSecond,
          siemens,
          kilosiemens,
          megasiemens,
          millisiemens,
          microsiemens,
          henrys,
          kilohenrys,
          megahenrys,
          millihenrys,
          microhenrys,
          farads,
          kilofarads,
          megafarads,
          millifarads,
          microfarads,
          webers,
          kilowebers,
          megawebers,
          milliwebers,
          microwebers,
          teslas,
          kiloteslas,
          megateslas,
          milliteslas,
          microteslas,
          coulombs,
          megaampereHours,
          kiloampereHours,
          ampereHours,
          milliampereHours,
          microampereHours,
          megaamperes,
          kiloamperes,
          amperes,
          milliamperes,
          microamperes,
          megavolts,
          kilovolts,
          volts,
          millivolts,
          microvolts,
          megaohms,
          kiloohms,
          ohms,
          milliohms,
          microohms,
          arcMinutes,
          arcSeconds,
          litersPerKilometer,
          litersPer100Kilometers,
          milesPerImperialGallon,
          milesPerGallon,
          gramsPerLiter,
          kilometersPerLiter,
          metersPerSecondSquared,
          feetPerSecondSquared,
          gravity,
          rem};
}

}  // namespace

const FunctionIdentifierSet& EngineFeatureFlags::functionIdentifiersDisabledInTavrine3() {
  static constexpr FunctionIdentifierSet set = functionsUnknownToTavrine3();
  static_assert(set.size() == 26);
  return set;
}

const UnitIdentifierSet& EngineFeatureFlags::unitIdentifiersDisabledInTavrine3() {
  static constexpr UnitIdentifierSet set = unitsUnknownToTavrine3();
  static_assert(set.size() == 93);
  return set;
}

void EngineFeatureFlags::limitToLegacyFeatureSet() {
  octal = false;
  phiAndTau = false;
  bitwiseOperators = false;
  musicalConversions = false;
  GPSAndDMS = false;
  specialDays = false;
  dateTemplateFormatStrings = false;
  shortFormUSTimezones = false;
  disabledFunctions = functionIdentifiersDisabledInTavrine3();
  disabledUnits = unitIdentifiersDisabledInTavrine3();
}

std::size_t EngineFeatureFlags::hash() const {
  std::size_t bits = 0;
  const AdditionalOptions& o = additionalOptions;
  const CommentingOptions& c = commentingOptions;
  for (const bool flag : {units,
                          calendarCalculations,
                          wordFunctions,
                          variableDeclarations,
                          functionsRequireParentheses,
                          seeksFutureDate,
                          inAmbiguityPreferSomethingToNothing,
                          preserveAllParsedTokenTypes,
                          subexpressions,
                          bitwiseOperators,
                          hexAndBinary,
                          octal,
                          phiAndTau,
                          cookingSubstances,
                          musicalConversions,
                          GPSAndDMS,
                          specialDays,
                          dateTemplateFormatStrings,
                          shortFormUSTimezones,
                          dynamicPlaceLookup,
                          o.includeVariableReferencingPreviousLine,
                          o.includeVariablesReferencingLineNumbers,
                          o.rawStringVariableDefinitions,
                          o.unitDeclarations,
                          o.remoteQueries,
                          o.tripPlanning,
                          o.generateTagVariablesFromLabels,
                          c.bracketComments,
                          c.quotationMarkComments,
                          c.slashComments,
                          c.labelComments,
                          c.hashTags}) {
    bits = bits << 1 | (flag ? 1u : 0u);
  }
  return hashOf(bits, static_cast<int>(misplacedThousandsSeparatorBehavior),
                static_cast<int>(timezoneCodeAutocorrectionBehavior),
                disabledFunctions ? disabledFunctions->hash() : std::size_t{1},
                disabledUnits ? disabledUnits->hash() : std::size_t{1});
}

}  // namespace tavrine
