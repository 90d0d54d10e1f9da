#pragma once

#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/NumberSymbols.h"

namespace tavrine::foundation {

/// Recognises a number as typed in a locale, strictly, and gives its value: the whole text must be digits with
/// well-placed grouping, an optional decimal separator and digits, an optional exponent ("1e5", with the symbol of the
/// locale). At least one digit; a leading minus, no plus; no blanks around. Digits of all scripts are accepted.
///
/// Groups must have their exact sizes ("1234,567" is no number), none may stand behind the decimal separator, and one
/// number uses one separator throughout. In a locale that groups at all, any space, any apostrophe, and the one of
/// "." and "," that isn't the decimal separator may group: "1'000" and "1 000" are 1000 in all of them.
///
/// Time is linear in the length. Beyond 38 digits the value is rounded; out of range it is not a number.
std::optional<Decimal> parseStrict(std::string_view text, const NumberSymbols& symbols);

/// Whether `parseStrict` gives a value.
bool isStrictNumber(std::string_view text, const NumberSymbols& symbols);

/// The value of digits with an optional sign, the locale's decimal separator and an exponent, without any grouping:
/// what is left of a number after its separators have been removed.
std::optional<Decimal> parseUngrouped(std::string_view text, const NumberSymbols& symbols);

}  // namespace tavrine::foundation
