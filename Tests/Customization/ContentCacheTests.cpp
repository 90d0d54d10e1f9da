#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "TavrineCore/Customization/Currencies/CurrencyRateProvider.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineContentCache.h"
#include "TavrineCore/Customization/Engine/LocaleMetadata.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Holiday.h"
#include "TavrineCore/Utility/Lazy.h"
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

EngineCustomization withFontSize(int size) {
  EngineCustomization result(Locale("en_US"));
  result.setBaseFontSize(Decimal(size));
  return result;
}

EngineCustomization withFunction(const std::string& phrase) {
  EngineCustomization result(Locale("en_US"));
  CustomFunction::Fields fields;
  fields.prototypeExpression = phrase;
  result.setCustomFunctions({CustomFunction(fields)});
  return result;
}

std::vector<CustomUnit> barrels(int liters) {
  return {{.name = "barrel", .definition = Decimal(liters), .equivalentUnit = UnitIdentifier::liters}};
}

TEST(ContentReuse, TellsWhatAChangeLeavesStanding) {
  using enum ListReuse;
  constexpr ContentReuse kNothing{.fromScratch = true};
  const EngineCustomization plain(Locale("en_US"));
  EngineCustomization withBarrels = plain;
  withBarrels.setCustomUnits(barrels(159));
  EngineCustomization withPlaces = plain;
  withPlaces.setCustomPlaces({{.name = "Home", .aliases = std::nullopt, .timeZone = TimeZone::current()}});

  struct Case {
    std::string_view name;
    EngineCustomization from;
    std::function<void(EngineCustomization&)> change;
    ContentReuse want;
  };
  const std::vector<Case> cases = {
      {"nothing", plain, [](auto&) {}, {}},
      // A flag that no list depends on.
      {"octal", plain, [](auto& c) { c.changeFeatureFlags([](auto& f) { f.octal = false; }); }, {}},
      {"holidays", plain, [](auto& c) { c.setHolidays({}); }, {}},
      {"locale", plain, [](auto& c) { c = c.convertTo(Locale("de_DE")); }, kNothing},
      {"seeksFutureDate", plain, [](auto& c) { c.changeFeatureFlags([](auto& f) { f.seeksFutureDate = true; }); },
       kNothing},
      {"disabledFunctions", plain,
       [](auto& c) { c.changeFeatureFlags([](auto& f) { f.disabledFunctions.emplace(); }); }, kNothing},
      {"dynamicPlaceLookup", plain, [](auto& c) { c.changeFeatureFlags([](auto& f) { f.dynamicPlaceLookup = true; }); },
       kNothing},
      {"a provider", plain, [](auto& c) { c.setCurrencyRateProvider(std::make_shared<NoRates>()); }, kNothing},
      {"javaScriptFunctions", plain, [](auto& c) { c.setJavaScriptFunctions({{.name = "twice"}}); }, kNothing},
      {"units off",
       plain,
       [](auto& c) { c.changeFeatureFlags([](auto& f) { f.units = false; }); },
       {.unitList = rebuild}},
      {"disabledUnits",
       plain,
       [](auto& c) { c.changeFeatureFlags([](auto& f) { f.disabledUnits.emplace(); }); },
       {.unitList = rebuild}},
      {"font size", plain, [](auto& c) { c.setBaseFontSize(Decimal(12)); }, {.unitList = rebuild}},
      {"unit system", plain, [](auto& c) { c.setUnitSystem(UnitMeasurementSystem::metric); }, {.unitList = rebuild}},
      {"currencies", plain, [](auto& c) { c.setCurrencySet(CurrencySet::forTesting); }, {.unitList = rebuild}},
      // The first custom units come on top; changed ones don't, since the old ones can't be taken out.
      {"first units", plain, [](auto& c) { c.setCustomUnits(barrels(159)); }, {.unitList = extend}},
      {"other units", withBarrels, [](auto& c) { c.setCustomUnits(barrels(160)); }, {.unitList = rebuild}},
      {"no units any more", withBarrels, [](auto& c) { c.setCustomUnits({}); }, {.unitList = rebuild}},
      {"first units and a flag",
       plain,
       [](auto& c) {
         c.setCustomUnits(barrels(159));
         c.changeFeatureFlags([](auto& f) { f.octal = false; });
       },
       {.unitList = rebuild}},
      {"no places any more", withPlaces, [](auto& c) { c.setCustomPlaces({}); }, {.placeList = extend}},
      {"functions", plain, [](auto& c) { c = withFunction("double __decimal"); }, {.customFunctionsList = rebuild}},
  };
  for (const Case& c : cases) {
    EngineCustomization changed = c.from;
    c.change(changed);
    EXPECT_TRUE(contentReuse(changed, c.from) == c.want) << c.name;
  }
}

TEST(ContentCache, IsEmptiedWholeAtItsCap) {
  EngineContentCache cache;
  const auto first = cache.contentFor(withFontSize(1));
  for (int size = 2; size <= 30; ++size) cache.contentFor(withFontSize(size));
  EXPECT_EQ(cache.count(), 30u);
  EXPECT_EQ(cache.contentFor(withFontSize(1)), first);

  cache.contentFor(withFontSize(31));
  EXPECT_EQ(cache.count(), 1u);
  EXPECT_NE(cache.contentFor(withFontSize(1)), first);
}

TEST(ContentCache, SharesListsBetweenContents) {
  const ScopedEnvironment english(environmentIn("en_US"));
  EngineContentCache cache;
  const auto plain = cache.contentFor(EngineCustomization(Locale("en_US")));
  const auto larger = cache.contentFor(withFontSize(20));
  EXPECT_TRUE(plain->fixturesList.sharesWith(larger->fixturesList));
  EXPECT_TRUE(plain->fixturesList.sharesWith(EngineContent::basic()->fixturesList));

  const auto german = cache.contentFor(EngineCustomization(Locale("de_DE")));
  EXPECT_FALSE(german->fixturesList.sharesWith(plain->fixturesList));
  EXPECT_NE(german->dateWordsList->dateWordFor("mai"), nullptr);
  EXPECT_EQ(plain->dateWordsList->dateWordFor("mai"), nullptr);

  EngineCustomization withHostFunction(Locale("en_US"));
  withHostFunction.setJavaScriptFunctions({{.name = "twice"}});
  EXPECT_NE(cache.contentFor(withHostFunction)->traditionalFunctionList->functionNamed("twice"), nullptr);
  EXPECT_EQ(plain->traditionalFunctionList->functionNamed("twice"), nullptr);
}

TEST(ContentCache, NeverAnswersForCustomFunctions) {
  EngineContentCache cache;
  const EngineCustomization customization = withFunction("double __decimal");
  const auto once = cache.contentFor(customization);
  const auto again = cache.contentFor(customization);
  EXPECT_NE(once, again);
  EXPECT_TRUE(once->fixturesList.sharesWith(again->fixturesList));
  EXPECT_EQ(cache.count(), 0u) << "contents that are never found push out those that are";
}

TEST(ContentCache, KeepsCurrentLocalesApart) {
  EngineContentCache cache;
  const EngineCustomization customization(Locale("en_US"));
  std::shared_ptr<const EngineContent> english, german;
  {
    const ScopedEnvironment scope(environmentIn("en_US"));
    english = cache.contentFor(customization);
  }
  {
    const ScopedEnvironment scope(environmentIn("de_DE"));
    german = cache.contentFor(customization);
  }
  // Asked outside of either environment: what counts is where the content was made.
  EXPECT_NE(english->numberWordsList->numberWordFor("twenty"), nullptr);
  EXPECT_NE(german->numberWordsList->numberWordFor("zwanzig"), nullptr);
  EXPECT_EQ(german->numberWordsList->numberWordFor("twenty"), nullptr);

  const ScopedEnvironment scope(environmentIn("en_US"));
  EXPECT_EQ(cache.contentFor(customization), english);
}

TEST(ContentCache, ServesThreadsAtOnce) {
  EngineContentCache cache;
  constexpr int kThreads = 6;
  std::vector<std::shared_ptr<const EngineContent>> contents(kThreads);
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) {
      threads.emplace_back([&cache, &contents, i] {
        const ScopedEnvironment scope(environmentIn("en_US"));
        contents[static_cast<std::size_t>(i)] = cache.contentFor(withFontSize(12));
        for (int size = 1; size <= 40; ++size) {
          const auto content = cache.contentFor(withFontSize(size + i % 2));
          EXPECT_EQ(content->fixturesList->find("plus"), Fixture::additionOperator);
          EXPECT_EQ(EngineContentCache::engineContentFor(withFontSize(size))->fixturesList->find("march"),
                    Fixture::dateWordMonthOfYear);
        }
      });
    }
  }
  for (const auto& content : contents) {
    EXPECT_TRUE(content->fixturesList.sharesWith(contents.front()->fixturesList));
    EXPECT_EQ(content->fixturesList.get(), contents.front()->fixturesList.get());
  }
}

TEST(LazyCache, MakesOnceInItsOwnEnvironment) {
  std::atomic<int> made = 0;
  std::optional<Lazy<std::string>> lazy;
  {
    const ScopedEnvironment scope(environmentIn("ja_JP"));
    lazy.emplace([&made] {
      ++made;
      return Locale::current().identifier();
    });
  }
  EXPECT_FALSE(lazy->isBuilt());
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 6; ++i) {
      threads.emplace_back([copy = *lazy] {
        const ScopedEnvironment scope(environmentIn("fr_FR"));
        EXPECT_EQ(*copy, "ja_JP");
      });
    }
  }
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(lazy->isBuilt());
}

TEST(LocaleMetadata, OnlyTheUnitedStatesPutTheMonthFirst) {
  struct Case {
    std::string_view locale;
    bool monthFirst;
  };
  for (const Case& c : rowsOf<Case>("Customization/ContentCacheTests", "OnlyTheUnitedStatesPutTheMonthFirst")) {
    EXPECT_EQ(LocaleMetadata(Locale(c.locale)).usesUnitedStatesDateFormat, c.monthFirst) << c.locale;
  }
}

}  // namespace
}  // namespace tavrine
