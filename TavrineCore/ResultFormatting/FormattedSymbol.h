#pragma once

#include <string_view>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Decimal;
}

namespace tavrine {

class TCUnit;

/// The symbol of a unit in the form that goes with so many: "day" beside 1, "days" beside 2. What has no forms, "hr" or
/// "km", comes back as it is. As long-lived as the text that it is given.
[[nodiscard]] std::string_view pluralForm(std::string_view symbol, const Decimal& value);

/// What is shown for a unit behind a number. Empty for cycles, which are shown as plain numbers. Units of time and
/// length have their own symbol, in the form that goes with the number; others that of the vocabulary entry they were
/// made from, if there is one. As long-lived as the unit.
[[nodiscard]] std::string_view formattedSymbol(const TCUnit& unit, const Decimal& value);

}  // namespace tavrine
