#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"

#include <algorithm>
#include <array>

#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::optional<TokenType> returnType;
};

constexpr std::array<Row, kFunctionIdentifierCount> makeRows() {
  using enum TokenType;
  constexpr std::nullopt_t unknown = std::nullopt;
  return {{
#define FUNCTION_IDENTIFIER(name, returnType) {#name, returnType},
#include "TavrineCore/Customization/Functions/FunctionIdentifier.def"
  }};
}

constexpr auto kRows = makeRows();

}  // namespace

std::string_view toString(FunctionIdentifier identifier) { return kRows[static_cast<std::size_t>(identifier)].name; }

std::optional<FunctionIdentifier> functionIdentifierNamed(std::string_view name) {
  const auto found = std::find_if(kRows.begin(), kRows.end(), [name](const Row& row) { return row.name == name; });
  if (found == kRows.end()) return std::nullopt;
  return static_cast<FunctionIdentifier>(found - kRows.begin());
}

std::optional<TokenType> returnTypeOf(FunctionIdentifier identifier) {
  return kRows[static_cast<std::size_t>(identifier)].returnType;
}

}  // namespace tavrine
