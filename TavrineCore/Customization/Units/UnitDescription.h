#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// An entry of the unit vocabulary: the words that mean a unit.
struct UnitDescription {
  /// What is shown behind a number.
  std::string symbol;
  /// Every word that means the unit, plurals included.
  std::vector<std::string> aliases;
  UnitIdentifier associatedUnitIdentifier = UnitIdentifier::undefined;
  /// How many of the identified unit one of these is; absent means 1.
  std::optional<Decimal> equivalence = std::nullopt;
  bool representsCustomUnit = false;

  /// The built-in unit that this is another word for; nothing where it is a multiple of one, or money other than the
  /// US dollar.
  [[nodiscard]] std::optional<TCUnit> associatedUnit() const;
  /// `equivalence` or 1.
  [[nodiscard]] Decimal equivalenceOrOne() const { return equivalence.value_or(Decimal(1)); }

  [[nodiscard]] std::size_t hash() const {
    return hashCombine(hashOf(symbol, associatedUnitIdentifier, equivalence, representsCustomUnit),
                       hashOfRange(aliases));
  }
  friend bool operator==(const UnitDescription&, const UnitDescription&) = default;
};

/// More words for a unit, from a list of its own: the identifier is a raw name.
struct UnitShorthand {
  std::vector<std::string> aliases;
  std::string identifier;

  friend bool operator==(const UnitShorthand&, const UnitShorthand&) = default;
};

}  // namespace tavrine
