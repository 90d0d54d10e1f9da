#include "TavrineCore/Parsing/Primitives/UnitRelations.h"

#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/Units/UnitRelationTables.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

namespace {

using Mapping = UnitRelations::Mapping;

/// The key of a product: an ordered pair.
struct UnitMultiplicationPair {
  TCUnit unit1, unit2;

  [[nodiscard]] std::size_t hash() const { return hashOf(unit1, unit2); }
  friend bool operator==(const UnitMultiplicationPair&, const UnitMultiplicationPair&) = default;
};

struct Parts {
  TCUnit numerator, denominator;
};

std::vector<Mapping> makeMappings() {
  std::vector<Mapping> mappings;
  const auto add = [&mappings](UnitIdentifier unit1, UnitIdentifier unit2, UnitIdentifier product) {
    mappings.push_back({unitOf(unit1), unitOf(unit2), unitOf(product)});
  };
  for (const units::PowerRow& row : units::kPowers) add(row.length, row.length, row.square);
  for (const units::PowerRow& row : units::kPowers) add(row.square, row.length, row.cube);
  for (const units::ProductRow& row : units::kProducts) add(row.unit1, row.unit2, row.product);
  for (const units::DataRow& row : units::kDataTransfers) add(row.transfer, UnitIdentifier::seconds, row.storage);
  return mappings;
}

const TCUnit* productIn(const TCUnit& unit1, const TCUnit& unit2) {
  static const auto& products = *[] {
    auto* byPair = new std::unordered_map<UnitMultiplicationPair, TCUnit>;
    for (const Mapping& m : UnitRelations::mappings())
      byPair->emplace(UnitMultiplicationPair{m.unit1, m.unit2}, m.product);
    return byPair;
  }();
  const auto found = products.find({unit1, unit2});
  return found == products.end() ? nullptr : &found->second;
}

/// The mappings that give `product`, in their order.
const std::vector<Mapping>& mappingsTo(const TCUnit& product) {
  static const auto& byProduct = *[] {
    auto* grouped = new std::unordered_map<TCUnit, std::vector<Mapping>>;
    for (const Mapping& m : UnitRelations::mappings()) (*grouped)[m.product].push_back(m);
    return grouped;
  }();
  static const auto& none = *new std::vector<Mapping>;
  const auto found = byProduct.find(product);
  return found == byProduct.end() ? none : found->second;
}

const Parts* partsOf(const TCUnit& perStyleUnit) {
  static const auto& parts = *[] {
    auto* byUnit = new std::unordered_map<TCUnit, Parts>;
    for (const units::PerStyleRow& row : units::kPerStyleUnits) {
      byUnit->emplace(unitOf(row.unit), Parts{unitOf(row.numerator), unitOf(row.denominator)});
    }
    for (const units::DataRow& row : units::kDataTransfers) {
      byUnit->emplace(unitOf(row.transfer), Parts{unitOf(row.storage), unitOf(UnitIdentifier::seconds)});
    }
    return byUnit;
  }();
  if (!isXPerYUnit(perStyleUnit)) return nullptr;
  const auto found = parts.find(perStyleUnit);
  return found == parts.end() ? nullptr : &found->second;
}

bool isMoney(const TCUnit& unit) { return unit.unitType() == UnitType::currency; }

}  // namespace

const std::vector<Mapping>& UnitRelations::mappings() {
  static const auto& all = *new std::vector<Mapping>(makeMappings());
  return all;
}

std::optional<TCUnit> UnitRelations::productUnitFor(const TCUnit& unit1, const TCUnit& unit2) {
  if (const TCUnit* product = productIn(unit1, unit2)) return *product;
  if (const TCUnit* product = productIn(unit2, unit1)) return *product;
  if (isMoney(unit2)) return unit2;
  if (isMoney(unit1)) return unit1;
  return std::nullopt;
}

std::optional<TCUnit> UnitRelations::divisionUnitFor(const TCUnit& numeratorUnit, const TCUnit& denomenatorUnit) {
  for (const Mapping& m : mappingsTo(numeratorUnit)) {
    if (m.unit1 == denomenatorUnit) return m.unit2;
    if (m.unit2 == denomenatorUnit) return m.unit1;
  }
  return std::nullopt;
}

std::optional<TCUnit> UnitRelations::squareRootUnitFor(const TCUnit& unit) {
  for (const Mapping& m : mappingsTo(unit)) {
    if (m.unit1 == m.unit2) return m.unit1;
  }
  return std::nullopt;
}

std::optional<TCUnit> UnitRelations::cubeRootUnitFor(const TCUnit& unit) {
  for (const Mapping& m : mappingsTo(unit)) {
    if (squareRootUnitFor(m.unit1) == m.unit2) return m.unit2;
    if (squareRootUnitFor(m.unit2) == m.unit1) return m.unit1;
  }
  return std::nullopt;
}

std::optional<UnitRelations::Quotient> UnitRelations::formUnitExpressionInDivision(const TCUnit& numerator,
                                                                                   const TCUnit& denominator) {
  bool mayBePlain = isXTimesYUnit(numerator) || isXPerYUnit(numerator) || isXPerYUnit(denominator);
  // Square meters per second are a progress, not meters times a speed. Energy by time is the power it looks like, and
  // the electrical kinds are made to be divided by time.
  if (isXTimesYUnit(numerator) && denominator.unitType() == UnitType::duration && !isElectrical(numerator)) {
    mayBePlain = numerator.unitType() == UnitType::energy;
  }
  if (mayBePlain) {
    if (const auto unit = divisionUnitFor(numerator, denominator)) return Quotient{*unit, false, std::nullopt};
    if (const auto unit = divisionUnitFor(baseUnitOf(numerator), baseUnitOf(denominator))) {
      return Quotient{*unit, true, std::nullopt};
    }
  }
  if (numerator.identifier() == UnitIdentifier::pixel && denominator.identifier() == UnitIdentifier::inches) {
    return Quotient{unitOf(UnitIdentifier::ppi), false, std::nullopt};
  }
  return std::nullopt;
}

std::optional<UnitRelations::Quotient> UnitRelations::formRateInDivision(const TCUnit& numerator,
                                                                         const TCUnit& denominator) {
  if (!isXTimesYUnit(denominator)) return std::nullopt;
  if (const auto unit = divisionUnitFor(denominator, numerator)) return Quotient{*unit, false, std::nullopt};

  const auto unit = divisionUnitFor(baseUnitOf(denominator), baseUnitOf(numerator));
  if (!unit) return std::nullopt;
  // "1 m / 2 ft²" comes out per meter, but who writes square feet wants it per foot.
  for (const Mapping& m : mappingsTo(denominator)) {
    if (baseUnitOf(m.unit1) == *unit) return Quotient{*unit, true, m.unit1};
    if (baseUnitOf(m.unit2) == *unit) return Quotient{*unit, true, m.unit2};
  }
  return Quotient{*unit, true, std::nullopt};
}

std::vector<TCUnit> UnitRelations::componentsOf(const TCUnit& xTimesYUnit) {
  if (!isXTimesYUnit(xTimesYUnit)) return {};
  for (const Mapping& m : mappingsTo(xTimesYUnit)) {
    if (!isXPerYUnit(m.unit1) && !isXPerYUnit(m.unit2)) return {m.unit1, m.unit2};
  }
  return {};
}

std::optional<TCUnit> UnitRelations::numeratorOf(const TCUnit& perStyleUnit) {
  const Parts* parts = partsOf(perStyleUnit);
  return parts == nullptr ? std::nullopt : std::optional(parts->numerator);
}

std::optional<TCUnit> UnitRelations::denomenatorOf(const TCUnit& perStyleUnit) {
  const Parts* parts = partsOf(perStyleUnit);
  return parts == nullptr ? std::nullopt : std::optional(parts->denominator);
}

std::optional<TCUnit> UnitRelations::reciprocalOf(const TCUnit& unit) {
  for (const units::ReciprocalRow& row : units::kReciprocals) {
    if (unit == unitOf(row.unit1)) return unitOf(row.unit2);
    if (unit == unitOf(row.unit2)) return unitOf(row.unit1);
  }
  return std::nullopt;
}

std::optional<UnitRate> UnitRelations::cycleValueFor(const UnitExpression& unitExpression) {
  // Kilohertz are no pair of units themselves, but hertz are. Where the unit is a pair its parts are exact, and a
  // revolution per minute is not, in radians: so the base unit of the kind is only asked second.
  UnitExpression quantity = unitExpression;
  if (!numeratorOf(quantity.unit)) {
    quantity = {valueInBaseUnit(unitExpression), baseUnitOf(unitExpression.unit)};
  }
  const std::optional<UnitRate> rate = rateValueOf(quantity.unit);
  if (!rate || !rate->ofUnit || rate->perUnit.unitType() != UnitType::duration) return std::nullopt;

  const TCUnit& counted = *rate->ofUnit;
  const Decimal perSecond = quantity.value * rate->value / baseUnitValueOf(rate->perUnit);
  const TCUnit& revolutions = unitOf(UnitIdentifier::revolutions);
  const TCUnit& seconds = unitOf(UnitIdentifier::seconds);
  if (counted.unitType() == UnitType::period) return UnitRate{perSecond, revolutions, seconds};
  if (counted.identifier() == UnitIdentifier::radians) {
    return UnitRate{perSecond / DDDecimal2Pi(), revolutions, seconds};
  }
  if (counted.unitType() == UnitType::angle) {
    return UnitRate{perSecond * counted.coefficient() / revolutions.coefficient(), revolutions, seconds};
  }
  return std::nullopt;
}

bool UnitRelations::ratesAreReciprocal(const UnitRate& rate1, const UnitRate& rate2) {
  if (!rate1.ofUnit || !rate2.ofUnit) return false;
  if (haveEqualBaseUnits(*rate1.ofUnit, rate1.perUnit) || haveEqualBaseUnits(*rate2.ofUnit, rate2.perUnit))
    return false;
  return haveEqualBaseUnits(*rate1.ofUnit, rate2.perUnit) && haveEqualBaseUnits(*rate2.ofUnit, rate1.perUnit);
}

bool UnitRelations::unitsCancel(const TCUnit& unit1, const TCUnit& unit2) {
  if (productUnitFor(unit1, unit1) == unit2) return true;
  for (const TCUnit& component : componentsOf(unit2)) {
    if (haveEqualBaseUnits(component, unit1)) return true;
  }
  return false;
}

std::optional<TCUnit> UnitRelations::largerOf(const TCUnit& unit1, const TCUnit& unit2) {
  if (!haveEqualBaseUnits(unit1, unit2)) return std::nullopt;
  return unit1.coefficient() < unit2.coefficient() ? unit2 : unit1;
}

bool UnitRelations::mayGenerouslyConisiderUnitsToBeEquivalent(const TCUnit& unit1, const TCUnit& unit2) {
  const UnitType type1 = unit1.unitType();
  const UnitType type2 = unit2.unitType();
  return (type1 == UnitType::torque && type2 == UnitType::energy) ||
         (type1 == UnitType::energy && type2 == UnitType::torque);
}

}  // namespace tavrine
