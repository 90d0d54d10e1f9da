#include "TavrineCore/Customization/Functions/FunctionVendor.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "Foundation/StringMap.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Functions/FunctionVariantsGenerator.h"

namespace tavrine {

namespace {

constexpr std::string_view kPlace = "__timezone";
constexpr std::string_view kPlaceOfProvider = "__dynamic_place";

/// Phrases in the order in which they come; of two equal ones the first stays.
class PhraseCollector {
 public:
  void add(Function function) {
    if (seen_.insert(function.prototypeExpression).second) functions_.push_back(std::move(function));
  }
  [[nodiscard]] std::vector<Function> functions() && { return std::move(functions_); }

 private:
  std::vector<Function> functions_;
  StringSet seen_;
};

}  // namespace

FunctionIdentifierSet FunctionVendor::disabledFunctionsBasedOn(const EngineCustomization& customization) {
  const auto& disabledFunctions = customization.featureFlags().disabledFunctions;
  FunctionIdentifierSet disabled = disabledFunctions ? *disabledFunctions : FunctionIdentifierSet{};
  if (!customization.weatherDataProvider()) disabled.formUnion(weatherFunctionIdentifiers);
  return disabled;
}

std::vector<Function> FunctionVendor::functionsFor(const EngineCustomization& customization) {
  const FunctionIdentifierSet disabled = disabledFunctionsBasedOn(customization);
  const bool placesCanBeAskedFor = customization.placeDataProvider() != nullptr;

  PhraseCollector collector;
  const auto addWithSpellings = [&](Function function) {
    std::string plain = strippingDiacritics(function.prototypeExpression);
    const bool differs = plain != function.prototypeExpression;
    const FunctionIdentifier identifier = function.identifier;
    const std::size_t place = placesCanBeAskedFor ? function.prototypeExpression.rfind(kPlace) : std::string::npos;
    std::string withPlaceOfProvider;
    if (place != std::string::npos) {
      withPlaceOfProvider = function.prototypeExpression;
      withPlaceOfProvider.replace(place, kPlace.size(), kPlaceOfProvider);
    }
    collector.add(std::move(function));
    if (differs) collector.add({std::move(plain), identifier});
    if (place != std::string::npos) collector.add({std::move(withPlaceOfProvider), identifier});
  };

  const auto descriptions = StaticResouces::localizedFunctions();
  for (const FunctionDescription& description : *descriptions) {
    if (disabled.contains(description.identifier)) continue;
    for (const std::string& phrase : description.prototypeExpressions) {
      for (Function& variant : FunctionVariantsGenerator::variantsOf({phrase, description.identifier})) {
        addWithSpellings(std::move(variant));
      }
    }
  }
  return std::move(collector).functions();
}

}  // namespace tavrine
