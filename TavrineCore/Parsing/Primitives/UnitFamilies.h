#pragma once

#include <optional>

#include "Foundation/Calendar.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// The unit that stands for a family in grouping: `meters` for all metric lengths, `feet` for inches to miles. A unit
/// of no family stands for itself.
UnitIdentifier motherUnitIdentifierOf(UnitIdentifier identifier);

/// The part of a date that the unit counts: `years` the year. Nights count as days.
std::optional<Calendar::Component> calendarUnitOf(UnitIdentifier identifier);

/// The way back; both kinds of week give `weeks`, weekdays give `days`. Absent where no unit counts the component.
std::optional<UnitIdentifier> unitIdentifierFor(Calendar::Component component);

/// Money that is shown in whole units.
extern const UnitIdentifierSet zeroDPformattingCurrencies;

/// Money that is shown with three places.
extern const UnitIdentifierSet threeDPformattingCurrencies;

/// Money that no state issues, with its fractions.
extern const UnitIdentifierSet cryptoCurrencies;

}  // namespace tavrine
