#pragma once

#include <utility>
#include <vector>

#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"

namespace tavrine {

/// The phrases of the built-in functions that a customization knows. Read-only, shared between threads.
class FunctionList {
 public:
  explicit FunctionList(std::vector<Function> functions, PhraseWordings wordings = {})
      : numericalKeywordMapper_(std::move(functions), wordings) {}

  /// Without their other wordings. By rank: of two phrases that end at the same word, the one that stands first here
  /// counts.
  [[nodiscard]] const std::vector<Function>& functions() const { return numericalKeywordMapper_.indexedFunctions(); }
  [[nodiscard]] const NumericalFunctionKeywords& numericalKeywordMapper() const { return numericalKeywordMapper_; }

 private:
  NumericalFunctionKeywords numericalKeywordMapper_;
};

}  // namespace tavrine
