#include "TavrineCore/Customization/Units/CustomUnit.h"

#include <memory>

#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

UnitDescription CustomUnit::unitDescription() const {
  return {.symbol = name,
          .aliases = {},
          .associatedUnitIdentifier = equivalentUnit,
          .equivalence = definition,
          .representsCustomUnit = true};
}

TCUnit CustomUnit::unitValueDefinedInTermsOf(const TCUnit& unit) const {
  const bool isTemperature = unitTypeOf(equivalentUnit) == UnitType::temperature;
  const bool isGeneric = unitTypeOf(equivalentUnit) == UnitType::other;
  return TCUnit::counted(
      {.identifier = isGeneric ? equivalentUnit : unit.identifier(),
       .unitType = isGeneric ? UnitType::other : unit.unitType(),
       .symbol = name,
       .converter = {(unit.coefficient() + unit.constant()) * definition, isTemperature ? unit.constant() : Decimal()},
       .unitDescription = std::make_shared<const UnitDescription>(unitDescription())});
}

}  // namespace tavrine
