#pragma once

#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// Says a phrase in other words: "annual repayment on 10" as "yearly payment on 10" too.
struct FunctionVariantsGenerator {
  /// Appends the function itself, and what its phrase looks like with other words around it, what holds it first:
  /// questions about the weather may name the place and the day in many ways.
  static void appendFormsOf(const Function& function, std::vector<Function>& forms);
  /// The function itself, first, and its variants with other words.
  [[nodiscard]] static std::vector<Function> variantsOf(const Function& function);
  /// Each word that may stand for another: `visit(word, original)`, where the phrases are written with `original`.
  static void forEachReplacement(FunctionRef<void(std::string_view word, std::string_view original)> visit);
};

}  // namespace tavrine
