#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Foundation/Calendar.h"
#include "TavrineCore/Customization/Currencies/CurrencyRateProvider.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Functions/TraditionalFunctionList.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Holiday.h"
#include "Tests/Customization/CustomizationTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using testing::environmentIn;

class NoRates : public CurrencyRateProvider {
 public:
  std::optional<Decimal> rateFor(const CurrencyRateRequest&) override { return std::nullopt; }
};

class NoPlaces : public PlaceDataProvider {
 public:
  std::optional<PlaceData> placeDataFor(const std::string&, std::stop_token) override { return std::nullopt; }
};

CustomFunction customFunction(const std::string& phrase) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = phrase;
  return CustomFunction(fields);
}

Place placeNamed(const std::string& name) {
  Place place{.name = name, .aliases = std::nullopt, .timeZone = TimeZone::current(), .type = Place::Unspecified{}};
  return place;
}

struct Change {
  std::string_view name;
  std::function<void(EngineCustomization&)> apply;
};

// One change of each field that decides what a line means.
const std::vector<Change>& meaningfulChanges() {
  static const auto rates = std::make_shared<NoRates>();
  static const auto places = std::make_shared<NoPlaces>();
  static const std::vector<CustomFunction> functions = {customFunction("double __decimal")};
  static const std::vector<Change> changes = {
      {"locale", [](auto& c) { c = c.convertTo(Locale("fr_FR")); }},
      {"customUnits", [](auto& c) { c.setCustomUnits({{.name = "barrel", .definition = Decimal(159)}}); }},
      {"customUnits, other definition",
       [](auto& c) { c.setCustomUnits({{.name = "barrel", .definition = Decimal(160)}}); }},
      {"currencyRateProvider", [](auto& c) { c.setCurrencyRateProvider(rates); }},
      {"placeDataProvider", [](auto& c) { c.setPlaceDataProvider(places); }},
      {"currencySymbolSettings",
       [](auto& c) {
         c.setCurrencySymbolSettings(
             CurrencySymbolSettings::manualWith({{.originalSymbol = "CAD", .replacementSymbol = "$"}}));
       }},
      {"currencySymbolSettings, none",
       [](auto& c) { c.setCurrencySymbolSettings(CurrencySymbolSettings::manualWith({})); }},
      {"customPlaces", [](auto& c) { c.setCustomPlaces({placeNamed("Home")}); }},
      {"customFunctions", [](auto& c) { c.setCustomFunctions(functions); }},
      {"javaScriptFunctions", [](auto& c) { c.setJavaScriptFunctions({{.name = "twice"}}); }},
      {"holidays", [](auto& c) { c.setHolidays({{.day = 1, .month = 5, .year = 2024}}); }},
      {"unitSystem", [](auto& c) { c.setUnitSystem(UnitMeasurementSystem::metric); }},
      {"baseFontSize", [](auto& c) { c.setBaseFontSize(Decimal(12)); }},
      {"featureFlags", [](auto& c) { c.changeFeatureFlags([](auto& flags) { flags.octal = false; }); }},
      {"featureFlags, an option",
       [](auto& c) { c.changeFeatureFlags([](auto& flags) { flags.additionalOptions.tripPlanning = true; }); }},
      {"featureFlags, no unit disabled",
       [](auto& c) { c.changeFeatureFlags([](auto& flags) { flags.disabledUnits.emplace(); }); }},
      {"currencySet", [](auto& c) { c.setCurrencySet(CurrencySet::forTesting); }},
  };
  return changes;
}

TEST(Customization, EachFieldDecidesOverEquality) {
  const EngineCustomization base(Locale("en_GB"));
  for (const Change& change : meaningfulChanges()) {
    EngineCustomization once = base;
    change.apply(once);
    EXPECT_FALSE(once == base) << change.name;

    EngineCustomization again = base;
    change.apply(again);
    EXPECT_TRUE(once == again) << change.name;
    EXPECT_EQ(once.hash(), again.hash()) << change.name;

    for (const Change& other : meaningfulChanges()) {
      if (&other == &change) continue;
      EngineCustomization different = base;
      other.apply(different);
      EXPECT_FALSE(once == different) << change.name << " / " << other.name;
    }
  }
  EXPECT_TRUE(base == EngineCustomization(Locale("en_GB"))) << "the original has changed with its copies";
}

TEST(Customization, CalendarTakesNoPartInEquality) {
  const Calendar hebrew(Calendar::Identifier::hebrew);
  const EngineCustomization own(Locale("en_US"), hebrew);
  EXPECT_TRUE(own == EngineCustomization(Locale("en_US")));
  EXPECT_EQ(own.hash(), EngineCustomization(Locale("en_US")).hash());
  EXPECT_EQ(own.calendar().identifier(), Calendar::Identifier::hebrew);
}

TEST(Customization, CalendarFollowsTheLocale) {
  EXPECT_EQ(EngineCustomization(Locale("de_DE")).calendar().identifier(), Calendar::Identifier::gregorian);
  EXPECT_EQ(EngineCustomization(Locale("de_DE")).calendar().locale(), Locale("de_DE"));
  EXPECT_EQ(EngineCustomization(Locale("th_TH")).calendar().identifier(), Calendar::Identifier::buddhist);
}

TEST(Customization, NamedOnesFollowTheCurrentLocale) {
  const ScopedEnvironment english(environmentIn("en_US"));
  const EngineCustomization standard = EngineCustomization::standard();
  EXPECT_EQ(standard.currencySet(), CurrencySet::realWorldPlusCrypto);
  EXPECT_FALSE(standard.featureFlags().variableDeclarations);
  EXPECT_TRUE(EngineCustomization::tavrine().featureFlags().variableDeclarations);
  EXPECT_EQ(EngineCustomization::tavrine().currencySet(), CurrencySet::realWorldPlusCrypto);
  EXPECT_EQ(EngineCustomization::basic().currencySet(), CurrencySet::none);
  // One shared value, not merely an equal one.
  EXPECT_EQ(&standard.locale(), &EngineCustomization::standard().locale());
  {
    const ScopedEnvironment german(environmentIn("de_DE"));
    EXPECT_EQ(EngineCustomization::standard().locale(), Locale("de_DE"));
    EXPECT_EQ(EngineCustomization::usStandard().locale(), Locale("en_US"));
    EXPECT_EQ(EngineCustomization::standardWith(Locale("ja_JP")).locale(), Locale("ja_JP"));
  }
  EXPECT_EQ(&standard.locale(), &EngineCustomization::standard().locale());
}

TEST(Customization, ConvertToKeepsAllButLocaleAndCalendar) {
  EngineCustomization english(Locale("en_US"), Calendar(Calendar::Identifier::hebrew));
  english.setUnitSystem(UnitMeasurementSystem::imperial);
  english.setCustomUnits({{.name = "barrel", .definition = Decimal(159)}});

  EXPECT_EQ(english.convertTo(Locale("en_US")).calendar().identifier(), Calendar::Identifier::hebrew);

  const EngineCustomization german = english.convertTo(Locale("de_DE"));
  EXPECT_EQ(german.locale(), Locale("de_DE"));
  EXPECT_EQ(german.calendar().identifier(), Calendar::Identifier::gregorian);
  EXPECT_EQ(german.unitSystem(), UnitMeasurementSystem::imperial);
  EXPECT_EQ(german.customUnits(), english.customUnits());
  EXPECT_EQ(german.debugDescription(), "Customization with de_DE");
}

TEST(Customization, HashCacheIsSharedBetweenThreads) {
  EngineCustomization customization(Locale("en_US"));
  customization.setBaseFontSize(Decimal(12));
  std::vector<std::size_t> hashes(4);
  {
    std::vector<std::jthread> threads;
    for (std::size_t& hash : hashes) {
      threads.emplace_back([&hash, copy = customization] { hash = copy.hash(); });
    }
  }
  for (const std::size_t hash : hashes) EXPECT_EQ(hash, customization.hash());
}

TEST(Customization, KnowsOperatorsAndFunctions) {
  const ScopedEnvironment english(environmentIn("en_US"));
  struct Case {
    std::string_view text;
    bool isOperator, isFunction;
  };
  for (const Case& c : rowsOf<Case>("Customization/CustomizationTests", "KnowsOperatorsAndFunctions")) {
    EXPECT_EQ(EngineCustomization::isOperator(c.text), c.isOperator) << c.text;
    EXPECT_EQ(EngineCustomization::isClassicFunction(c.text), c.isFunction) << c.text;
  }
}

TEST(TraditionalFunctionList, HostFunctionsStandBesideAndInFrontOfTheStandardOnes) {
  const TraditionalFunctionList list({{.name = "double", .aliases = {{"twice", "2x"}}, .implementation = "x * 2"},
                                      {.name = "sin", .aliases = std::nullopt, .implementation = "0"}});
  EXPECT_EQ(list.functionNamed("twice"), list.functionNamed("double"));
  EXPECT_EQ(list.functionNamed("sin")->implementation, "0");
  EXPECT_FALSE(list.functionNamed("cos")->implementation.has_value());
  EXPECT_EQ(list.functionNamed("Cos"), nullptr);
  EXPECT_EQ(list.traditionalFunctions().size(), TraditionalFunctionList::standardFunctionNames.size() + 2);
}

TEST(FeatureFlags, LegacyFeatureSetLeavesTheRestAlone) {
  EngineFeatureFlags flags;
  flags.variableDeclarations = true;
  EXPECT_FALSE(flags.disables(UnitIdentifier::volts));
  flags.limitToLegacyFeatureSet();
  EXPECT_TRUE(flags.variableDeclarations && flags.units && flags.hexAndBinary && flags.cookingSubstances);
  EXPECT_FALSE(flags.octal || flags.phiAndTau || flags.bitwiseOperators || flags.musicalConversions ||
               flags.GPSAndDMS || flags.specialDays || flags.dateTemplateFormatStrings || flags.shortFormUSTimezones);
  EXPECT_TRUE(flags.disables(UnitIdentifier::volts) && flags.disables(FunctionIdentifier::isPrime));
  EXPECT_FALSE(flags.disables(UnitIdentifier::meters) || flags.disables(FunctionIdentifier::halfOf));
}

}  // namespace
}  // namespace tavrine
