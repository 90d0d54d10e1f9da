#pragma once

#include <optional>
#include <string_view>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Decimal;
}

namespace tavrine {

/// The texts of the whole numbers 0 to 999, which most results are. They read the same in every locale and under all
/// preferences, so they are looked up before anything else is made.
class CommonFormattedResultsCache {
 public:
  /// "7" for 7; nothing for numbers outside the table. The text lives for ever.
  [[nodiscard]] static std::optional<std::string_view> find(const Decimal& value) noexcept;
};

}  // namespace tavrine
