#include "TavrineCore/ResultFormatting/FormattedSymbol.h"

#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {
namespace {

// An alias of a minute or a mile is another word, not another sign.
constexpr UnitTypeSet kTypesWithTheirOwnSymbol{UnitType::duration, UnitType::length};

}  // namespace

const std::string& formattedSymbol(const TCUnit& unit) {
  static const std::string none;
  if (unit.identifier() == UnitIdentifier::cycles) return none;
  if (kTypesWithTheirOwnSymbol.contains(unit.unitType()) || unit.unitDescription() == nullptr) return unit.symbol();
  return unit.unitDescription()->symbol;
}

}  // namespace tavrine
