#pragma once

#include <optional>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// Symbols that several units are shown with.
struct UnitClashes {
  /// The unit that the symbol means when it is typed; nothing for a symbol that nobody quarrels about.
  static std::optional<UnitIdentifier> unitIdentifierFor(std::string_view symbol);
};

}  // namespace tavrine
