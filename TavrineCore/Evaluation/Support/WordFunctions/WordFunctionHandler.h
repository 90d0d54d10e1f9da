#pragma once

#include <optional>
#include <span>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"

namespace tavrine {

class EngineCustomization;
class EvaluationResult;
class Token;

/// Computes what a family of built-in functions gives.
struct WordFunctionHandler {
  FunctionIdentifierSet handledFunctionIdentifiers;
  /// `arguments`: what stood at the gaps of the phrase, evaluated, in the order of the phrase. Nothing where the phrase
  /// has no answer: a wrong number or type of arguments among the reasons.
  std::optional<EvaluationResult> (*evaluate)(FunctionIdentifier identifier, std::span<const Token> arguments,
                                              const EngineCustomization& customization) = nullptr;
};

}  // namespace tavrine
