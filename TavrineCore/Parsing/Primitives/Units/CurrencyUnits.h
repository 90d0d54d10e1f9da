#pragma once

#include <array>

#include "TavrineCore/Parsing/Primitives/Units/UnitRow.h"

// Money in US dollars. The rates are those of an engine without a rate provider; all other money comes with a rate.
namespace tavrine::units {

inline constexpr auto kCurrencyUnits = std::to_array<UnitRow>({
    {UnitIdentifier::currencyUSD, "USD", "1.0"},
    {UnitIdentifier::currencyEUR, "EUR", "1.16"},
    {UnitIdentifier::currencyAUD, "AUD", "0.72"},
});
static_assert(rowsAreSound(kCurrencyUnits));

}  // namespace tavrine::units
