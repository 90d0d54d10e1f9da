#pragma once

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// "x = 5 + 3" → the variable x that holds 8; "1 sprint = 2 weeks" → 2 weeks. The blank token for what is no
/// declaration.
[[nodiscard]] Token evaluateDeclaration(const Token& declaration);

/// "x = if a > 3 then 5 else 6" → the variable x with the value of the conditional.
[[nodiscard]] Token evaluateConditionalDeclaration(const Token& declaration);

}  // namespace tavrine
