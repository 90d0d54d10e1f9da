#pragma once

#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

struct PrimeDeterminer {
  /// Whether the whole number is prime; nothing for a number beyond 64 bits that no small number divides.
  [[nodiscard]] static std::optional<bool> isPrime(const Decimal& whole);
};

}  // namespace tavrine
