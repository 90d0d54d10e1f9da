#include "TavrineCore/Customization/Functions/FunctionVendor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <iterator>
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

/// Phrases in the order in which they come; of two equal ones the first stays.
class PhraseCollector {
 public:
  explicit PhraseCollector(std::size_t usualCount) { seen_.reserve(usualCount); }

  void add(std::string phrase, FunctionIdentifier identifier) {
    Function& function = functions_.emplace_back(Function{std::move(phrase), identifier});
    if (!seen_.insert(function.prototypeExpression).second) functions_.pop_back();
  }
  [[nodiscard]] std::vector<Function> functions() && {
    return {std::move_iterator(functions_.begin()), std::move_iterator(functions_.end())};
  }

 private:
  std::deque<Function> functions_;  // which stay where they are, for the views
  std::unordered_set<std::string_view> seen_;
};

/// The phrases of one entry, those of more words first: of two that end at the same word the longer one says more.
std::vector<const std::string*> longestFirst(const std::vector<std::string>& phrases) {
  struct Measured {
    std::ptrdiff_t blanks;
    const std::string* phrase;
  };
  std::vector<Measured> measured;
  measured.reserve(phrases.size());
  for (const std::string& phrase : phrases)
    measured.push_back({std::count(phrase.begin(), phrase.end(), ' '), &phrase});
  std::stable_sort(measured.begin(), measured.end(),
                   [](const Measured& left, const Measured& right) { return left.blanks > right.blanks; });
  std::vector<const std::string*> sorted;
  sorted.reserve(measured.size());
  for (const Measured& entry : measured) sorted.push_back(entry.phrase);
  return sorted;
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

  constexpr std::size_t kUsualCount = 8000;
  PhraseCollector collector(kUsualCount);
  const auto addWithSpellings = [&](std::string phrase, FunctionIdentifier identifier) {
    std::string plain;
    if (!isAscii(phrase)) plain = strippingDiacritics(phrase);
    std::string withPlaceOfProvider;
    const std::size_t place = placesCanBeAskedFor ? gapForPlaceOfProvider(phrase) : std::string::npos;
    if (place != std::string::npos) {
      withPlaceOfProvider = phrase;
      withPlaceOfProvider.replace(place, kPlace.size(), kPlaceOfProvider);
    }
    collector.add(std::move(phrase), identifier);
    if (!plain.empty()) collector.add(std::move(plain), identifier);
    if (!withPlaceOfProvider.empty()) collector.add(std::move(withPlaceOfProvider), identifier);
  };

  const auto descriptions = StaticResouces::localizedFunctions();
  for (const FunctionDescription& description : *descriptions) {
    if (disabled.contains(description.identifier)) continue;
    for (const std::string* phrase : longestFirst(description.prototypeExpressions)) {
      for (Function& variant : FunctionVariantsGenerator::variantsOf({*phrase, description.identifier})) {
        addWithSpellings(std::move(variant.prototypeExpression), variant.identifier);
      }
    }
  }
  return std::move(collector).functions();
}

}  // namespace tavrine
