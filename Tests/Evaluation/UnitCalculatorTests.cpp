#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Evaluation/Support/UnitProducts.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"

namespace tavrine::testing {
namespace {

using enum UnitIdentifier;
using Make = UnitCalculation;

Decimal decimal(std::string_view text) { return *Decimal::parse(text); }

/// "5 km", "2.5 / km", "$5 / hr" as its symbols read, "decimal 3", "error UnitMismatch"; "nothing" for no result.
std::string textOf(const std::optional<EvaluationResult>& result) {
  if (!result) return "nothing";
  if (const auto* e = result->as<EvaluationResultCase::unitExpression>()) {
    return e->value.description() + " " + e->unit.symbol();
  }
  if (const auto* r = result->as<EvaluationResultCase::unitRate>()) {
    return r->value.description() + (r->ofUnit ? " " + r->ofUnit->symbol() : "") + " / " + r->perUnit.symbol();
  }
  return describeResult(*result);
}

const TCUnit& unit(UnitIdentifier identifier) { return TCUnitFor(identifier); }

UnitExpression of(std::string_view value, UnitIdentifier identifier) {
  return {decimal(value), unit(identifier), true};
}

UnitRate per(std::string_view value, std::optional<UnitIdentifier> ofUnit, UnitIdentifier perUnit) {
  return {decimal(value), ofUnit ? std::optional(unit(*ofUnit)) : std::nullopt, unit(perUnit)};
}

struct Case {
  UnitCalculation calculation;
  std::string_view want;
};

void check(const std::vector<Case>& cases) {
  int row = 0;
  for (const Case& c : cases) {
    EXPECT_EQ(textOf(UnitCalculator::performUnitCalculation(c.calculation)), c.want) << "row " << row;
    ++row;
  }
}

TEST(UnitCalculator, SumsStayInTheLargerUnit) {
  check({
      {Make::unitsAddition(of("1", kilometers), of("200", meters)), "1.2 km"},
      {Make::unitsAddition(of("200", meters), of("1", kilometers)), "1.2 km"},
      {Make::unitsSubtraction(of("1", kilometers), of("200", meters)), "0.8 km"},
      {Make::unitsSubtraction(of("200", meters), of("1", kilometers)), "-800 m"},
      {Make::unitsAddition(of("5", kilometers), of("3", kilograms)), "nothing"},
      // Of money the second unit, whichever is worth more.
      {Make::unitsAddition(of("1.16", currencyUSD), of("1", currencyEUR)), "2 EUR"},
      {Make::unitsAddition(of("1", currencyEUR), of("1", currencyUSD)), "2.16 USD"},
      // Consumption and economy are each other turned over.
      {Make::unitsAddition(of("5", kilometersPerLiter), of("5", litersPer100Kilometers)), "4 L/100km"},
  });
}

TEST(UnitCalculator, ProductsTakeTheUnitThatTheFactorsHave) {
  check({
      {Make::unitsMultiplication(of("2", meters), of("3", meters)), "6 m²"},
      {Make::unitsMultiplication(of("2", kilometers), of("3", meters)), "6000 m²"},
      {Make::unitsMultiplication(of("2", feet), of("3", inches)), "0.5 ft²"},
      {Make::unitsMultiplication(of("2", yards), of("1", inches)), "0.04645152 m²"},
      {Make::unitsMultiplication(of("2", squareMeters), of("3", meters)), "6 m³"},
      {Make::unitsMultiplication(of("2", kilowatts), of("3", hours)), "6 kWh"},
      {Make::unitsMultiplication(of("50", kilometersPerHour), of("2", hours)), "100 km"},
      {Make::unitsMultiplication(of("30", minutes), of("50", kilometersPerHour)), "25 km"},
      {Make::unitsMultiplication(of("50", kilometersPerHour), of("2", kilometers)), "100 km² / hr"},
      {Make::unitsMultiplication(of("7", litersPer100Kilometers), of("200", kilometers)), "14 L"},
      {Make::unitsMultiplication(of("5", kilohertz), of("2", seconds)), "10000"},
      {Make::unitsMultiplication(of("5", currencyUSD), of("3", kilometers)), "15 USD"},
      {Make::unitsMultiplication(of("2", kilograms), of("2", kilograms)), "error UnsupportedUnitMultiplication"},
      {Make::unitsMultiplication(of("2", seconds), of("2", seconds)), "error UnsupportedUnitMultiplication"},
  });
}

TEST(UnitCalculator, QuotientsAreQuantitiesNumbersOrRates) {
  check({
      {Make::unitsDivision(of("10", kilowattHours), of("2", hours)), "5 kW"},
      {Make::unitsDivision(of("100", kilometers), of("50", kilometersPerHour)), "2 hr"},
      {Make::unitsDivision(of("1", gigabytes), of("10", megabytesPerSecond)), "100 s"},
      {Make::unitsDivision(of("300", pixel), of("2", inches)), "150 PPI"},
      {Make::unitsDivision(of("20", kilometers), of("4", hours)), "5 km / hr"},
      {Make::unitsDivision(of("10", squareMeters), of("2", seconds)), "5 m² / s"},
      {Make::unitsDivision(of("10", meters), of("2", squareMeters)), "5 / m"},
      {Make::unitsDivision(of("1", meters), of("1", squareFeet)), "3.28083989501312335958005249343832021 / ft"},
      {Make::unitsDivision(of("1", kilometers), of("200", meters)), "5"},
      {Make::unitsDivision(of("14", liters), of("7", litersPer100Kilometers)), "200 km"},
      {Make::unitsDivision(of("100", miles), of("10", kilometersPerLiter)), "16.09344 L"},
      {Make::unitsDivision(of("14", liters), of("0", litersPer100Kilometers)), "error DivideByZero"},
      {Make::unitsDivision(of("10", grams), of("5", kilometersPerLiter)), "2 g / km/L"},
      {Make::unitsDivision(of("5", kilometers), of("0", hours)), "error DivideByZero"},
      {Make::unitsDivision(of("5", kilometers), of("0", meters)), "error DivideByZero"},
      {Make::unitsDivision(of("10", kilowattHours), of("0", hours)), "error DivideByZero"},
      {Make::unitDivision(of("5", kilometers), 0), "error DivideByZero"},
      {Make::decimalByUnitDivision(5, of("2", kilometers)), "2.5 / km"},
  });
}

TEST(UnitCalculator, PowersAndRoots) {
  const Decimal third = Decimal(1) / Decimal(3);
  const Decimal twoThirds = Decimal(2) / Decimal(3);
  check({
      {Make::unitToPower(of("4", meters), 4), "error UnsupportedUnitMultiplication"},
      {Make::unitToPower(of("4", meters), decimal("1e100")), "error UnsupportedUnitMultiplication"},
      {Make::unitToPower(of("4", meters), decimal("-1e100")), "error UnsupportedUnitMultiplication"},
      {Make::unitToPower(of("3", feet), 3), "27 ft³"},
      {Make::unitToPower(of("3", kilograms), 3), "error UnsupportedUnitMultiplication"},
      {Make::unitToPower(of("3", meters), 2), "9 m²"},
      {Make::unitToPower(of("5", kilometers), 1), "5 km"},
      {Make::unitToPower(of("5", kilometers), 0), "1"},
      {Make::unitToPower(of("5", kilometers), -1), "0.2 / km"},
      {Make::unitToPower(of("50", kilometersPerHour), -1), "0.02 hr / km"},
      {Make::unitToPower(of("2", minutes), -1), "0.0083333333333333333333333333333333333333 Hz"},
      {Make::unitToPower(of("0", kilometers), -1), "error DivideByZero"},
      {Make::unitToPower(of("5", meters), -2), "0.04 / m²"},
      {Make::unitToPower(of("4", squareMeters), decimal("0.5")), "2 m"},
      {Make::unitToPower(of("-4", squareMeters), decimal("0.5")), "error ImaginaryNumber"},
      {Make::unitToPower(of("4", meters), decimal("0.5")), "error UnsupportedExponentOperation"},
      {Make::unitToPower(of("4", acres), decimal("0.5")), "error UnsupportedExponentOperation"},
      {Make::unitToPower(of("4", meters), decimal("1.5")), "8 m"},
      {Make::unitToPower(of("27", cubicMeters), third), "3 m"},
      {Make::unitToPower(of("27", cubicFeet), twoThirds), "9 ft²"},
      {Make::unitToPower(of("27", liters), third), "error UnsupportedExponentOperation"},
      {Make::rateToPower(per("5", currencyUSD, hours), 2), "error UnsupportedRate"},
      {Make::rateToPower(per("5", currencyUSD, hours), -1), "0.2 hr / USD"},
      {Make::rateToPower(per("5", std::nullopt, hours), -1), "0.2 hr"},
      {Make::rateToPower(per("5", std::nullopt, meters), -2), "0.04 m²"},
      {Make::rateToPower(per("5", currencyUSD, hours), -2), "error UnsupportedUnitMultiplication"},
      {Make::rateToPower(per("0", currencyUSD, hours), -1), "error DivideByZero"},
      {Make::rateToPower(per("5", currencyUSD, hours), 0), "1"},
  });
}

TEST(UnitCalculator, ComparisonsChoicesAndRemainders) {
  check({
      {Make::unitsMin(of("1", kilometers), of("300", meters)), "300 m"},
      {Make::unitsMax(of("300", meters), of("1", kilometers)), "1 km"},
      {Make::unitsMin(of("1", kilometers), of("1000", meters)), "1 km"},
      {Make::unitsMax(of("1", kilometers), of("1000", meters)), "1 km"},
      {Make::unitsMin(of("1", kilometers), of("1", hours)), "nothing"},
      {Make::unitsGreaterThan(of("1", miles), of("1", kilometers)), "boolean true"},
      {Make::unitsLessThanOrEqualTo(of("1", kilometers), of("1000", meters)), "boolean true"},
      {Make::unitsEqual(of("0", celsius), of("273.15", kelvin)), "boolean true"},
      {Make::unitsDontEqual(of("1", kilometers), of("1000", meters)), "boolean false"},
      {Make::unitsEqual(of("1", kilometers), of("1", hours)), "nothing"},
      {Make::unitsMod(of("5", kilometers), of("3", kilometers)), "2 km"},
      {Make::unitsMod(of("5", kilometers), of("300", meters)), "nothing"},
      {Make::unitsMod(of("5", kilometers), of("0", kilometers)), "error DivideByZero"},
  });
}

TEST(UnitCalculator, RatesWithQuantitiesAndRates) {
  check({
      {Make::rateByUnitMultiplication(per("20", currencyUSD, hours), of("35", hours)), "700 USD"},
      {Make::rateByUnitMultiplication(per("20", currencyUSD, hours), of("90", minutes)), "30 USD"},
      {Make::rateByUnitMultiplication(per("5", std::nullopt, days), of("3", kilograms)), "15 kg / day"},
      {Make::rateByUnitMultiplication(per("5", std::nullopt, days), of("2", weeks)), "70"},
      {Make::rateByUnitMultiplication(per("5", kilograms, squareMeters), of("2", meters)), "10 kg / m"},
      {Make::rateByUnitMultiplication(per("5", kilograms, hours), of("2", kilometers)),
       "error UnsupportedUnitMultiplication"},
      {Make::unitByRateDivision(of("40", currencyUSD), per("2", currencyUSD, hours)), "20 hr"},
      {Make::unitByRateDivision(of("40", currencyUSD), per("0", currencyUSD, hours)), "error DivideByZero"},
      {Make::unitByRateDivision(of("60", kilometersPerHour), per("2", kilometers, minutes)), "0.5"},
      {Make::unitByRateDivision(of("2", days), per("4", std::nullopt, hours)), "12"},
      {Make::unitAndRateAddition(of("10", metersPerSecond), per("36", kilometers, hours)), "20 m/s"},
      {Make::rateAndUnitSubtraction(per("36", kilometers, hours), of("5", metersPerSecond)), "18 km/h"},
      {Make::unitAndRateAddition(of("5", currencyUSD), per("20", currencyUSD, hours)), "error UnitMismatch"},
      {Make::rateByRateAddition(per("1", kilometers, hours), per("1", meters, seconds)), "4.6 km / hr"},
      {Make::rateByRateAddition(per("60", kilometers, hours), per("1", minutes, kilometers)), "120 km / hr"},
      {Make::rateByRateSubtraction(per("5", currencyUSD, hours), per("24", currencyUSD, days)), "4 USD / hr"},
      {Make::rateByRateAddition(per("5", currencyUSD, hours), per("5", kilograms, hours)), "nothing"},
      {Make::rateByRateMultiplication(per("20", currencyUSD, hours), per("8", hours, days)), "160 USD / day"},
      {Make::rateByRateMultiplication(per("20", currencyUSD, hours), per("480", minutes, days)), "160 USD / day"},
      {Make::rateByRateMultiplication(per("2", currencyUSD, hours), per("3", hours, currencyUSD)), "6"},
      {Make::rateByRateMultiplication(per("2", currencyUSD, hours), per("3", kilograms, days)),
       "error UnsupportedUnitMultiplication"},
      {Make::rateByRateDivision(per("20", currencyUSD, hours), per("48", currencyUSD, days)), "10"},
      {Make::rateByRateDivision(per("20", currencyUSD, hours), per("5", kilograms, hours)), "4 USD / kg"},
      {Make::rateByRateDivision(per("20", currencyUSD, hours), per("0", currencyUSD, hours)), "error DivideByZero"},
      {Make::rateByRateDivision(per("20", currencyUSD, hours), per("5", kilograms, meters)), "error UnsupportedRate"},
      {Make::unitToRateConversion(of("36", kilometersPerHour), per("1", meters, seconds)), "10 m / s"},
      {Make::unitToRateConversion(of("60", kilometersPerHour), per("1", minutes, kilometers)), "1 min / km"},
  });
}

TEST(UnitCalculator, MoneyOfUnknownRateDividesByZero) {
  const TCUnit worthless = TCUnit::counted({undefined, UnitType::currency, "XXX", {0, 0}, nullptr});
  const UnitExpression money{5, worthless, true};
  check({
      {Make::unitsAddition(of("5", currencyUSD), money), "error DivideByZero"},
      {Make::unitsDivision(of("5", currencyUSD), money), "error DivideByZero"},
      {Make::unitsAddition(money, money), "10 XXX"},
      {Make::unitsDivision(money, money), "1"},
      {Make::unitToPower({decimal("9e120"), unit(meters)}, 2), "error Infinity"},
  });
}

TEST(RateArithmetic, SimplerForms) {
  EXPECT_EQ(textOf(resolved(per("500", meters, kilometers))), "0.5");
  EXPECT_EQ(textOf(resolved(per("5", meters, meters))), "5");
  EXPECT_EQ(textOf(resolved(per("2", std::nullopt, kilohertz))), "0.002 s");
  EXPECT_EQ(textOf(resolved(per("30", minutes, hours))), "nothing");
  EXPECT_EQ(textOf(resolved(per("5", currencyUSD, hours))), "nothing");
  EXPECT_EQ(textOf(resolved(per("5", meters, squareMeters))), "5 / m");

  const auto equivalent = [](const UnitRate& rate) {
    const auto expression = equivalentUnitExpressionOf(rate);
    return textOf(expression ? std::optional(EvaluationResult::unitExpression(*expression)) : std::nullopt);
  };
  EXPECT_EQ(equivalent(per("5", kilometers, hours)), "5 km/h");
  EXPECT_EQ(equivalent(per("18", kilometers, minutes)), "300 m/s");
  EXPECT_EQ(equivalent(per("120", std::nullopt, minutes)), "2 Hz");
  EXPECT_EQ(equivalent(per("5", currencyUSD, hours)), "nothing");
  EXPECT_EQ(rateValueOf(Substance{"water", 1}), per("1", grams, cubicCentimeters));
}

TEST(RateArithmetic, PercentagesMeetInTheLargerUnit) {
  const auto rate = [](std::string_view fraction, UnitIdentifier perUnit) {
    return PercentageRate{{decimal(fraction)}, unit(perUnit)};
  };
  EXPECT_EQ(rate("0.05", years) + rate("0.01", months), rate("0.17", years));
  EXPECT_EQ(rate("0.01", months) + rate("0.12", years), rate("0.02", months));
  EXPECT_EQ(rate("0.02", months) - rate("0.12", years), rate("0.01", months));
  EXPECT_FALSE(rate("0.05", years) + rate("0.05", meters));
}

}  // namespace
}  // namespace tavrine::testing
