#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <variant>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// What is to be calculated with units, and with which operands.
struct UnitCalculation {
  enum class Case : std::uint8_t {
#define UNIT_CALCULATION(name, First, first, Second, second) name,
#include "TavrineCore/Evaluation/Support/UnitCalculation.def"
  };
  using Operand = std::variant<Decimal, UnitExpression, UnitRate, TCUnit>;

  /// One maker a case: `UnitCalculation::unitDivision({5, kilometers}, 2)`.
#define UNIT_CALCULATION(name, First, firstName, Second, secondName)              \
  [[nodiscard]] static UnitCalculation name(First firstName, Second secondName) { \
    return {Case::name, std::move(firstName), std::move(secondName)};             \
  }
#include "TavrineCore/Evaluation/Support/UnitCalculation.def"

  Case kind;
  Operand first;
  Operand second;
};

/// The one entry to everything that is calculated with units and rates. The answer may be of another kind than the
/// operands: a quotient may be a rate or a plain number.
class UnitCalculator {
 public:
  /// The units whose sums and parts are told as a duration: half of 3 hours is 1 hour and 30 minutes, of 3 seconds 1.5.
  static constexpr UnitIdentifierSet timespanFormingUnits{UnitIdentifier::minutes, UnitIdentifier::hours,
                                                          UnitIdentifier::days, UnitIdentifier::weeks};

  /// Nothing where the calculation doesn't apply to such units; what that means is the caller's to say. What applies
  /// and fails is an `error` result.
  [[nodiscard]] static std::optional<EvaluationResult> performUnitCalculation(const UnitCalculation& calculation);
};

}  // namespace tavrine
