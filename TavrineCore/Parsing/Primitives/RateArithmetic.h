#pragma once

#include <compare>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

// Rates convert by the sizes of their units alone: a rise of 5 °C per hour is one of 9 °F, wherever the scales begin.
namespace tavrine {

/// The quantity as a rate: 50 km/h is 50 kilometers for each hour, 2 minutes are 120 for each hertz. Nothing for a unit
/// that is neither a pair of units nor has a reciprocal one.
std::optional<UnitRate> rateOf(const UnitExpression& expression);

/// A rate of plain numbers as one of no unit.
UnitRate asUnitRate(const DecimalRate& rate);

/// The density: so many grams for each cubic centimeter.
UnitRate rateValueOf(const Substance& substance);

/// The rate in other units of the same kinds. Where `target` counts no unit the rate keeps its own ("$5 / day" to
/// weekly is $35 a week), and a rate that is upside down is turned over ("60 km / h" to minutes a kilometer). Nothing
/// for other kinds. The value of `target` doesn't count.
std::optional<UnitRate> to(const UnitRate& rate, const UnitRate& target);

/// The rate with `unit` in place of the one of its two units that is of the same kind, that below the stroke first.
std::optional<UnitRate> to(const UnitRate& rate, const TCUnit& unit);

/// The rate per another unit: 12% a year are 1% a month.
std::optional<PercentageRate> to(const PercentageRate& rate, const TCUnit& perUnit);

/// The rate turned over: "60 km / h" is 1/60 h for each km. Nothing for a rate that counts no unit, and for 0.
std::optional<UnitRate> reciprocalOf(const UnitRate& rate);

/// The rate in the base units of its two kinds.
UnitRate toBase(const UnitRate& rate);

/// The rate as a quantity of the unit that its two units divide to: 5 km for each hour is 5 km/h; of what is counted
/// without a unit, the reciprocal unit: 5 for each second is 5 Hz.
std::optional<UnitExpression> equivalentUnitExpressionOf(const UnitRate& rate);

/// The same, but only where the quotient would be one unit by itself when calculated.
std::optional<UnitExpression> synonymousUnitExpressionOf(const UnitRate& rate);

/// The order of two rates of the same kinds; `unordered` for different kinds.
std::partial_ordering compareRates(const UnitRate& left, const UnitRate& right);

/// Sums of rates of the same kinds, or of kinds that are each other turned over, in the left units. Of money added the
/// second unit wins, as in sums of quantities.
std::optional<UnitRate> operator+(const UnitRate& left, const UnitRate& right);
std::optional<UnitRate> operator-(const UnitRate& left, const UnitRate& right);

/// Sums of percentages per units of one kind, in the left unit.
std::optional<PercentageRate> operator+(const PercentageRate& left, const PercentageRate& right);
std::optional<PercentageRate> operator-(const PercentageRate& left, const PercentageRate& right);

}  // namespace tavrine
