#include "TavrineCore/Customization/Engine/EngineContent.h"

#include <utility>

#include "Foundation/CalendarSymbols.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Engine/PerCurrentLocale.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/FunctionVendor.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"

namespace tavrine {

Lazy<PlaceList> placeListWith(const std::vector<Place>& customPlaces) {
  return Lazy<PlaceList>([customPlaces] { return PlaceList(PlaceList::standard(), customPlaces); });
}

namespace {

StringMap<Fixture> additionalFixtures() {
  LocalizableFixtureSet fixtures = StaticResouces::localizedFixtures();
  fixtures.layOver(StaticResouces::localizedShorthandFixtures());
  return fixtures.fixtures();
}

DateWordsList dateWordsFor(const Locale& locale) {
  return DateWordsList(Calendar(preferredCalendarFor(locale), locale, TimeZone::current()));
}

bool sameProviders(const EngineCustomization& left, const EngineCustomization& right) {
  return left.currencyRateProvider() == right.currencyRateProvider() &&
         left.weatherDataProvider() == right.weatherDataProvider() &&
         left.placeDataProvider() == right.placeDataProvider();
}

}  // namespace

EngineContent::EngineContent(const EngineCustomization& customization)
    : functionList([customization] {
        return FunctionList(FunctionVendor::prototypesFor(customization),
                            {.variants = true, .placesOfProvider = FunctionVendor::looksUpPlaces(customization)});
      }),
      customFunctionsList([customization] { return CustomFunctionsList(customization.customFunctions()); }),
      traditionalFunctionList([customization] { return TraditionalFunctionList(customization.javaScriptFunctions()); }),
      dateWordsList([locale = customization.locale()] { return dateWordsFor(locale); }),
      // In words, people count in the language of their machine, whatever the sheet is set to.
      numberWordsList([] { return NumberWordsList(Locale::current()); }),
      fixturesList([dateWords = dateWordsList, numberWords = numberWordsList,
                    fixtures = Lazy<StringMap<Fixture>>(additionalFixtures)] {
        return FixturesList(fixtures, dateWords, numberWords);
      }),
      unitList([customization] { return UnitList(customization); }),
      placeList(placeListWith(customization.customPlaces())),
      specialDayList([] { return SpecialDayList(StaticResouces::localizedSpecialDays()); }),
      localeMetadata([locale = customization.locale()] { return LocaleMetadata(locale); }) {}

std::shared_ptr<const EngineContent> EngineContent::basic() {
  static PerCurrentLocale<std::shared_ptr<const EngineContent>> contents;
  return contents.get(
      [](const Locale&) { return std::make_shared<const EngineContent>(EngineCustomization::basic()); });
}

bool reuseUnitList(const EngineCustomization& newCustomization, const EngineCustomization& oldCustomization) {
  const EngineCustomization& n = newCustomization;
  const EngineCustomization& o = oldCustomization;
  const EngineFeatureFlags& newFlags = n.featureFlags();
  const EngineFeatureFlags& oldFlags = o.featureFlags();
  return n.locale() == o.locale() && n.currencyRateProvider() == o.currencyRateProvider() &&
         n.baseFontSize() == o.baseFontSize() && n.currencySet() == o.currencySet() &&
         n.unitSystem() == o.unitSystem() && n.customUnits() == o.customUnits() &&
         n.currencySymbolSettings() == o.currencySymbolSettings() && newFlags.units == oldFlags.units &&
         newFlags.disabledUnits == oldFlags.disabledUnits;
}

bool reuseUnitListAndAddCustomFunctions(const EngineCustomization& newCustomization,
                                        const EngineCustomization& oldCustomization) {
  const EngineCustomization& n = newCustomization;
  const EngineCustomization& o = oldCustomization;
  return n.locale() == o.locale() && o.customUnits().empty() && !n.customUnits().empty() &&
         n.currencySet() == o.currencySet() && n.currencySymbolSettings() == o.currencySymbolSettings() &&
         n.featureFlags() == o.featureFlags() && n.unitSystem() == o.unitSystem();
}

ContentReuse contentReuse(const EngineCustomization& newCustomization, const EngineCustomization& oldCustomization) {
  const EngineCustomization& n = newCustomization;
  const EngineCustomization& o = oldCustomization;
  ContentReuse result;
  if (n == o) return result;
  if (n.locale() != o.locale() || n.featureFlags().seeksFutureDate != o.featureFlags().seeksFutureDate ||
      n.featureFlags().disabledFunctions != o.featureFlags().disabledFunctions ||
      n.featureFlags().dynamicPlaceLookup != o.featureFlags().dynamicPlaceLookup || !sameProviders(n, o) ||
      n.javaScriptFunctions() != o.javaScriptFunctions()) {
    result.fromScratch = true;
    return result;
  }
  if (!reuseUnitList(n, o)) {
    result.unitList = reuseUnitListAndAddCustomFunctions(n, o) ? ListReuse::extend : ListReuse::rebuild;
  }
  if (n.customPlaces() != o.customPlaces()) result.placeList = ListReuse::extend;
  if (n.customFunctions() != o.customFunctions()) result.customFunctionsList = ListReuse::rebuild;
  return result;
}

}  // namespace tavrine
