#pragma once

#include <string_view>

#include "Foundation/Environment.h"

namespace tavrine::testing {

/// An environment that stands still: the moment ("2026-06-10T09:30:00Z"), the zone, the current locale, a seeded source
/// of random numbers.
foundation::Environment worldAt(std::string_view moment, std::string_view zone, std::string_view locale);

}  // namespace tavrine::testing
