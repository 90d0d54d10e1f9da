#pragma once

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// What the call of a phrase comes to, built-in or a host's: `pending` or `failed` where an argument is that, the blank
/// token where there is no answer. An exception of a host's block becomes `failed`.
[[nodiscard]] Token evaluateWordFunction(const Token& token);

}  // namespace tavrine
