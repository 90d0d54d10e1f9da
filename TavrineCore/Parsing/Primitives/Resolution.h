#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// The size of a screen in pixels: "1920x1080".
struct Resolution {
  Decimal width;
  Decimal height;

  /// Pixels per inch of a screen with this diagonal. Absent where a size is 0.
  [[nodiscard]] std::optional<Decimal> ppiOfDeviceWith(const Decimal& screenSizeInInches) const;

  [[nodiscard]] std::size_t hash() const { return hashOf(width, height); }
  friend bool operator==(const Resolution&, const Resolution&) = default;
};

}  // namespace tavrine
