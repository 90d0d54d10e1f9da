// What the background stage asks a host.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::testing {
namespace {

/// Remembers what it was asked for.
class Gazetteer final : public PlaceDataProvider {
 public:
  std::optional<PlaceData> placeDataFor(const std::string& name, std::stop_token) override {
    asked.push_back(name);
    if (name == "Nowhere") throw std::runtime_error("no connection");
    return PlaceData{name, TimeZone::gmt(), PlaceData::Coordinates{200, 0}};
  }
  std::vector<std::string> asked;
};

TEST(BackgroundTests, LooksUpPlacesOfFunctionsThatTakeThem) {
  const auto gazetteer = std::make_shared<Gazetteer>();
  EngineCustomization customization = EngineCustomization::basic();
  customization.setPlaceDataProvider(gazetteer);
  const auto call = [&](FunctionIdentifier identifier, std::initializer_list<std::string_view> places) {
    TokenList arguments;
    for (const std::string_view place : places) {
      arguments.append(Token(TokenType::dynamicPlace, std::string(place), NSRange::zero));
    }
    Token function(TokenType::wordFunction, TokenSubType::builtInWordFunction, "", NSRange::zero,
                   TokenList::frozen(std::move(arguments)),
                   std::make_shared<WordFunctionTokenMetadata>(Function{"", identifier}, nullptr, customization));
    return TokenList(std::vector<Token>{std::move(function)});
  };
  const BackgroundTokenListEvaluator evaluator(customization);
  const auto namesAskedBy = [&](const TokenList& line, std::stop_token stop = {}) {
    gazetteer->asked.clear();
    (void)evaluator.evaluateInBackground(line, std::move(stop));
    return gazetteer->asked;
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::distanceBetweenPlaces, {"Here", "There"})), Names({"There", "Here"}));
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::lowTemperature, {"Here"})), Names({"Here"}));
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::halfOf, {"Here"})), Names());
  std::stop_source stopped;
  stopped.request_stop();
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::timeInTimezone, {"Here"}), stopped.get_token()), Names());
  // What a provider throws is the caller's to judge.
  EXPECT_THROW((void)namesAskedBy(call(FunctionIdentifier::timeInTimezone, {"Nowhere"})), std::runtime_error);
}

TEST(BackgroundTests, EvaluatesTheRest) {
  const BackgroundTokenListEvaluator evaluator(EngineCustomization::basic());
  EXPECT_EQ(describeResult(evaluator.evaluateInBackground(tokensOf("-2^2 + 1"))), "-3");
  EXPECT_EQ(describeResult(evaluator.evaluateInBackground(TokenList())), "none");
}

}  // namespace
}  // namespace tavrine::testing
