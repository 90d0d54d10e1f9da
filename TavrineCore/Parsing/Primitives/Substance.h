#pragma once

#include <cstddef>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// Something to cook with, and its density in grams per milliliter: butter, 0.959472895.
struct Substance {
  std::string name;
  Decimal value;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, value); }
  friend bool operator==(const Substance&, const Substance&) = default;
};

}  // namespace tavrine
