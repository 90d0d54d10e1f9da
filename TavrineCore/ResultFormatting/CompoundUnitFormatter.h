#pragma once

#include <optional>
#include <string>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Locale;
}

namespace tavrine {

struct UnitExpression;

/// Shows lengths as "5 ft 3 in" and masses as "5 lb 4 oz".
class CompoundUnitFormatter {
 public:
  /// The text of feet, inches, pounds or ounces that ask for it (`prefersCompoundUnitFormatting`), with at most three
  /// places in the smaller unit; "5 ft" or "3 in" where the other part is zero. Nothing for all other amounts and for
  /// zero. Both parts of a negative amount have the sign: "-5 ft -3 in".
  [[nodiscard]] static std::optional<std::string> format(const UnitExpression& unitExpression, const Locale& locale);
};

}  // namespace tavrine
