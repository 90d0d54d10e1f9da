#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

/// The name of a unit that the engine knows by itself; `undefined` for units that a user or a line makes.
enum class UnitIdentifier : std::uint16_t {
#define UNIT_IDENTIFIER(name, type) name,
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.def"
};

inline constexpr std::size_t kUnitIdentifierCount = 0
#define UNIT_IDENTIFIER(name, type) +1
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.def"
    ;
static_assert(kUnitIdentifierCount == 513);

using UnitIdentifierSet = EnumSet<UnitIdentifier, kUnitIdentifierCount>;

/// The raw name: "meters", "currencyUSD".
std::string_view toString(UnitIdentifier identifier);

/// The identifier with this raw name, if there is one.
std::optional<UnitIdentifier> unitIdentifierNamed(std::string_view name);

/// The kind of the identifier's unit: `meters` is a `length`, `undefined` is `other`.
UnitType unitTypeOf(UnitIdentifier identifier);

}  // namespace tavrine
