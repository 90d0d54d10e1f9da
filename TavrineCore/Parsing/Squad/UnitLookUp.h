#pragma once

#include <optional>
#include <string_view>

#include "Foundation/HashedWord.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {

struct PassContext;

/// False for most words that are no unit and begin none.
bool mayBeOrBeginUnit(const HashedWord& word, const PassContext& context);

/// The unit of this name or symbol in the vocabulary of the line; nothing where the vocabulary holds no units.
std::optional<TCUnit> unitNamed(const HashedWord& name, const PassContext& context);

/// Whether a unit's name of several words may begin with this one.
bool beginsMultiWordUnit(const HashedWord& word, const PassContext& context);

/// The unit that goes by the same name in the customization's system: the imperial pint for the pint.
TCUnit preferredUnitFor(const TCUnit& unit, const PassContext& context);

/// Whether the user has put `symbol` in the place of a currency's own.
bool isCurrencySubstitution(std::string_view symbol, const PassContext& context);

}  // namespace tavrine
