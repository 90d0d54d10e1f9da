#pragma once

#include <compare>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// Coefficient and constant together: what factors between units are made from.
Decimal baseUnitValueOf(const TCUnit& unit);

/// The value in the base unit of its kind: 2 km is 2000.
Decimal valueInBaseUnit(const UnitExpression& expression);

/// The way back: so many base units as a value of `unit`. Kitchen volumes are rounded to 6 places, temperatures to 34.
/// Not a number for a unit of no size, such as money whose rate is unknown.
Decimal valueFrom(const Decimal& baseUnitValue, const TCUnit& unit);

/// How many of `dimension` one `unit` is: kilometers and meters give 1000. 0 where their kinds differ.
Decimal factorOf(const TCUnit& unit, const TCUnit& dimension);

/// The same, but nothing where their kinds differ.
std::optional<Decimal> ratioOf(const TCUnit& unit, const TCUnit& dimension);

/// Whether both are of one kind, or of kinds taken as equivalent: torques are measured like energies.
bool areConvertible(const TCUnit& unit1, const TCUnit& unit2);

/// The same quantity in another unit of its kind or of a kind taken as equivalent; nothing for other kinds.
std::optional<UnitExpression> convertedTo(const UnitExpression& expression, const TCUnit& unit);
std::optional<UnitExpression> convertedTo(const UnitExpression& expression, UnitIdentifier unit);

/// What "in" does: `convertedTo`, and beyond it reciprocals ("5 km/L in L/km", "2 s in Hz") and turns per time ("60 rpm
/// in Hz").
std::optional<UnitExpression> to(const UnitExpression& expression, const TCUnit& unit);

/// The order of two quantities of one kind; `unordered` for different kinds.
std::partial_ordering compareQuantities(const UnitExpression& left, const UnitExpression& right);

/// The unit as a rate: a kilometer per hour is 1 kilometer for each hour. A unit with a reciprocal unit and no parts,
/// such as the minute, is so many per that: 60 per hertz.
std::optional<UnitRate> rateValueOf(const TCUnit& unit);

}  // namespace tavrine
