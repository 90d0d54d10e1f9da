#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/LocaleMetadata.h"
#include "TavrineCore/Customization/Fixtures/FixturesList.h"
#include "TavrineCore/Customization/Functions/CustomFunctionsList.h"
#include "TavrineCore/Customization/Functions/FunctionList.h"
#include "TavrineCore/Customization/Functions/TraditionalFunctionList.h"
#include "TavrineCore/Customization/Units/UnitList.h"
#include "TavrineCore/Customization/Places/PlaceList.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"
#include "TavrineCore/Parsing/Helpers/SpecialDayList.h"
#include "TavrineCore/Utility/Lazy.h"

namespace tavrine {

/// The vocabulary of a customization: read-only lists, each made when it is first asked for. Contents share the lists
/// whose inputs are equal; copies of a content share all.
struct EngineContent {
  /// Everything anew.
  explicit EngineContent(const EngineCustomization& customization);

  /// The content of `EngineCustomization::basic()`, one a current locale.
  static std::shared_ptr<const EngineContent> basic();

  Lazy<FunctionList> functionList;
  Lazy<CustomFunctionsList> customFunctionsList;
  Lazy<TraditionalFunctionList> traditionalFunctionList;
  Lazy<DateWordsList> dateWordsList;
  Lazy<NumberWordsList> numberWordsList;
  Lazy<FixturesList> fixturesList;
  Lazy<UnitList> unitList;
  Lazy<PlaceList> placeList;
  Lazy<SpecialDayList> specialDayList;
  Lazy<LocaleMetadata> localeMetadata;
};

/// The standard places of the current locale, which all contents share, with the custom ones on top.
Lazy<PlaceList> placeListWith(const std::vector<Place>& customPlaces);

/// What becomes of a list when a customization changes.
enum class ListReuse : std::uint8_t {
  keep,     // the old list is right
  extend,   // the old list is right as far as it goes: only what is new is added
  rebuild,  // made anew
};

/// What can be taken over from the content of an old customization for a new one.
struct ContentReuse {
  /// Nothing can: a new content from scratch, and the members below don't count. Otherwise all lists that have no
  /// member here are kept.
  bool fromScratch = false;
  ListReuse unitList = ListReuse::keep;
  /// `extend`: the new custom places on top of the standard places.
  ListReuse placeList = ListReuse::keep;
  ListReuse customFunctionsList = ListReuse::keep;

  friend bool operator==(const ContentReuse&, const ContentReuse&) = default;
};

/// The rules of reuse; pure.
ContentReuse contentReuse(const EngineCustomization& newCustomization, const EngineCustomization& oldCustomization);
bool reuseUnitList(const EngineCustomization& newCustomization, const EngineCustomization& oldCustomization);
bool reuseUnitListAndAddCustomFunctions(const EngineCustomization& newCustomization,
                                        const EngineCustomization& oldCustomization);

}  // namespace tavrine
