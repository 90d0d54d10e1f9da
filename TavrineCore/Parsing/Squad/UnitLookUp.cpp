#include "TavrineCore/Parsing/Squad/UnitLookUp.h"

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"

namespace tavrine {

std::optional<TCUnit> unitNamed(std::string_view name, const PassContext& context) {
  return context.content.unitList->quickLookup(name);
}

bool beginsMultiWordUnit(std::string_view word, const PassContext& context) {
  return context.content.unitList->beginsMultiWordUnit(word);
}

TCUnit preferredUnitFor(const TCUnit& unit, const PassContext& context) {
  return context.content.unitList->preferredUnitFor(unit);
}

bool isCurrencySubstitution(std::string_view symbol, const PassContext& context) {
  return context.content.unitList->isCurrencySubstitution(symbol);
}

}  // namespace tavrine
