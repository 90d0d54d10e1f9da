#pragma once

#include <string_view>
#include <utility>

#include "Foundation/Environment.h"
#include "Foundation/Locale.h"

namespace tavrine::testing {

/// The environment of this thread with another locale.
inline foundation::Environment environmentIn(std::string_view locale) {
  foundation::Environment::Parts parts = foundation::Environment::current().parts();
  parts.locale = foundation::Locale(locale);
  return foundation::Environment(std::move(parts));
}

}  // namespace tavrine::testing
