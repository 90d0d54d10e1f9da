#pragma once

#include <cstdint>
#include <string_view>

#include "Foundation/Locale.h"

namespace tavrine::foundation {

/// The form of a noun beside a number. English has `one` and `other`; Russian has `one`, `few`, `many` and `other`.
enum class PluralCategory : std::uint8_t { zero, one, two, few, many, other };

[[nodiscard]] std::string_view toString(PluralCategory category) noexcept;

/// The category of a number written in plain notation with a "." for the decimal separator: digits count as shown, so
/// that in English "1" is `one` and "1.0" is `other`. A text that is no number gives `other`.
[[nodiscard]] PluralCategory pluralCategory(std::string_view number, const Locale& locale);
/// Of a number in its shortest notation.
[[nodiscard]] PluralCategory pluralCategory(double number, const Locale& locale);

}  // namespace tavrine::foundation
