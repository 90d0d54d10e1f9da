#include "Tests/Support/CorpusHost.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Places/MockPlaceDataProvider.h"
#include "TavrineCore/Customization/Places/WeatherDataProvider.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine::testing {

namespace {

EvaluationResult amount(int value, UnitIdentifier unit) {
  return EvaluationResult::unitExpression({Decimal(value), unitOf(unit)});
}

class Weather final : public WeatherDataProvider {
 public:
  std::optional<EvaluationResult> resultFor(const WeatherDataRequest& request, std::stop_token) override {
    constexpr double kHalfDay = 12 * 60 * 60;
    const bool isLater = request.date && request.date->timeIntervalSince(foundation::Date::now()) > kHalfDay;
    switch (request.function) {
      case FunctionIdentifier::currentTemperature:
        return amount(isLater ? 25 : 20, UnitIdentifier::celsius);
      case FunctionIdentifier::weatherConditions:
        return EvaluationResult::rawString(isLater ? "rainy" : "sunny");
      default:
        return std::nullopt;
    }
  }
};

std::vector<CustomFunction> functions() {
  CustomFunction::Fields toll;
  toll.prototypeExpression = "toll for __vehicle";
  toll.customTypes = {CustomType("__vehicle", {"car", "camper van"})};
  toll.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::decimal(Decimal(4)); };
  CustomFunction::Fields reading;
  reading.prototypeExpression = "meter reading of 10";
  reading.handler = [](const std::vector<EvaluationResult>&) -> EvaluationResult {
    throw std::runtime_error("no connection");
  };
  return {CustomFunction(std::move(toll)), CustomFunction(std::move(reading))};
}

Variable variable(std::string name, EvaluationResult definition) {
  Variable result(std::move(name), std::nullopt, Variable::VariableType::global);
  result.definition = std::make_shared<const EvaluationResult>(std::move(definition));
  return result;
}

}  // namespace

EngineCustomization withCorpusHost(EngineCustomization customization) {
  // The same objects each time: a customization with other ones means another vocabulary.
  static const std::vector<CustomFunction> ownFunctions = functions();
  static const auto weather = std::make_shared<Weather>();
  static const auto places = std::make_shared<MockPlaceDataProvider>(std::vector<PlaceData>{
      {"Little Town", *foundation::TimeZone::withIdentifier("Asia/Tokyo"), PlaceData::Coordinates{0, 90}}});
  customization.setCustomFunctions(ownFunctions);
  customization.setJavaScriptFunctions({{"twice", std::nullopt, "x => 2 * x"}});
  customization.setCustomUnits({{"crate", Decimal(25), UnitIdentifier::kilograms}});
  customization.setWeatherDataProvider(weather);
  customization.setPlaceDataProvider(places);
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) {
    flags.additionalOptions.unitDeclarations = true;
    flags.dynamicPlaceLookup = true;
  });
  return customization;
}

std::shared_ptr<VariableList> corpusHostVariables() {
  const auto number = [](const char* text) { return EvaluationResult::decimal(*Decimal::parse(text)); };
  auto variables = std::make_shared<VariableList>();
  variables->setVariable(variable("GST", EvaluationResult::salesTax({*Decimal::parse("0.15")})));
  variables->setVariable(
      variable("pallet", EvaluationResult::customUnit({"pallet", Decimal(500), UnitIdentifier::kilograms})));
  Variable tag("#groceries", std::nullopt, Variable::VariableType::tag);
  tag.representedResults =
      std::make_shared<const std::vector<EvaluationResult>>(std::vector{number("12.5"), number("7.5")});
  variables->setVariable(std::move(tag));
  return variables;
}

}  // namespace tavrine::testing
