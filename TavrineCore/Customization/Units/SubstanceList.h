#pragma once

#include <optional>
#include <vector>

#include "Foundation/HashedWord.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"

namespace tavrine {

/// The densities of what is cooked and baked with. Built once, read from any thread.
class SubstanceList {
 public:
  /// False for most words that are no substance and begin none.
  [[nodiscard]] static bool mayKnow(const HashedWord& word);
  /// The substance of exactly this name, in upper or lower case.
  [[nodiscard]] static std::optional<Substance> runQuery(const HashedWord& fragment);

  /// The substances whose names are of several words, divided by spaces or hyphens, the first of which is this one, in
  /// upper or lower case. Null when there are none.
  [[nodiscard]] static const std::vector<Substance>* multiWordSubstancesBeginningWith(
      const HashedWord& firstWordOfSubstance);
};

}  // namespace tavrine
