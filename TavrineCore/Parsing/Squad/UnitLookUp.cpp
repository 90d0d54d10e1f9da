#include "TavrineCore/Parsing/Squad/UnitLookUp.h"

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"

namespace tavrine {

namespace {

/// Whether the text is the sign of a sum, and nothing that a user brought along makes it more than that. No name of the
/// vocabulary is or begins with one, so that sums are reckoned without the words of units, as long as nobody needed
/// these before.
bool isNothingButSign(std::string_view text, const PassContext& context) {
  constexpr std::string_view kSigns = "+-*/^=()";
  if (text.size() != 1 || kSigns.find(text.front()) == std::string_view::npos) return false;
  return !context.content.unitList.isBuilt() && context.customization.customUnits().empty() &&
         context.customization.currencySymbolSettings().symbols() == nullptr;
}

}  // namespace

bool mayBeOrBeginUnit(const HashedWord& word, const PassContext& context) {
  if (isNothingButSign(word.text, context)) return false;
  return context.content.unitList->cache().mayMeanSomething(word);
}

std::optional<TCUnit> unitNamed(const HashedWord& name, const PassContext& context) {
  if (isNothingButSign(name.text, context)) return std::nullopt;
  return context.content.unitList->quickLookup(name);
}

bool beginsMultiWordUnit(const HashedWord& word, const PassContext& context) {
  if (isNothingButSign(word.text, context)) return false;
  return context.content.unitList->beginsMultiWordUnit(word);
}

TCUnit preferredUnitFor(const TCUnit& unit, const PassContext& context) {
  return context.content.unitList->preferredUnitFor(unit);
}

bool isCurrencySubstitution(std::string_view symbol, const PassContext& context) {
  return context.content.unitList->isCurrencySubstitution(symbol);
}

}  // namespace tavrine
