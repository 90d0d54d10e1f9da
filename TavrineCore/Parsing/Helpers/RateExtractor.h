#pragma once

#include <optional>

#include "TavrineCore/Parsing/Primitives/RateType.h"

namespace tavrine {

class Token;

/// Reads rates of all three kinds from tokens.
class RateExtractor {
 public:
  /// Nothing for what is no rate.
  [[nodiscard]] static std::optional<RateType> from(const Token& token);
};

}  // namespace tavrine
