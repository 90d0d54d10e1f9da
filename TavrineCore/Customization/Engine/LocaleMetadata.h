#pragma once

#include "Foundation/Locale.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// How a locale writes dates.
struct LocaleMetadata {
  explicit LocaleMetadata(const Locale& locale);

  Locale locale;
  /// Month before day, as in "March 10, 2024": decides what "3/10" means.
  bool usesUnitedStatesDateFormat = false;
};

}  // namespace tavrine
