#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Currencies/MockCurrencyRateProvider.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineContentCache.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Units/UnitList.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "Tests/Customization/CustomizationTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;
using testing::wordsOf;

using testing::environmentIn;
using enum UnitIdentifier;

Decimal decimal(std::string_view text) { return Decimal::parse(text).value(); }

/// What the word means; `undefined` for a word that is no unit.
UnitIdentifier meaningOf(const UnitList& units, std::string_view word) {
  const auto unit = units.quickLookup(word);
  return unit ? unit->identifier() : undefined;
}

class UnitListTest : public ::testing::Test {
 protected:
  ScopedEnvironment english_{environmentIn("en_US")};
  EngineCustomization plain_{Locale("en_US")};
};

TEST_F(UnitListTest, KnowsWordsAsPeopleWriteThem) {
  const UnitList units(plain_);
  struct Case {
    std::string_view word;
    UnitIdentifier want;
  };
  for (const auto& [word, want] : rowsOf<Case>("Customization/UnitListTests", "KnowsWordsAsPeopleWriteThem"))
    EXPECT_EQ(toString(meaningOf(units, word)), toString(want)) << word;
}

TEST_F(UnitListTest, KnowsEveryWordOfEveryUnit) {
  const UnitList units(plain_);
  // The kitchen measures of other countries share the symbols of the customary ones.
  const std::set<std::string_view> sharedSymbols = {"pt", "tsp", "tbsp", "fl oz", "qt", "gal", "g", "MPG"};
  UnitIdentifierSet reached;
  for (const UnitDescription& description : *StaticResouces::localizedUnitDescriptions()) {
    const UnitIdentifier own = description.associatedUnitIdentifier;
    std::vector<std::string> words = description.aliases;
    words.push_back(description.symbol);
    for (const std::string& word : words) {
      const UnitIdentifier meaning = meaningOf(units, word);
      if (meaning == own) {
        reached.insert(own);
      } else {
        EXPECT_TRUE(sharedSymbols.contains(word)) << word << " is " << toString(meaning) << ", not " << toString(own);
      }
    }
    EXPECT_EQ(description.symbol, unitOf(own).symbol()) << toString(own);
  }
  int units320 = 0;
  for (std::size_t i = 0; i < kUnitIdentifierCount; ++i) {
    const auto identifier = static_cast<UnitIdentifier>(i);
    if (identifier == undefined || unitTypeOf(identifier) == UnitType::currency) continue;
    ++units320;
    EXPECT_TRUE(reached.contains(identifier)) << toString(identifier);
  }
  EXPECT_EQ(units320, 320);
}

TEST_F(UnitListTest, SharesTheBuiltInUnits) {
  const UnitList units(plain_);
  for (const UnitDescription& description : *StaticResouces::localizedUnitDescriptions()) {
    const UnitIdentifier identifier = description.associatedUnitIdentifier;
    const bool isMade = identifier == em || identifier == rem || unitTypeOf(identifier) == UnitType::temperature;
    const auto unit = units.preparedUnitFor(std::make_shared<const UnitDescription>(description));
    ASSERT_TRUE(unit.has_value()) << description.symbol;
    EXPECT_EQ(unit->isSameObjectAs(unitOf(identifier)), !isMade) << toString(identifier);
    if (unitTypeOf(identifier) == UnitType::temperature) {
      EXPECT_EQ(*unit, unitOf(identifier));
    }
  }
}

TEST_F(UnitListTest, LeavesOrdinaryWordsAlone) {
  EngineCustomization withMoney = plain_;
  withMoney.setCurrencySet(CurrencySet::realWorldPlusCrypto);
  const UnitList units(withMoney);
  for (const std::string_view word : wordsOf("Customization/UnitListTests", "LeavesOrdinaryWordsAlone")) {
    EXPECT_EQ(toString(meaningOf(units, word)), toString(undefined)) << word;
  }
}

TEST_F(UnitListTest, FollowsTheSystemOfTheKitchen) {
  struct Case {
    UnitMeasurementSystem system;
    std::string_view locale;
    std::string_view word;
    UnitIdentifier want;
  };
  using enum UnitMeasurementSystem;
  for (const Case& c : rowsOf<Case>("Customization/UnitListTests", "FollowsTheSystemOfTheKitchen")) {
    EngineCustomization customization{Locale(c.locale)};
    customization.setUnitSystem(c.system);
    EXPECT_EQ(toString(meaningOf(UnitList(customization), c.word)), toString(c.want)) << c.locale << " " << c.word;
  }
}

TEST_F(UnitListTest, KnowsMoneyByCodeWordAndSign) {
  EngineCustomization real = plain_;
  real.setCurrencySet(CurrencySet::realWorldPlusCrypto);
  EngineCustomization canadian = real.convertTo(Locale("en_CA"));
  EngineCustomization ownSigns = real;
  ownSigns.setCurrencySymbolSettings(
      CurrencySymbolSettings::manualWith({{"EUR", "E", UnitSymbolReplacementPosition::before},
                                          {"TOP", "Pa'", UnitSymbolReplacementPosition::before},
                                          {"KGS", "som", UnitSymbolReplacementPosition::after},
                                          {"DOP", "RD$", UnitSymbolReplacementPosition::before}}));
  struct Case {
    const EngineCustomization* customization;
    std::string_view word;
    UnitIdentifier want;
  };
  const std::vector<Case> cases = {
      {&real, "$", currencyUSD},
      {&real, "US$", currencyUSD},
      {&real, "A$", currencyAUD},
      {&real, "€", currencyEUR},
      {&real, "¥", currencyJPY},
      {&real, "R$", currencyBRL},
      {&real, "kr", currencyDKK},
      {&real, "euros", currencyEUR},
      {&real, "Chf", currencyCHF},
      {&real, "cents", currencyDollarCents},
      {&real, "pound", pounds},
      {&canadian, "$", currencyCAD},
      {&canadian, "C$", currencyCAD},
      {&canadian, "US$", currencyUSD},
      {&ownSigns, "E", currencyEUR},
      // Codes that in lower case are no word, or kilograms.
      {&ownSigns, "Pa'", currencyTOP},
      {&ownSigns, "som", currencyKGS},
      // Without real money there are four currencies to test with.
      {&plain_, "$", currencyUSD},
      {&plain_, "EUR", currencyEUR},
      {&plain_, "euros", currencyEUR},
      {&plain_, "aud", currencyAUD},
      {&plain_, "GBP", currencyGBP},
      {&plain_, "chf", undefined},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(toString(meaningOf(UnitList(*c.customization), c.word)), toString(c.want)) << c.word;
  }
  EXPECT_TRUE(UnitList(real).isCurrencySubstitution("$"));
  EXPECT_FALSE(UnitList(real).isCurrencySubstitution("usd"));
  EXPECT_TRUE(UnitList(ownSigns).beginsMultiWordUnit("RD"));
}

TEST_F(UnitListTest, HasTheRatesOfTheMoment) {
  const auto provider = std::make_shared<MockCurrencyRateProvider>(StringMap<Decimal>{{"GBP", decimal("0.5")}});
  EngineCustomization customization = plain_;
  customization.setCurrencyRateProvider(provider);
  const UnitList units(customization);
  EXPECT_EQ(units.quickLookup("gbp")->coefficient(), Decimal(2));
  provider->setRatesOfNextUpdate({{"GBP", decimal("0.8")}});
  ASSERT_TRUE(provider->updateRates({}));
  EXPECT_EQ(units.quickLookup("gbp")->coefficient(), decimal("1.25"));
}

TEST_F(UnitListTest, MakesTheUnitsOfACustomization) {
  EngineCustomization customization = plain_;
  customization.setBaseFontSize(Decimal(10));
  customization.setCustomUnits({{.name = "barrel", .definition = Decimal(159), .equivalentUnit = liters},
                                {.name = "hot", .definition = Decimal(2), .equivalentUnit = celsius},
                                {.name = "apple", .definition = Decimal(1), .equivalentUnit = undefined},
                                {.name = "Smoot", .definition = decimal("1.7"), .equivalentUnit = meters},
                                {.name = "head count", .definition = Decimal(1), .equivalentUnit = undefined},
                                // One of the user's own wins over the vocabulary.
                                {.name = "stone", .definition = Decimal(5), .equivalentUnit = kilograms}});
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.disabledUnits = UnitIdentifierSet{feet}; });
  const UnitList units(customization);
  struct Case {
    std::string_view word;
    UnitIdentifier identifier;
    Decimal coefficient;
    Decimal constant;
    bool isCustom;
  };
  const Decimal liter = unitOf(liters).coefficient();
  const std::vector<Case> cases = {
      {"barrel", liters, liter * Decimal(159), Decimal(), true},
      {"hot", celsius, Decimal(2), decimal("273.15"), true},
      {"apple", undefined, Decimal(), Decimal(), true},
      {"Smoot", meters, decimal("1.7"), Decimal(), true},
      {"stone", kilograms, Decimal(5), Decimal(), true},
      {"stones", stones, unitOf(stones).coefficient(), Decimal(), false},
      // Fonts are measured in pixels, three quarters of a point each.
      {"em", em, unitOf(point).coefficient() * decimal("7.5"), Decimal(), false},
  };
  for (const Case& c : cases) {
    const auto unit = units.quickLookup(c.word);
    ASSERT_TRUE(unit.has_value()) << c.word;
    EXPECT_EQ(unit->symbol(), c.isCustom || c.identifier == em ? c.word : unitOf(c.identifier).symbol());
    EXPECT_EQ(unit->identifier(), c.identifier) << c.word;
    EXPECT_EQ(unit->coefficient(), c.coefficient) << c.word;
    EXPECT_EQ(unit->constant(), c.constant) << c.word;
    EXPECT_EQ(unit->unitDescription() != nullptr && unit->unitDescription()->representsCustomUnit, c.isCustom)
        << c.word;
  }
  EXPECT_FALSE(units.quickLookup("ft").has_value());
  EXPECT_FALSE(units.quickLookup("feet").has_value());
  // A name is found as it is spelled: it stands in no lower case.
  EXPECT_FALSE(units.quickLookup("smoot").has_value());
  EXPECT_TRUE(units.beginsMultiWordUnit("head"));
}

TEST_F(UnitListTest, DefinesCustomUnitsInTermsOfAnother) {
  struct Case {
    CustomUnit unit;
    UnitType type;
    std::string_view coefficient;
    std::string_view constant;
  };
  const std::vector<Case> cases = {
      {{.name = "smoot", .definition = decimal("1.7"), .equivalentUnit = kilometers}, UnitType::length, "1700", "0"},
      {{.name = "apple", .definition = Decimal(3), .equivalentUnit = undefined}, UnitType::other, "0", "0"},
      {{.name = "hot", .definition = Decimal(2), .equivalentUnit = celsius}, UnitType::temperature, "548.3", "273.15"},
  };
  for (const Case& c : cases) {
    const TCUnit unit = c.unit.unitValueDefinedInTermsOf(unitOf(c.unit.equivalentUnit));
    EXPECT_EQ(unit.symbol(), c.unit.name);
    EXPECT_EQ(unit.unitType(), c.type) << c.unit.name;
    EXPECT_EQ(unit.coefficient(), decimal(c.coefficient)) << c.unit.name;
    EXPECT_EQ(unit.constant(), decimal(c.constant)) << c.unit.name;
    ASSERT_NE(unit.unitDescription(), nullptr);
    EXPECT_TRUE(unit.unitDescription()->representsCustomUnit);
  }
}

TEST_F(UnitListTest, TellsWhereNamesOfSeveralLexemesBegin) {
  const UnitList units(plain_);
  for (const std::string_view word : {"us", "US", "nautical", "Square", "km", "L", "m", "foot", "cubic"}) {
    EXPECT_TRUE(units.beginsMultiWordUnit(word)) << word;
  }
  for (const std::string_view word : {"gallon", "gallons", "hour", "", "the"}) {
    EXPECT_FALSE(units.beginsMultiWordUnit(word)) << word;
  }
  EXPECT_EQ(units.longestUnitNameFor(kilometersPerHour), "kilometers per hour");
  EXPECT_EQ(units.longestUnitNameFor(coulombs), "coulombs");
  EXPECT_EQ(units.longestUnitNameFor(currencyCHF), std::nullopt);
  EXPECT_EQ(units.symbolFor(miles), "mi");
  for (const UnitDescription& description : *StaticResouces::localizedUnitDescriptions()) {
    EXPECT_TRUE(units.longestUnitNameFor(description.associatedUnitIdentifier)) << description.symbol;
  }
}

TEST_F(UnitListTest, ReadsShorthandsOfTimeInLinesAboutTheFuture) {
  EngineCustomization future = plain_;
  future.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.seeksFutureDate = true; });
  EXPECT_EQ(meaningOf(UnitList(future), "m"), minutes);
  EXPECT_EQ(meaningOf(UnitList(future), "w"), weeks);
  EXPECT_EQ(meaningOf(UnitList(future), "km"), kilometers);
}

TEST_F(UnitListTest, ReadsSpanishWithoutAccents) {
  const std::vector<CustomUnit> pinch = {{.name = "puñado", .definition = Decimal(30), .equivalentUnit = grams}};
  EngineCustomization spanish{Locale("es_MX")};
  spanish.setCustomUnits(pinch);
  EXPECT_EQ(meaningOf(UnitList(spanish), "punado"), grams);
  plain_.setCustomUnits(pinch);
  EXPECT_EQ(meaningOf(UnitList(plain_), "punado"), undefined);
  EXPECT_EQ(meaningOf(UnitList(plain_), "puñado"), grams);
}

TEST_F(UnitListTest, IsSharedAndExtendedBetweenContents) {
  EngineContentCache cache;
  const auto plain = cache.contentFor(plain_);
  EngineCustomization octal = plain_;
  octal.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.octal = !flags.octal; });
  EXPECT_TRUE(cache.contentFor(octal)->unitList.sharesWith(plain->unitList));

  cache.contentFor(plain_);
  EngineCustomization withBarrels = plain_;
  withBarrels.setCustomUnits({{.name = "barrel", .definition = Decimal(159), .equivalentUnit = liters}});
  EngineCustomization firstBarrels = withBarrels;
  firstBarrels.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.octal = !flags.octal; });
  // On top of a list without custom units, and on top of one with others.
  for (const int size : {159, 160}) {
    withBarrels.setCustomUnits({{.name = "barrel", .definition = Decimal(size), .equivalentUnit = liters}});
    const auto extended = cache.contentFor(withBarrels);
    const auto barrel = extended->unitList->quickLookup("barrel");
    ASSERT_TRUE(barrel.has_value());
    EXPECT_EQ(barrel->coefficient(), unitOf(liters).coefficient() * Decimal(size));
    EXPECT_EQ(meaningOf(*extended->unitList, "km"), kilometers);
  }
  EXPECT_EQ(meaningOf(*plain->unitList, "barrel"), undefined);
}

TEST(UnitWords, BeginWithNoSignOfSums) {
  // Sums without a word are reckoned on that.
  const EngineContent content(EngineCustomization::usStandard());
  const auto isSign = [](std::string_view word) {
    return std::string_view("+-*/^=()").find(word[0]) != std::string::npos;
  };
  content.unitList->cache().forEachQuery(
      [&](std::string_view word, const auto&) { EXPECT_FALSE(word.empty() || isSign(word)) << word; });
  for (const std::string& word : content.unitList->firstWordsInMultiWordUnitsCache())
    EXPECT_FALSE(isSign(word)) << word;
}

TEST(UnitResources, SpoilTheFileWithOneBadEntry) {
  const auto good = StaticResouces::unitDescriptionsFrom(
      R"([{"symbol": "dz", "aliases": ["dozen"], "identifier": "meters", "equivalence": 12.5}])");
  ASSERT_TRUE(good.content.has_value()) << good.error;
  ASSERT_EQ(good.content->size(), 1u);
  EXPECT_EQ(good.content->front().equivalence, decimal("12.5"));
  EXPECT_FALSE(good.content->front().associatedUnit().has_value());
  for (const std::string_view bad : {
           R"([{"symbol": "m", "aliases": [], "identifier": "metres"}])",
           R"([{"symbol": "m", "aliases": [1], "identifier": "meters"}])",
           R"([{"aliases": [], "identifier": "meters"}])",
           R"([{"symbol": "m", "aliases": [], "identifier": "meters", "equivalence": "2"}])",
           R"([{"symbol": "m", "aliases": [], "identifier": "meters"}, 5])",
           R"({})",
           R"([)",
       }) {
    const auto decoded = StaticResouces::unitDescriptionsFrom(bad);
    EXPECT_FALSE(decoded.content.has_value()) << bad;
    EXPECT_FALSE(decoded.error.empty()) << bad;
  }
  EXPECT_FALSE(StaticResouces::unitShorthandsFrom(R"([{"aliases": ["m"]}])").content.has_value());
}

}  // namespace
}  // namespace tavrine
