#pragma once

#include <vector>

#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"

namespace tavrine {

class EngineCustomization;

/// Where the phrases of the built-in functions come from.
struct FunctionVendor {
  /// The phrases of the resource file "FunctionDescriptions", English and the current language's, and their variants,
  /// without those of disabled functions and without repetitions.
  [[nodiscard]] static std::vector<Function> functionsFor(const EngineCustomization& customization);

  /// The same without the variants, for those who make them when they are needed.
  [[nodiscard]] static std::vector<Function> prototypesFor(const EngineCustomization& customization);

  /// The functions, each that names a zone followed by the same for a place that only the host knows.
  [[nodiscard]] static std::vector<Function> dynamicPlaceVariantsFrom(std::vector<Function> functions);

  /// Whether phrases may name a place that only the host knows: it has a source of places, and wants names looked up.
  [[nodiscard]] static bool looksUpPlaces(const EngineCustomization& customization);

  /// What the feature flags disable, and what needs a host's source of weather where there is none.
  [[nodiscard]] static FunctionIdentifierSet disabledFunctionsBasedOn(const EngineCustomization& customization);
};

}  // namespace tavrine
