#pragma once

#include <cstddef>

#include "TavrineCore/Parsing/Primitives/Datestamp.h"

namespace tavrine {

/// A moment that is to be shown in the ISO 8601 format.
struct iso8601 {
  Datestamp datestamp;

  [[nodiscard]] std::size_t hash() const { return hashOf(datestamp); }
  friend bool operator==(const iso8601&, const iso8601&) = default;
};

}  // namespace tavrine
