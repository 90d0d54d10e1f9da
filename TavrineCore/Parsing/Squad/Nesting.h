#pragma once

#include <cstddef>

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// How many lists lie inside of one another below the token: 0 for a plain one.
std::size_t nestingOf(const Token& token);

}  // namespace tavrine
