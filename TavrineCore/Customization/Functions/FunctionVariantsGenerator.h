#pragma once

#include <vector>

#include "TavrineCore/Customization/Functions/Function.h"

namespace tavrine {

/// Says a phrase in other words: "annual repayment on 10" as "yearly payment on 10" too.
struct FunctionVariantsGenerator {
  /// The function itself, first, and its variants.
  [[nodiscard]] static std::vector<Function> variantsOf(const Function& function);
};

}  // namespace tavrine
