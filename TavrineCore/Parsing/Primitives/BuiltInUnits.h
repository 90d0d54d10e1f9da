#pragma once

#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

/// The built-in unit of the identifier, one shared object. Money and `undefined` give the generic unit: money gets its
/// unit from the list of currencies, with the rate of the day.
const TCUnit& unitOf(UnitIdentifier identifier);

/// Like `unitOf`, but with fixed units for US dollars, euros and Australian dollars, and with the null unit for what
/// has no row.
const TCUnit& TCUnitFor(UnitIdentifier identifier);

/// The unit without symbol and size: coefficient and constant are 0. It is the base of units of no known kind.
const TCUnit& genericUnit();

/// The unit that converters of the kind lead to, which need not be the one that stands for the kind where one is shown
/// (see `baseUnitIdentifierOf`): volumes go through cubic meters. The generic unit for `other`.
const TCUnit& baseUnitOf(UnitType type);

/// The base unit of the unit's kind; the null unit is its own.
const TCUnit& baseUnitOf(const TCUnit& unit);

/// Whether values of the units can be converted by their coefficients.
bool haveEqualBaseUnits(const TCUnit& unit1, const TCUnit& unit2);

/// Kinds that are a product of two others, such as areas and energies.
bool isXTimesYUnit(const TCUnit& unit);

/// Kinds that are so much of one per another, such as speeds and pressures.
bool isXPerYUnit(const TCUnit& unit);

/// Charges, currents, potentials, resistances, inductances and capacitances.
bool isElectrical(const TCUnit& unit);

}  // namespace tavrine
