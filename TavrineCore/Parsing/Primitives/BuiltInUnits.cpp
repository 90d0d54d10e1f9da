#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Parsing/Primitives/Units/AngleUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/AreaUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/CurrencyUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/DataStorageUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/DataTransferUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/ElectricUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/EnergyUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/ForceUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/FuelUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/LengthUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/LightAndScreenUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/MagneticUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/MassUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/MotionUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/SubstanceUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/TemperatureUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/TimeUnits.h"
#include "TavrineCore/Parsing/Primitives/Units/VolumeUnits.h"

namespace tavrine {

namespace {

using units::UnitCoefficient;
using units::UnitRow;

constexpr auto kTables = [] {
  using namespace units;
  return std::to_array<std::span<const UnitRow>>({
      kLengthUnits,
      kAreaUnits,
      kVolumeUnits,
      kMassUnits,
      kDurationUnits,
      kFrequencyUnits,
      kPeriodUnits,
      kFramesUnits,
      kFrameRateUnits,
      kSpeedUnits,
      kAccelerationUnits,
      kAngleUnits,
      kAngularVelocityUnits,
      kForceUnits,
      kPressureUnits,
      kTorqueUnits,
      kEnergyUnits,
      kPowerUnits,
      kFuelConsumptionUnits,
      kFuelEconomyUnits,
      kAmountOfSubstanceUnits,
      kConcentrationMassUnits,
      kSubstanceConcentraionUnits,
      kDispersionUnits,
      kElectricChargeUnits,
      kElectricCurrentUnits,
      kElectricPotentialUnits,
      kElectricResistanceUnits,
      kElectricConductanceUnits,
      kElectricalInductanceUnits,
      kElectricalCapacitanceUnits,
      kMagneticFluxUnits,
      kMagneticFluxDensityUnits,
      kTemperatureUnits,
      kDataStorageUnits,
      kDataTransferUnits,
      kIlluminanceUnits,
      kScreenDensityUnits,
      kCurrencyUnits,
  });
}();

constexpr UnitTypeSet kProductTypes = {
    UnitType::area,           UnitType::volume,
    UnitType::energy,         UnitType::force,
    UnitType::torque,         UnitType::electricPotential,
    UnitType::electricCharge, UnitType::electricalInductance,
    UnitType::power,          UnitType::magneticFlux,
};
constexpr UnitTypeSet kPerStyleTypes = {
    UnitType::dataTransfer,
    UnitType::speed,
    UnitType::electricResistance,
    UnitType::electricConductance,
    UnitType::electricalCapacitance,
    UnitType::magneticFluxDensity,
    UnitType::acceleration,
    UnitType::pressure,
    UnitType::concentrationMass,
    UnitType::substanceConcentraion,
    UnitType::frequency,
    UnitType::frameRate,
    UnitType::angularVelocity,
    UnitType::fuelConsumption,
    UnitType::fuelEconomy,
};
constexpr UnitTypeSet kElectricalTypes = {
    UnitType::electricCharge,       UnitType::electricCurrent,       UnitType::electricResistance,
    UnitType::electricalInductance, UnitType::electricalCapacitance, UnitType::electricPotential,
};

Decimal decimalOf(std::string_view text) {
  const std::optional<Decimal> value = Decimal::parse(text);
  assert(value.has_value() && "the tables hold decimal text alone");
  return *value;
}

Decimal valueOf(const UnitCoefficient& coefficient) {
  Decimal value = decimalOf(coefficient.text) * decimalOf(coefficient.factor);
  for (int i = 0; i < coefficient.powerOfTwo; ++i) value *= 2;
  return value / decimalOf(coefficient.divisor);
}

using UnitsByIdentifier = std::array<TCUnit, kUnitIdentifierCount>;

// All at once, on first use: afterwards every reader finds its unit by index, without a lock.
const UnitsByIdentifier& builtInUnits() {
  static const UnitsByIdentifier& all = []() -> const UnitsByIdentifier& {
    auto& made = *new UnitsByIdentifier;
    for (const std::span<const UnitRow> table : kTables) {
      for (const UnitRow& row : table) {
        made[static_cast<std::size_t>(row.identifier)] =
            TCUnit::permanent({.identifier = row.identifier,
                               .unitType = unitTypeOf(row.identifier),
                               .symbol = std::string(row.symbol),
                               .converter = {valueOf(row.coefficient), decimalOf(row.constant)},
                               .unitDescription = nullptr});
      }
    }
    return made;
  }();
  return all;
}

UnitIdentifier conversionBaseOf(UnitType type) {
  using enum UnitType;
  switch (type) {
    case acceleration:
      return UnitIdentifier::metersPerSecondSquared;
    case amountOfSubstance:
      return UnitIdentifier::moles;
    case angle:
      return UnitIdentifier::degrees;
    case angularVelocity:
      return UnitIdentifier::radiansPerSecond;
    case area:
      return UnitIdentifier::squareMeters;
    case concentrationMass:
      return UnitIdentifier::gramsPerLiter;
    case currency:
      return UnitIdentifier::currencyUSD;
    case dataStorage:
      return UnitIdentifier::bytes;
    case dataTransfer:
      return UnitIdentifier::bytesPerSecond;
    case dispersion:
      return UnitIdentifier::partsPerMillion;
    case duration:
      return UnitIdentifier::seconds;
    case electricCharge:
      return UnitIdentifier::coulombs;
    case electricCurrent:
      return UnitIdentifier::amperes;
    case electricPotential:
      return UnitIdentifier::volts;
    case electricResistance:
      return UnitIdentifier::ohms;
    case electricConductance:
      return UnitIdentifier::siemens;
    case electricalInductance:
      return UnitIdentifier::henrys;
    case electricalCapacitance:
      return UnitIdentifier::farads;
    case magneticFlux:
      return UnitIdentifier::webers;
    case magneticFluxDensity:
      return UnitIdentifier::teslas;
    case energy:
      return UnitIdentifier::joules;
    case force:
      return UnitIdentifier::newtons;
    case frameRate:
      return UnitIdentifier::framesPerSecond;
    case frames:
      return UnitIdentifier::frames;
    case frequency:
      return UnitIdentifier::hertz;
    case fuelConsumption:
      return UnitIdentifier::litersPerKilometer;
    case fuelEconomy:
      return UnitIdentifier::kilometersPerLiter;
    case illuminance:
      return UnitIdentifier::lux;
    case length:
      return UnitIdentifier::meters;
    case mass:
      return UnitIdentifier::kilograms;
    case period:
      return UnitIdentifier::cycles;
    case power:
      return UnitIdentifier::watts;
    case pressure:
      return UnitIdentifier::pascals;
    case screenDensity:
      return UnitIdentifier::ppi;
    case speed:
      return UnitIdentifier::metersPerSecond;
    case substanceConcentraion:
      return UnitIdentifier::molar;
    case temperature:
      return UnitIdentifier::kelvin;
    case torque:
      return UnitIdentifier::newtonMeters;
    case volume:
      return UnitIdentifier::cubicMeters;
    case other:
      return UnitIdentifier::undefined;
  }
  return UnitIdentifier::undefined;
}

}  // namespace

const TCUnit& TCUnitFor(UnitIdentifier identifier) { return builtInUnits()[static_cast<std::size_t>(identifier)]; }

const TCUnit& unitOf(UnitIdentifier identifier) {
  if (unitTypeOf(identifier) == UnitType::currency || identifier == UnitIdentifier::undefined) return genericUnit();
  return TCUnitFor(identifier);
}

const TCUnit& genericUnit() {
  static const TCUnit& generic =
      *new TCUnit(TCUnit::permanent({.symbol = "", .converter = {}, .unitDescription = nullptr}));
  return generic;
}

const TCUnit& baseUnitOf(UnitType type) {
  const UnitIdentifier base = conversionBaseOf(type);
  return base == UnitIdentifier::undefined ? genericUnit() : TCUnitFor(base);
}

const TCUnit& baseUnitOf(const TCUnit& unit) { return unit.isNull() ? unit : baseUnitOf(unit.unitType()); }

bool haveEqualBaseUnits(const TCUnit& unit1, const TCUnit& unit2) {
  return unit1.unitType() == unit2.unitType() && unit1.isNull() == unit2.isNull();
}

bool isXTimesYUnit(const TCUnit& unit) { return kProductTypes.contains(unit.unitType()); }
bool isXPerYUnit(const TCUnit& unit) { return kPerStyleTypes.contains(unit.unitType()); }
bool isElectrical(const TCUnit& unit) { return kElectricalTypes.contains(unit.unitType()); }

}  // namespace tavrine
