#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// The small tokens that an evaluation makes on its way, beside the values that TokenFactory makes. The blank token is
/// `Token()`.
namespace tavrine {

struct Place;

/// The token in which an error travels.
[[nodiscard]] Token errorToken(EvaluationError error);
/// For what only the background stage can answer.
[[nodiscard]] Token pendingToken();
/// For what the background stage couldn't answer.
[[nodiscard]] Token failedToken();
[[nodiscard]] Token operatorToken(TokenSubType subtype, std::string_view text);

/// The place of a zone. A zone without a place ("EST") is a place of its name; one that is nowhere in the line has
/// none.
[[nodiscard]] std::optional<Place> placeOfZone(const Token& timezone);

/// Whether this is the blank token, or one of its kind.
[[nodiscard]] inline bool isBlank(const Token& token) { return token.is(TokenType::unidentified); }

/// Whether the token counts as true: a boolean by itself, anything else by being worth a number other than 0.
[[nodiscard]] bool isTrue(const Token& token);

/// Whether the token is a number with a base of its own: binary, octal or hexadecimal.
[[nodiscard]] bool isInBase(const Token& token);

/// The nearest whole number in 64 bits without sign. A negative number is taken in two's complement, one beyond the
/// range at the range's end.
[[nodiscard]] std::uint64_t unsignedWhole(const Decimal& value);

/// A token of one of the three types of `isInBase`; nothing for another type.
[[nodiscard]] std::optional<Token> tokenInBase(TokenType base, std::uint64_t value);

}  // namespace tavrine
