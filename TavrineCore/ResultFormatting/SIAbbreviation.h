#pragma once

#include <optional>
#include <string>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Decimal;
class Locale;
}  // namespace tavrine::foundation

namespace tavrine {

struct FormattingPreferences;

/// "1.5M", "100k": the number in the largest of trillions ("T"), billions ("G"), millions ("M") and thousands ("k") of
/// which it has at least one, to at most `dp` places. Nothing below a thousand.
[[nodiscard]] std::optional<std::string> siFormattedNumber(const Decimal& number, const Locale& locale,
                                                           const FormattingPreferences& preferences);

}  // namespace tavrine
