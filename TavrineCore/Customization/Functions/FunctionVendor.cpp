#include "TavrineCore/Customization/Functions/FunctionVendor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

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

/// Where the phrase may name a place that only the host knows; npos for nowhere. Such a name is made of any words, so
/// one has to be announced: "weather in Little Town", but not "nice weather", where prose would be looked up.
std::size_t gapForPlaceOfProvider(std::string_view phrase) {
  constexpr auto kAnnouncements = std::to_array<std::string_view>(
      {" in ", " at ", " for ", " of ", " from ", " to ", " and ", " between ", " near ", " is ", " vs "});
  const std::size_t place = phrase.rfind(kPlace);
  if (place == std::string_view::npos) return place;
  const std::string_view before = phrase.substr(0, place);
  const bool isAnnounced = std::any_of(kAnnouncements.begin(), kAnnouncements.end(),
                                       [&](std::string_view word) { return before.ends_with(word); });
  return isAnnounced ? place : std::string_view::npos;
}

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

/// The phrases of one entry, those of more words first: of two that end at the same word the longer one says more.
std::vector<std::string> longestFirst(std::vector<std::string> phrases) {
  const auto countBlanks = [](const std::string& phrase) { return std::count(phrase.begin(), phrase.end(), ' '); };
  std::stable_sort(phrases.begin(), phrases.end(), [&](const std::string& left, const std::string& right) {
    return countBlanks(left) > countBlanks(right);
  });
  return phrases;
}

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
    const std::size_t place =
        placesCanBeAskedFor ? gapForPlaceOfProvider(function.prototypeExpression) : std::string::npos;
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
    for (const std::string& phrase : longestFirst(description.prototypeExpressions)) {
      for (Function& variant : FunctionVariantsGenerator::variantsOf({phrase, description.identifier})) {
        addWithSpellings(std::move(variant));
      }
    }
  }
  return std::move(collector).functions();
}

}  // namespace tavrine
