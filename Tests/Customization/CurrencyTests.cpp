// The list of currencies: codes, words, what money is worth, and what a dollar of another year was.

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "CustomizationTestSupport.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Currencies/CurrencyAliasesProvider.h"
#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Currencies/InflationList.h"
#include "TavrineCore/Customization/Currencies/MockCurrencyRateProvider.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using enum UnitIdentifier;

StringMap<Decimal> rates(std::string_view code, std::string_view rate) {
  return {{std::string(code), *Decimal::parse(rate)}};
}

TEST(CurrencyListTest, KnowsEveryCurrencyByItsCode) {
  EXPECT_EQ(CurrencyList::realWorldCurrencies.size(), 165u);
  EXPECT_EQ(CurrencyList::cryptoCurrencies.size(), 23u);
  EXPECT_EQ(CurrencyList::fractionalCurrencies.size(), 4u);
  EXPECT_FALSE(CurrencyList::realWorldCurrencies.containsAny(CurrencyList::cryptoCurrencies));
  EXPECT_EQ(CurrencyList::currencyIdentifiersByCode().size(), 192u);

  // What is formatted as crypto money is that and the smallest part of a bitcoin.
  UnitIdentifierSet crypto = CurrencyList::cryptoCurrencies;
  crypto.insert(currencySatoshi);
  EXPECT_EQ(crypto, cryptoCurrencies);

  struct Row {
    std::string_view code;
    std::optional<UnitIdentifier> identifier;
  };
  for (const auto& [code, identifier] : rowsOf<Row>("Customization/CurrencyTests", "KnowsEveryCurrencyByItsCode"))
    EXPECT_EQ(CurrencyList::unitIdentifierFor(code), identifier) << code;
}

TEST(CurrencyListTest, TellsACodeThatLeadsBackToItsCurrency) {
  EXPECT_EQ(CurrencyList::currencyCodeFor(currencyEUR), "EUR");
  EXPECT_EQ(CurrencyList::currencyCodeFor(currencySatoshi), "Satoshi");
  EXPECT_EQ(CurrencyList::currencyCodeFor(currencyDollarCents), std::nullopt);
  EXPECT_EQ(CurrencyList::currencyCodeFor(UnitIdentifier::meters), std::nullopt);
  EXPECT_EQ(CurrencyList::currencyCodeFor(UnitIdentifier::undefined), std::nullopt);
}

TEST(CurrencyListTest, HasARateForEveryCurrency) {
  const CurrencyList& list = CurrencyList::shared();
  EXPECT_EQ(list.defaultCurrencyRates().size(), 188u);
  EXPECT_EQ(list.dateOfDefaultCurrencyRates().size(), std::string_view("2026-01-01").size());
  for (const auto& [code, identifier] : CurrencyList::currencyIdentifiersByCode()) {
    const std::optional<Decimal> worth = list.worthInDollars(identifier, nullptr);
    EXPECT_TRUE(worth && *worth > Decimal()) << code;
  }
  EXPECT_EQ(list.worthInDollars(UnitIdentifier::meters, nullptr), std::nullopt);
}

TEST(CurrencyListTest, TakesTheProvidersRateAndFallsBackToTheDefaultOne) {
  const CurrencyList& list = CurrencyList::shared();
  MockCurrencyRateProvider provider(rates("GBP", "0.8"));
  const std::optional<Decimal> defaultEuro = list.worthInDollars(currencyEUR, nullptr);
  EXPECT_EQ(list.worthInDollars(currencyGBP, &provider), Decimal::parse("1.25"));
  EXPECT_EQ(list.worthInDollars(currencyBritishPence, &provider), Decimal::parse("0.0125"));
  EXPECT_EQ(list.worthInDollars(currencyEUR, &provider), defaultEuro);
  EXPECT_EQ(list.worthInDollars(currencyDollarCents, &provider), Decimal::parse("0.01"));

  // The dollar is the measure, whatever a provider says of it; what is no price counts as unknown.
  for (const std::string_view bad : {"0", "-2"}) {
    MockCurrencyRateProvider other(rates("EUR", bad));
    EXPECT_EQ(list.worthInDollars(currencyEUR, &other), defaultEuro) << bad;
  }
  MockCurrencyRateProvider dollar(rates("USD", "2"));
  EXPECT_EQ(list.worthInDollars(currencyUSD, &dollar), Decimal(1));
}

TEST(CurrencyListTest, SurvivesAProviderThatFails) {
  struct Failing final : CurrencyRateProvider {
    std::optional<Decimal> rateFor(const CurrencyRateRequest&) override { throw std::runtime_error("no network"); }
  } provider;
  const CurrencyList& list = CurrencyList::shared();
  EXPECT_EQ(list.worthInDollars(currencyEUR, &provider), list.worthInDollars(currencyEUR, nullptr));
}

TEST(CurrencyListTest, AsksTheProviderForTheCodeInDollars) {
  struct Listening final : CurrencyRateProvider {
    std::optional<Decimal> rateFor(const CurrencyRateRequest& request) override {
      requests.push_back(request);
      return Decimal(4);
    }
    std::vector<CurrencyRateRequest> requests;
  } provider;
  EXPECT_EQ(CurrencyList::shared().worthInDollars(currencyEuroCents, &provider), Decimal::parse("0.0025"));
  EXPECT_EQ(provider.requests, (std::vector<CurrencyRateRequest>{{currencyEUR, "EUR", "USD", 1}}));
}

TEST(MockCurrencyRateProviderTest, BringsNewRatesWithAnUpdate) {
  MockCurrencyRateProvider provider(rates("EUR", "0.5"));
  const CurrencyRateRequest euro{currencyEUR, "EUR"};
  EXPECT_FALSE(provider.updateRates({}));
  provider.setRatesOfNextUpdate(rates("EUR", "0.25"));
  EXPECT_EQ(provider.rateFor(euro), Decimal::parse("0.5"));

  std::stop_source stopped;
  stopped.request_stop();
  EXPECT_FALSE(provider.updateRates(stopped.get_token()));
  bool updated = false;
  std::thread([&] { updated = provider.updateRates({}); }).join();
  EXPECT_TRUE(updated);
  EXPECT_EQ(provider.rateFor(euro), Decimal::parse("0.25"));
}

TEST(CurrencyDescriptionTest, NamesEachCurrencyOnceAndNoWordTwice) {
  const auto descriptions = CurrencyList::localizedUnitDescriptions();
  ASSERT_EQ(descriptions->size(), 192u);
  std::set<std::string> words;
  for (const UnitDescription& description : *descriptions) {
    EXPECT_EQ(CurrencyList::unitIdentifierFor(description.symbol), description.associatedUnitIdentifier);
    for (const std::string& alias : description.aliases) {
      EXPECT_TRUE(words.insert(alias).second) << alias;
    }
  }
  for (const std::string_view word : {"usd", "USD", "dollars", "us$", "a$", "yen", "quid", "cent", "pence", "euro cent",
                                      "bitcoin", "btc", "Satoshi", "satoshi", "sats", "ounces of gold", "try", "KGS"}) {
    EXPECT_TRUE(words.contains(std::string(word))) << word;
  }
  // Words with another meaning beside a number, and signs whose meaning depends on the reader.
  for (const std::string_view word : {"pound", "pounds", "dot", "top", "bob", "all", "etc", "kgs", "gold", "silver",
                                      "lumens", "p", "sat", "real", "$", "¥", "£", "kr"}) {
    EXPECT_FALSE(words.contains(std::string(word))) << word;
  }
}

TEST(CurrencyDescriptionTest, PutsTheCodeAroundTheWords) {
  const CurrencyAliasesProvider provider({{"EUR", {"euro", "euros"}}, {"cents", {"cent"}}, {"DOT", {"polkadot"}}});
  using Words = std::vector<std::string>;
  EXPECT_EQ(provider.aliasesForCurrency("EUR"), (Words{"eur", "euro", "euros", "EUR"}));
  EXPECT_EQ(provider.aliasesForCurrency("cents"), (Words{"cents", "cent"}));
  EXPECT_EQ(provider.aliasesForCurrency("DOT"), (Words{"polkadot", "DOT"}));
  EXPECT_EQ(provider.aliasesForCurrency("CHF"), (Words{"chf", "CHF"}));
}

TEST(CurrencyDescriptionTest, RefusesFilesThatAreNoGood) {
  EXPECT_EQ(currencyDescriptionsFrom(R"([{"symbol": "EUR", "aliases": ["euro"]}])").content,
            (std::vector<CurrencyDescription>{{"EUR", {"euro"}}}));
  for (const std::string_view bad : {"", "{}", "[1]", R"([{"symbol": "EUR"}])", R"([{"symbol": 1, "aliases": []}])",
                                     R"([{"symbol": "EUR", "aliases": [1]}])"}) {
    const auto decoded = currencyDescriptionsFrom(bad);
    EXPECT_FALSE(decoded.content) << bad;
    EXPECT_FALSE(decoded.error.empty()) << bad;
  }
  const auto good = defaultCurrencyRatesFrom(R"({"date": "2026-01-02", "base": "USD", "rates": {"EUR": 0.85}})");
  ASSERT_TRUE(good.content);
  EXPECT_EQ(good.content->rates, rates("EUR", "0.85"));
  for (const std::string_view bad :
       {"[]", R"({"date": "d", "base": "EUR", "rates": {}})", R"({"base": "USD", "rates": {}})",
        R"({"date": "d", "base": "USD", "rates": {"EUR": 0}})",
        R"({"date": "d", "base": "USD", "rates": {"EUR": "1"}})"}) {
    EXPECT_FALSE(defaultCurrencyRatesFrom(bad).content) << bad;
  }
}

TEST(InflationListTest, ConvertsBetweenTheYearsOfTheTable) {
  EXPECT_EQ(InflationList::usdCPI(1913), 9.9);
  EXPECT_EQ(InflationList::usdCPI(1918), 15.1);
  EXPECT_TRUE(InflationList::usdCPI(InflationList::latestYearSupported));
  EXPECT_DOUBLE_EQ(*InflationList::convertUSD(99, 1913, 1914), 100);
  EXPECT_DOUBLE_EQ(*InflationList::convertUSD(100, 1914, 1913), 99);
  for (const auto& [from, to] : {std::pair{1912, 2000}, {2000, 1912}, {2025, 2000}, {2000, 2025}}) {
    EXPECT_FALSE(InflationList::convertUSD(1, from, to)) << from << " to " << to;
  }
  // A test's own year has an index of its own, on either side.
  EXPECT_DOUBLE_EQ(*InflationList::convertUSD(9.9, 1913, 2024, 2024), InflationList::todayTestingCPI);
  EXPECT_DOUBLE_EQ(*InflationList::convertUSD(InflationList::todayTestingCPI, 2024, 1913, 2024), 9.9);
}

}  // namespace
}  // namespace tavrine
