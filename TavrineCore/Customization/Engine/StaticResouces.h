#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"
#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.h"
#include "TavrineCore/Customization/Functions/FunctionDescription.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"

namespace tavrine {

class PlaceRows;
class PlaceWords;

/// The data files of the resource bundle, decoded. Each file is read once; a file that is missing or no good is told on
/// the diagnostic output and leaves the engine with fewer words. All calls are serialised, on any thread; the bundle is
/// asked for the localization of the current locale.
class StaticResouces {
 public:
  /// "LocalizedFixtures": the fixed words of the language.
  static LocalizableFixtureSet localizedFixtures();
  /// "LocalizedFixtureShorthands": short forms. A word that is in both files has the meaning that it has here.
  static LocalizableFixtureSet localizedShorthandFixtures();
  /// "CurrencyDescriptions": the words that mean money. Localized words follow the English ones.
  static std::vector<CurrencyDescription> currencyDescriptions();
  /// "DefaultCurrencyRates": what money is worth where no host tells.
  static DefaultCurrencyRates defaultCurrencyRates();
  /// "UnitDescriptions": the words of the units. Never null.
  static std::shared_ptr<const std::vector<UnitDescription>> localizedUnitDescriptions();
  /// "LocalizedUnitShorthands": more words for some of them. Never null.
  static std::shared_ptr<const std::vector<UnitShorthand>> localizedUnitShorthands();
  /// "FunctionDescriptions": the phrases of the built-in functions. Never null.
  static std::shared_ptr<const std::vector<FunctionDescription>> localizedFunctions();

  /// "Cities", "Countries", "States": places as they stand in the files. Never null.
  static std::shared_ptr<const PlaceRows> localizedCities();
  static std::shared_ptr<const PlaceRows> localizedCountries();
  static std::shared_ptr<const PlaceRows> localizedStates();
  /// "Airports", which are the same in every language. Never null.
  static std::shared_ptr<const PlaceRows> airports();
  /// "PlaceWords": which words may name a place of those files.
  static PlaceWords localizedPlaceWords();

  /// "SpecialDays": the days that have names, and these.
  static std::vector<SpecialDay> localizedSpecialDays();
  /// "TimeZoneAbbrieviations": hours ahead of GMT, as text, by lower-case abbreviation.
  static StringMap<std::string> timeZoneAbbreviations();

  /// The decoder of [{"type", "aliases"}]. Types that nobody knows are passed over.
  static DecodedResource<std::vector<SpecialDay>> specialDaysFrom(std::string_view bytes);
  /// The decoder of {abbreviation: hours}.
  static DecodedResource<StringMap<std::string>> timeZoneAbbreviationsFrom(std::string_view bytes);
  /// The decoder of both files of fixtures: {"fixtures": {key: [words]}}. Keys that nobody knows are passed over.
  static DecodedResource<LocalizableFixtureSet> localizedFixtureSetFrom(std::string_view bytes);
  /// An array of {"symbol", "aliases", "identifier", "equivalence"?}. One entry that is no good spoils the file.
  static DecodedResource<std::vector<UnitDescription>> unitDescriptionsFrom(std::string_view bytes);
  /// An array of {"aliases", "identifier"}.
  static DecodedResource<std::vector<UnitShorthand>> unitShorthandsFrom(std::string_view bytes);
  /// An array of {"identifier", "prototypeExpressions"}.
  static DecodedResource<std::vector<FunctionDescription>> functionsFrom(std::string bytes);
};

}  // namespace tavrine
