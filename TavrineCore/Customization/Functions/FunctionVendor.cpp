#include "TavrineCore/Customization/Functions/FunctionVendor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

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

/// The phrases of one entry, those of more words first: of two that end at the same word the longer one says more.
std::vector<const SharedText*> longestFirst(const std::vector<SharedText>& phrases) {
  struct Measured {
    std::ptrdiff_t blanks;
    const SharedText* phrase;
  };
  std::vector<Measured> measured;
  measured.reserve(phrases.size());
  for (const SharedText& phrase : phrases) {
    const std::string_view text = phrase;
    measured.push_back({std::count(text.begin(), text.end(), ' '), &phrase});
  }
  std::stable_sort(measured.begin(), measured.end(),
                   [](const Measured& left, const Measured& right) { return left.blanks > right.blanks; });
  std::vector<const SharedText*> sorted;
  sorted.reserve(measured.size());
  for (const Measured& entry : measured) sorted.push_back(entry.phrase);
  return sorted;
}

}  // namespace

bool FunctionVendor::looksUpPlaces(const EngineCustomization& customization) {
  return customization.placeDataProvider() != nullptr && customization.featureFlags().dynamicPlaceLookup;
}

FunctionIdentifierSet FunctionVendor::disabledFunctionsBasedOn(const EngineCustomization& customization) {
  const auto& disabledFunctions = customization.featureFlags().disabledFunctions;
  FunctionIdentifierSet disabled = disabledFunctions ? *disabledFunctions : FunctionIdentifierSet{};
  if (!customization.weatherDataProvider()) disabled.formUnion(weatherFunctionIdentifiers);
  return disabled;
}

std::vector<Function> FunctionVendor::prototypesFor(const EngineCustomization& customization) {
  const FunctionIdentifierSet disabled = disabledFunctionsBasedOn(customization);
  const auto descriptions = StaticResouces::localizedFunctions();
  std::vector<Function> functions;
  std::vector<Function> forms;
  std::size_t count = 0;
  for (const FunctionDescription& description : *descriptions) count += description.prototypeExpressions.size();
  functions.reserve(count);
  for (const FunctionDescription& description : *descriptions) {
    if (disabled.contains(description.identifier)) continue;
    const bool mayHaveForms = weatherFunctionIdentifiers.contains(description.identifier);
    for (const SharedText* phrase : longestFirst(description.prototypeExpressions)) {
      if (!mayHaveForms && isAscii(*phrase)) {
        functions.push_back({*phrase, description.identifier});
        continue;
      }
      FunctionVariantsGenerator::appendFormsOf({*phrase, description.identifier}, forms);
      for (Function& form : forms) {
        std::string plain;
        if (!isAscii(form.prototypeExpression)) plain = strippingDiacritics(form.prototypeExpression);
        functions.push_back(std::move(form));
        if (!plain.empty()) functions.push_back({std::move(plain), description.identifier});
      }
      forms.clear();
    }
  }
  return functions;
}

std::vector<Function> FunctionVendor::dynamicPlaceVariantsFrom(std::vector<Function> functions) {
  std::vector<Function> result;
  result.reserve(functions.size());
  for (Function& function : functions) {
    const std::size_t place = gapForPlaceOfProvider(function.prototypeExpression);
    result.push_back(std::move(function));
    if (place == std::string::npos) continue;
    std::string phrase = result.back().prototypeExpression.string();
    phrase.replace(place, kPlace.size(), kPlaceOfProvider);
    result.push_back({std::move(phrase), result.back().identifier});
  }
  return result;
}

std::vector<Function> FunctionVendor::functionsFor(const EngineCustomization& customization) {
  std::vector<Function> functions;
  for (const Function& prototype : prototypesFor(customization)) {
    for (Function& variant : FunctionVariantsGenerator::variantsOf(prototype)) functions.push_back(std::move(variant));
  }
  if (looksUpPlaces(customization)) functions = dynamicPlaceVariantsFrom(std::move(functions));

  std::unordered_set<std::string_view> seen;
  std::vector<Function> distinct;  // of two equal phrases the first stays
  for (const Function& function : functions) {
    if (seen.insert(function.prototypeExpression).second) distinct.push_back(function);
  }
  return distinct;
}

}  // namespace tavrine
