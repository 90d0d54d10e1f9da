#pragma once

#include <optional>
#include <vector>

#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// How units multiply and divide into other units. Units are found by `==`, so that those of the vocabulary serve as
/// well as the built-in ones.
class UnitRelations {
 public:
  /// unit1 and unit2 are the factors of `product`, in this order.
  struct Mapping {
    TCUnit unit1, unit2, product;
  };
  /// All of them in the order in which they are looked through.
  static const std::vector<Mapping>& mappings();

  /// Meters and meters give square meters; money times anything stays money. Only what holds of these very units:
  /// kilometers and meters have no product.
  static std::optional<TCUnit> productUnitFor(const TCUnit& unit1, const TCUnit& unit2);

  /// The other factor of the numerator: kilometers over kilometers per hour are hours.
  static std::optional<TCUnit> divisionUnitFor(const TCUnit& numeratorUnit, const TCUnit& denomenatorUnit);

  /// Square meters give meters, cubic meters too.
  static std::optional<TCUnit> squareRootUnitFor(const TCUnit& unit);
  static std::optional<TCUnit> cubeRootUnitFor(const TCUnit& unit);

  /// What a quotient is measured in, and how to get there.
  struct Quotient {
    TCUnit unit;
    /// The values are to be taken in their base units, for `unit` belongs to those.
    bool convertToBase = false;
    /// The unit to show in the end, where the operands suggest one.
    std::optional<TCUnit> preferredFinalUnit;
  };

  /// The unit of a quotient that is a plain quantity: energy by time is power, but area by time is a rate.
  static std::optional<Quotient> formUnitExpressionInDivision(const TCUnit& numerator, const TCUnit& denominator);

  /// The unit that a quotient is per, where the denominator holds the numerator as a factor: meters by square meters
  /// are per meter.
  static std::optional<Quotient> formRateInDivision(const TCUnit& numerator, const TCUnit& denominator);

  /// The two factors of a product unit; empty for all others, and where a factor would be a rate itself.
  static std::vector<TCUnit> componentsOf(const TCUnit& xTimesYUnit);

  /// The parts of a unit such as miles per hour: miles, and hours.
  static std::optional<TCUnit> numeratorOf(const TCUnit& perStyleUnit);
  static std::optional<TCUnit> denomenatorOf(const TCUnit& perStyleUnit);

  /// Hertz for seconds, siemens for ohms, and back.
  static std::optional<TCUnit> reciprocalOf(const TCUnit& unit);

  /// Hertz, revolutions per time and angles per time, all as revolutions per second.
  static std::optional<UnitRate> cycleValueFor(const UnitExpression& unitExpression);

  /// Whether the rates' kinds are each other turned over: km / h and h / mi, but not m / m.
  static bool ratesAreReciprocal(const UnitRate& rate1, const UnitRate& rate2);

  /// Whether unit1 is a factor of unit2.
  static bool unitsCancel(const TCUnit& unit1, const TCUnit& unit2);

  /// The one with the larger coefficient, the first of equals; nothing for different kinds.
  static std::optional<TCUnit> largerOf(const TCUnit& unit1, const TCUnit& unit2);

  /// Torque and energy, which have the same dimensions.
  static bool mayGenerouslyConisiderUnitsToBeEquivalent(const TCUnit& unit1, const TCUnit& unit2);
};

}  // namespace tavrine
