#pragma once

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine::testing {

/// The built-in unit with this raw name: "kilometers".
TCUnit unitWithName(std::string_view rawName);

/// The evaluated token of a text such as "5", "5 kilometers", "$5" ("5 currencyUSD"), "5 kilometers / hours" (a rate),
/// "5 / hours", "5% / years", "5%", "3/4" ("f:0.75"), "2x", "A4", "pitch"…: what a parser would leave of it.
Token valueToken(std::string_view text);

/// The other way: "5 kilometers", "5 kilometers (compound)", "5 kilometers / hours", "decimal 5", "error UnitMismatch",
/// "none".
std::string describeValue(const Token& token);

}  // namespace tavrine::testing
