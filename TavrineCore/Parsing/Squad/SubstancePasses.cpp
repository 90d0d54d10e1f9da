// Things to cook with: "flour", "olive oil".

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "TavrineCore/Customization/Units/SubstanceList.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::passes {

namespace {

void replaceBySubstance(TokenList& list, const TokenSlice& slice, Substance substance) {
  list.replace(slice, TokenType::substance, std::make_shared<const SubstanceTokenMetadata>(std::move(substance)));
}

/// "baking powder" rather than a word of it.
bool wrapMultiWordSubstanceAt(TokenList& list, std::size_t index) {
  const auto* candidates = SubstanceList::multiWordSubstancesBeginningWith(list[index].word());
  if (candidates == nullptr) return false;
  for (const Substance& candidate : *candidates) {
    if (const auto slice = list.sliceBeginningWith(list[index], candidate.name)) {
      replaceBySubstance(list, *slice, candidate);
      return true;
    }
  }
  return false;
}

}  // namespace

void identifySubstancesIn(TokenList& list, const PassContext&) {
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!TokenTypeSet::typesInSubstances.contains(list[i].type) || !SubstanceList::mayKnow(list[i].word())) continue;
    if (wrapMultiWordSubstanceAt(list, i)) continue;
    // A unit stays one, unless a rate behind it says so much of what there is per what.
    const bool mayBeSubstance = list[i].is(TokenType::unidentified) ||
                                list.tokenAfterMustBe(i, TokenType::rate, /*ignoreWhitespace=*/true) != nullptr;
    if (!mayBeSubstance) continue;
    if (std::optional<Substance> substance = SubstanceList::runQuery(list[i].word())) {
      replaceBySubstance(list, list.slice(i, i), *std::move(substance));
    }
  }
}

}  // namespace tavrine::passes
