#include "TavrineCore/Customization/Units/UnitDescription.h"

#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

std::optional<TCUnit> UnitDescription::associatedUnit() const {
  if (equivalenceOrOne() != Decimal(1)) return std::nullopt;
  const UnitIdentifier identifier = associatedUnitIdentifier;
  if (unitTypeOf(identifier) == UnitType::currency && identifier != UnitIdentifier::currencyUSD) return std::nullopt;
  return TCUnitFor(identifier);
}

}  // namespace tavrine
