#pragma once

#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// What the call of a phrase comes to, built-in or a host's: `pending` or `failed` where an argument is that, the blank
/// token where there is no answer. An exception of a host's block becomes `failed`.
[[nodiscard]] Token evaluateWordFunction(const Token& token);

/// What stood at the gaps of the phrase, evaluated, in order; none for a token that is no such call.
[[nodiscard]] std::vector<Token> builtInArgumentsOf(const Token& call);
[[nodiscard]] std::vector<EvaluationResult> customArgumentsOf(const Token& call);

}  // namespace tavrine
