#pragma once

#include <cstdint>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// So many of a built-in unit.
UnitExpression with(UnitIdentifier unit, const Decimal& value);

enum class UnitSum : std::uint8_t { addition, subtraction };

/// The unit that a sum of two units of one kind is shown in. Of an addition that is the larger unit ("200 m + 1 km" is
/// in km), but of money the second; a subtraction stays in the first.
const TCUnit& winningUnitInMixedUnitArithmatic(const TCUnit& firstUnit, const TCUnit& secondUnit, UnitSum operation);

/// Sums of quantities of one kind, and of kinds that are rates of each other ("5 km/L + 5 L/100km", in the second
/// unit). Nothing for other kinds.
std::optional<UnitExpression> operator+(const UnitExpression& left, const UnitExpression& right);
std::optional<UnitExpression> operator-(const UnitExpression& left, const UnitExpression& right);

}  // namespace tavrine
