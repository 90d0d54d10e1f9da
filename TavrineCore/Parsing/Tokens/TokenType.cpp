#include "TavrineCore/Parsing/Tokens/TokenType.h"

#include <algorithm>

namespace tavrine {

namespace {

constexpr std::array<std::string_view, kTokenTypeCount> kTypeNames = {
#define TOKEN_TYPE(name, text) text,
#include "TavrineCore/Parsing/Tokens/TokenType.def"
};

constexpr std::array<std::string_view, kTokenSubTypeCount> kSubTypeNames = {
#define TOKEN_SUB_TYPE(name, text) text,
#include "TavrineCore/Parsing/Tokens/TokenSubType.def"
};

template <typename Enum, std::size_t n>
std::optional<Enum> named(const std::array<std::string_view, n>& names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<Enum>(found - names.begin());
}

}  // namespace

std::string_view toString(TokenType type) { return kTypeNames[static_cast<std::size_t>(type)]; }
std::string_view toString(TokenSubType subType) { return kSubTypeNames[static_cast<std::size_t>(subType)]; }

std::optional<TokenType> tokenTypeNamed(std::string_view name) { return named<TokenType>(kTypeNames, name); }
std::optional<TokenSubType> tokenSubTypeNamed(std::string_view name) {
  return named<TokenSubType>(kSubTypeNames, name);
}

}  // namespace tavrine
