#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

struct UnitDescription;

/// A unit of the user's own: one `name` is `definition` times `equivalentUnit`.
struct CustomUnit {
  std::string name;
  Decimal definition;
  UnitIdentifier equivalentUnit = UnitIdentifier::undefined;
  /// The definition as text, from documents of an older form.
  std::optional<std::string> legacyDefinition = std::nullopt;

  /// Its entry in the vocabulary: the name alone means it.
  [[nodiscard]] UnitDescription unitDescription() const;
  /// The unit itself, `unit` being the one that `equivalentUnit` names.
  [[nodiscard]] TCUnit unitValueDefinedInTermsOf(const TCUnit& unit) const;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, definition, equivalentUnit, legacyDefinition); }
  friend bool operator==(const CustomUnit&, const CustomUnit&) = default;
};

}  // namespace tavrine
