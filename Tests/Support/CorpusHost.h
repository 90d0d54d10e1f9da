#pragma once

#include <memory>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"

/// The host of `@host on`: an app with functions, units, places, weather and variables of its own.
namespace tavrine::testing {

/// What that host adds to a customization: the functions "toll for __vehicle" (cars and camper vans: 4) and "meter
/// reading of 10" (always fails), the script function "twice", the unit "crate" (25 kg), the place "Little Town", and
/// weather: 20 °C and sunny, from tomorrow on 25 °C and rainy.
EngineCustomization withCorpusHost(EngineCustomization customization);

/// The variables of that host: "GST" (15%), "pallet" (a unit of 500 kg), and the tag
/// "#groceries" over lines that gave 12.5 and 7.5.
std::shared_ptr<VariableList> corpusHostVariables();

}  // namespace tavrine::testing
