#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenSlice.h"

namespace tavrine {

class TokenList;

/// The left side of "2 sprints = 4 weeks".
struct UnitDeclarationComponents {
  TokenSlice unitNameSlice;
  std::optional<Decimal> unitValue;
};

/// A closed run of indices.
struct TokenRun {
  std::size_t first;
  std::size_t last;
};

/// "1 sprint = 2 weeks" → one `unitDeclaration` up to the end of the list, if the two sides declare a unit. Tells
/// whether they did.
bool identifyUnitDeclarationIn(TokenList& list, TokenRun name, TokenRun value);

}  // namespace tavrine
