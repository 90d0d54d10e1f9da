#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Places/MockPlaceDataProvider.h"
#include "TavrineCore/Customization/Places/MockWeatherDataProvider.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "Tests/Support/Table.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using testing::rowsOf;

/// Answers each question with its own name.
std::shared_ptr<MockWeatherDataProvider> namesOfFunctions() {
  std::map<FunctionIdentifier, EvaluationResult> results;
  weatherFunctionIdentifiers.forEach([&](FunctionIdentifier identifier) {
    results.emplace(identifier, EvaluationResult::rawString(std::string(toString(identifier))));
  });
  return std::make_shared<MockWeatherDataProvider>(std::move(results));
}

EvaluationResult celsius(int degrees) {
  return EvaluationResult::unitExpression({Decimal(degrees), unitOf(UnitIdentifier::celsius)});
}

class ProviderTest : public ::testing::Test {
 protected:
  static EngineCustomization customization() { return EngineCustomization::standardWith(Locale("en_US")); }

  void useWeather(std::shared_ptr<WeatherDataProvider> provider) {
    EngineCustomization changed = calculator_->customization();
    changed.setWeatherDataProvider(std::move(provider));
    calculator_ = std::make_unique<Calculator>(std::move(changed));
  }
  void usePlaces(std::shared_ptr<PlaceDataProvider> provider) {
    EngineCustomization changed = calculator_->customization();
    changed.setPlaceDataProvider(std::move(provider));
    changed.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.dynamicPlaceLookup = true; });
    calculator_ = std::make_unique<Calculator>(std::move(changed));
  }

  std::string atOnce(std::string_view line) { return calculator_->calculate(line).stringValue; }
  bool isPending(std::string_view line) { return calculator_->calculate(line).isPendingResult(); }
  CalculationResult later(std::string_view line) { return calculator_->calculateInBackground(std::string(line)).get(); }

  foundation::ScopedEnvironment world_{testing::worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
  std::unique_ptr<Calculator> calculator_ = std::make_unique<Calculator>(customization());
};

TEST_F(ProviderTest, QuestionsAboutTheWeather) {
  const auto weather = namesOfFunctions();
  useWeather(weather);
  struct Row {
    std::string_view line;
    std::string_view function;
    std::string_view place = "Paris";
    std::string_view date = "";  // in UTC
  };
  for (const Row& row : rowsOf<Row>("Engine/ProviderTests", "QuestionsAboutTheWeather")) {
    EXPECT_TRUE(isPending(row.line)) << row.line;
    const std::size_t before = weather->requests().size();
    EXPECT_EQ(later(row.line).stringValue, row.function) << row.line;
    const std::vector<WeatherDataRequest> requests = weather->requests();
    ASSERT_EQ(requests.size(), before + 1) << row.line;
    const WeatherDataRequest& request = requests.back();
    EXPECT_EQ(toString(request.function), row.function) << row.line;
    EXPECT_EQ(request.location.name, row.place) << row.line;
    ASSERT_EQ(request.date.has_value(), !row.date.empty()) << row.line;
    if (request.date) {
      EXPECT_EQ(*request.date, testing::worldAt(row.date, "UTC", "en_US").clock().now()) << row.line;
    }
  }
}

TEST_F(ProviderTest, NoQuestionAboutTheWeather) {
  // Without a source of weather its words are words.
  EXPECT_EQ(atOnce("temperature in Paris"), "");
  EXPECT_FALSE(isPending("temperature in Paris"));
  const auto weather = namesOfFunctions();
  useWeather(weather);
  for (const std::string_view line : {"weather tomorrow", "the high 5 + 3", "temperature in EST", "rain on Friday",
                                      "it was a low pressure job", "we had nice weather"}) {
    EXPECT_FALSE(isPending(line)) << line;
    (void)later(line);
  }
  EXPECT_TRUE(weather->requests().empty());
}

TEST_F(ProviderTest, WeatherIsCalculatedWith) {
  useWeather(std::make_shared<MockWeatherDataProvider>(std::map<FunctionIdentifier, EvaluationResult>{
      {FunctionIdentifier::currentTemperature, celsius(20)}, {FunctionIdentifier::highTemperature, celsius(30)}}));
  EXPECT_EQ(later("temperature in Paris").stringValue, "20 °C");
  EXPECT_EQ(later("temperature in Paris in fahrenheit").stringValue, "68 °F");
  EXPECT_EQ(later("half of (temperature in Paris)").stringValue, "10 °C");
  EXPECT_EQ(later("larger of (temperature in Paris) and (high in Paris)").stringValue, "30 °C");
  // What the source doesn't know is no answer.
  EXPECT_EQ(later("dew point in Paris").stringValue, "");
  EXPECT_FALSE(later("dew point in Paris").isPendingResult());
}

const PlaceData kLittleTown{"Little Town", *TimeZone::withIdentifier("Asia/Tokyo"), PlaceData::Coordinates{0, 90}};

TEST_F(ProviderTest, PlacesThatOnlyTheHostKnows) {
  const auto places = std::make_shared<MockPlaceDataProvider>(std::vector<PlaceData>{
      kLittleTown, {"Origin", TimeZone::gmt(), PlaceData::Coordinates{0, 0}}, {"Fog", TimeZone::gmt()}});
  usePlaces(places);
  struct Row {
    std::string_view line;
    std::string_view answer;
  };
  for (const Row& row : rowsOf<Row>("Engine/ProviderTests", "PlacesThatOnlyTheHostKnows")) {
    EXPECT_TRUE(isPending(row.line)) << row.line;
    EXPECT_EQ(later(row.line).stringValue, row.answer) << row.line;
  }
  EXPECT_EQ(places->namesAskedFor().front(), "Little Town");
  // A place of the tables isn't looked up.
  EXPECT_FALSE(isPending("where is Paris"));
}

TEST_F(ProviderTest, TimesInPlacesThatOnlyTheHostKnows) {
  const auto places = std::make_shared<MockPlaceDataProvider>(std::vector<PlaceData>{kLittleTown});
  usePlaces(places);
  for (const std::string_view line : {"time in Little Town", "what time is it in little town?"}) {
    EXPECT_TRUE(isPending(line)) << line;
    EXPECT_EQ(later(line).stringValue, "6:30 PM") << line;
  }
  EXPECT_EQ(later("3 hours ago in Little Town").stringValue, "3:30 PM");
  EXPECT_EQ(later("time in Elsewhere").stringValue, "");
  EXPECT_EQ(atOnce("time in Tokyo"), "6:30 PM");

  // A host may know distances without its lines being searched for names.
  EngineCustomization withoutNames = calculator_->customization();
  withoutNames.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.dynamicPlaceLookup = false; });
  Calculator without(withoutNames);
  EXPECT_EQ(without.calculate("time in Little Town").stringValue, "");
  EXPECT_EQ(without.calculate("distance from London to Paris").stringValue, "343.771 km");
  usePlaces(nullptr);
  EXPECT_EQ(atOnce("time in Little Town"), "");
}

TEST_F(ProviderTest, WeatherInPlacesThatOnlyTheHostKnows) {
  const auto weather = namesOfFunctions();
  usePlaces(std::make_shared<MockPlaceDataProvider>(std::vector<PlaceData>{kLittleTown}));
  useWeather(weather);
  for (const std::string_view line :
       {"weather in Little Town", "weather in Little Town tomorrow", "weather tomorrow in Little Town"}) {
    EXPECT_TRUE(isPending(line)) << line;
    EXPECT_EQ(later(line).stringValue, "weatherConditions") << line;
    ASSERT_FALSE(weather->requests().empty()) << line;
    EXPECT_EQ(weather->requests().back().location.name, "Little Town") << line;
  }
  EXPECT_EQ(later("weather in Elsewhere").stringValue, "");
  // Words that nothing announces as a place are looked up by nobody.
  EXPECT_FALSE(isPending("we had nice weather"));
}

TEST_F(ProviderTest, Distances) {
  usePlaces(std::make_shared<MockPlaceDataProvider>(std::vector<PlaceData>{kLittleTown}));
  // A great circle on a globe of 6371.0087714 km, computed apart from this code.
  for (const std::string_view line :
       {"distance between London and Paris", "distance from London to Paris", "how far is London from Paris",
        "how far is it from London to Paris?", "London to Paris distance", "how far apart are London and Paris"}) {
    EXPECT_EQ(atOnce(line), "343.771 km") << line;
  }
  EXPECT_EQ(atOnce("distance from London to Paris in m"), "343.771k m");
  EXPECT_EQ(atOnce("how many m from London to Paris"), "343.771k m");
  EXPECT_EQ(atOnce("distance from London to London"), "0 km");
  EXPECT_TRUE(isPending("distance from London to Little Town"));
  EXPECT_EQ(later("distance from London to Little Town").stringValue, "10,016.259 km");
}

/// Fails in every way.
class BrokenProvider final : public PlaceDataProvider, public WeatherDataProvider {
 public:
  std::optional<PlaceData> placeDataFor(const std::string&, std::stop_token) override { throw 5; }
  std::optional<UnitExpression> distanceBetween(const PlaceData::Coordinates&, const PlaceData::Coordinates&) override {
    throw std::runtime_error("no map");
  }
  std::optional<EvaluationResult> resultFor(const WeatherDataRequest&, std::stop_token) override {
    throw std::runtime_error("no connection");
  }
};

TEST_F(ProviderTest, WhatAProviderThrowsIsAFailedLine) {
  const auto broken = std::make_shared<BrokenProvider>();
  usePlaces(broken);
  useWeather(broken);
  for (const std::string_view line : {"weather in Paris", "weather in Little Town", "where is Little Town",
                                      "distance from London to Paris", "half of (temperature in Paris)"}) {
    EXPECT_TRUE(later(line).isFailedResult()) << line;
  }
  EXPECT_TRUE(calculator_->calculate("distance from London to Paris").isFailedResult());
  EXPECT_EQ(later("1 + 2").stringValue, "3");
}

/// Answers only when it is told to stop.
class WaitingProvider final : public WeatherDataProvider {
 public:
  std::optional<EvaluationResult> resultFor(const WeatherDataRequest&, std::stop_token stop) override {
    isAsked = true;
    while (!stop.stop_requested()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return std::nullopt;
  }
  std::atomic<bool> isAsked = false;
};

TEST_F(ProviderTest, ACalculatorThatGoesStopsItsProviders) {
  const auto waiting = std::make_shared<WaitingProvider>();
  useWeather(waiting);
  std::future<CalculationResult> answer = calculator_->calculateInBackground("weather in Paris");
  while (!waiting->isAsked) std::this_thread::yield();
  calculator_.reset();
  EXPECT_EQ(answer.get().stringValue, "");
}

}  // namespace
}  // namespace tavrine
