#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A unit of the user's own: one `name` is `definition` times `equivalentUnit`.
struct CustomUnit {
  std::string name;
  Decimal definition;
  UnitIdentifier equivalentUnit = UnitIdentifier::undefined;
  /// The definition as text, from documents of an older form.
  std::optional<std::string> legacyDefinition = std::nullopt;

  [[nodiscard]] std::size_t hash() const { return hashOf(name, definition, equivalentUnit, legacyDefinition); }
  friend bool operator==(const CustomUnit&, const CustomUnit&) = default;
};

}  // namespace tavrine
