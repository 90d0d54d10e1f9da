#pragma once

#include <optional>

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// Applies the functions that are called by name: "sqrt(16)".
class FunctionExpressionEvaluator {
 public:
  /// The value of a `functionExpression` whose subtokens are the name and the evaluated argument. An error as the
  /// argument is the answer. Nothing where there is no argument, or no function of that name.
  [[nodiscard]] static std::optional<Token> evaluateFunction(const Token& functionExpressionToken);
};

}  // namespace tavrine
