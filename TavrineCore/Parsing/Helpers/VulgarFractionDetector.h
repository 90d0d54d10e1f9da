#pragma once

#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The value of the single-character fractions "½", "⅓", "¾", ...
class VulgarFractionDetector {
 public:
  /// The quotient that `text` stands for when it is exactly one such character.
  static std::optional<Decimal> valueOf(std::string_view text);

  /// Splits "5½" into the text before the fraction character and the character's value. Absent when `text` does not
  /// end in a fraction character.
  struct Trailing {
    std::string_view before;
    Decimal value;
  };
  static std::optional<Trailing> trailingFractionOf(std::string_view text);
};

}  // namespace tavrine
