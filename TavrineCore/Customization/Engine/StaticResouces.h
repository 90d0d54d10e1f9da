#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"
#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"

namespace tavrine {

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

  /// The decoder of both files of fixtures: {"fixtures": {key: [words]}}. Keys that nobody knows are passed over.
  static DecodedResource<LocalizableFixtureSet> localizedFixtureSetFrom(std::string_view bytes);
  /// An array of {"symbol", "aliases", "identifier", "equivalence"?}. One entry that is no good spoils the file.
  static DecodedResource<std::vector<UnitDescription>> unitDescriptionsFrom(std::string_view bytes);
  /// An array of {"aliases", "identifier"}.
  static DecodedResource<std::vector<UnitShorthand>> unitShorthandsFrom(std::string_view bytes);
};

}  // namespace tavrine
