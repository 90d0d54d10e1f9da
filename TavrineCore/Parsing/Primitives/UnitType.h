#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

enum class UnitIdentifier : std::uint16_t;

/// The physical kind of a unit; `other` for units of no known kind.
enum class UnitType : std::uint8_t {
#define UNIT_TYPE(name, label, base) name,
#include "TavrineCore/Parsing/Primitives/UnitType.def"
};

inline constexpr std::size_t kUnitTypeCount = 0
#define UNIT_TYPE(name, label, base) +1
#include "TavrineCore/Parsing/Primitives/UnitType.def"
    ;
static_assert(kUnitTypeCount == 40);

using UnitTypeSet = EnumSet<UnitType, kUnitTypeCount>;

/// The raw name: "length", "dataStorage".
std::string_view toString(UnitType type);

/// The kind with this raw name, if there is one.
std::optional<UnitType> unitTypeNamed(std::string_view name);

/// The name shown to a user: "Length"; "Undefined" for kinds that are not offered for choice.
std::string_view labelOf(UnitType type);

/// The unit that stands for the kind where one is to be shown. Mostly the unit that conversions go through, but
/// liters for volumes, and seconds where nothing fits.
UnitIdentifier baseUnitIdentifierOf(UnitType type);

}  // namespace tavrine
