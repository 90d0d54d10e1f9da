#include "TavrineCore/Parsing/Primitives/Resolution.h"

#include "Foundation/DecimalMath.h"

namespace tavrine {

std::optional<Decimal> Resolution::ppiOfDeviceWith(const Decimal& screenSizeInInches) const {
  if (width.isZero() || height.isZero() || screenSizeInInches.isZero()) return std::nullopt;
  const Decimal density = DDDecimalSqrt(width * width + height * height) / screenSizeInInches;
  return density.isNaN() ? std::nullopt : std::optional(density);
}

}  // namespace tavrine
