#pragma once

#include <cstddef>
#include <string>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// The lasting name of a line or subsheet: one private-use character, which stands for it in the text of other lines.
/// It names the line and not its position, so that moving lines changes no expression.
struct LineReference {
  std::string UID;

  [[nodiscard]] std::size_t hash() const { return hashOf(UID); }
  friend bool operator==(const LineReference&, const LineReference&) = default;
};

}  // namespace tavrine
