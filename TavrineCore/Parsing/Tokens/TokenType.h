#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace tavrine {

/// What a token is: 90 kinds. The numbering is the order of TokenType.def.
enum class TokenType : std::uint8_t {
#define TOKEN_TYPE(name, text) name,
#include "TavrineCore/Parsing/Tokens/TokenType.def"
};

/// The finer kind of a token: 168 of them; `notSpecified` where there is none.
enum class TokenSubType : std::uint8_t {
#define TOKEN_SUB_TYPE(name, text) name,
#include "TavrineCore/Parsing/Tokens/TokenSubType.def"
};

inline constexpr std::size_t kTokenTypeCount = 0
#define TOKEN_TYPE(name, text) +1
#include "TavrineCore/Parsing/Tokens/TokenType.def"
    ;
inline constexpr std::size_t kTokenSubTypeCount = 0
#define TOKEN_SUB_TYPE(name, text) +1
#include "TavrineCore/Parsing/Tokens/TokenSubType.def"
    ;
static_assert(kTokenTypeCount == 90);
static_assert(kTokenSubTypeCount == 168);

/// The raw name: "number", "operator", ...
std::string_view toString(TokenType type);
std::string_view toString(TokenSubType subType);

/// The kind with this raw name, if there is one.
std::optional<TokenType> tokenTypeNamed(std::string_view name);
std::optional<TokenSubType> tokenSubTypeNamed(std::string_view name);

}  // namespace tavrine
