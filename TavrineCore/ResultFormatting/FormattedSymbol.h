#pragma once

#include <string>

namespace tavrine {

class TCUnit;

/// What is shown for a unit behind a number. Empty for cycles, which are shown as plain numbers. Units of time and
/// length have their own symbol; others that of the vocabulary entry they were made from, if there is one.
[[nodiscard]] const std::string& formattedSymbol(const TCUnit& unit);

}  // namespace tavrine
