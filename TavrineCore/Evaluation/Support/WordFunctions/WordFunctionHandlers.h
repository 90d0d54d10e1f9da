#pragma once

#include <span>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

class EngineCustomization;
struct WordFunctionHandler;

/// The way from a built-in function to what computes it.
struct WordFunctionHandlers {
  /// Null for a function that nobody computes.
  [[nodiscard]] static const WordFunctionHandler* functionEvaluatorFor(FunctionIdentifier functionIdentifier);

  /// The answer as a token; the blank token where there is none.
  [[nodiscard]] static Token evaluate(FunctionIdentifier identifier, std::span<const Token> arguments,
                                      const EngineCustomization& customization);
};

}  // namespace tavrine
