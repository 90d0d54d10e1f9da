#pragma once

#include <ostream>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

/// How tokens show up in the messages of failed tests.
namespace tavrine {

inline void PrintTo(const Token& token, std::ostream* out) { *out << describe(token); }
inline void PrintTo(const TokenList& list, std::ostream* out) { *out << describe(list); }

}  // namespace tavrine
