#include "TavrineCore/Parsing/Squad/UnitLookUp.h"

namespace tavrine {

std::optional<TCUnit> unitNamed(std::string_view, const PassContext&) { return std::nullopt; }

bool isCurrencySubstitution(std::string_view, const PassContext&) { return false; }

}  // namespace tavrine
