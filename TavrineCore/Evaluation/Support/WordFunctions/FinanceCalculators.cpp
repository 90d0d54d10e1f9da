#include "TavrineCore/Evaluation/Support/WordFunctions/FinanceCalculators.h"

#include <array>

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"

namespace tavrine {

namespace {

constexpr int kMonthsAYear = 12;

const Decimal& one() {
  static const Decimal value(1);
  return value;
}

/// (1 + r ÷ f)^(f × n).
Decimal growthFactor(const Decimal& rate, const Decimal& timesAYear, const Decimal& years) {
  return TCDecimalPower(one() + rate / timesAYear, timesAYear * years);
}

/// A year's percentage. That of a rate holds for its own unit, so a year has as many of it as it has units.
std::optional<Decimal> yearlyFractionOf(const Token& token) {
  if (const std::optional<PercentageRate> rate = token.percentageRateValue()) {
    const std::optional<Decimal> unitsAYear = ratioOf(unitOf(UnitIdentifier::years), rate->perUnit);
    if (!unitsAYear) return std::nullopt;
    return rate->percentage.decimalValue * *unitsAYear;
  }
  return isPercentageLike(token) ? decimalOf(token) : std::nullopt;
}

/// A bare number is meant in years.
std::optional<Decimal> yearsOf(const Token& token) {
  if (token.is(TokenType::number)) return token.decimalValue();
  const std::optional<UnitExpression> duration = durationOf(token);
  if (!duration) return std::nullopt;
  const std::optional<UnitExpression> years = convertedTo(*duration, UnitIdentifier::years);
  return years ? std::optional(years->value) : std::nullopt;
}

/// "month", as in "compounding every month", "3 months", or "daily".
std::optional<CompoundFrequencyInterval> intervalOf(const Token& token) {
  const std::optional<UnitExpression> duration = durationOf(token);
  if (!duration) return std::nullopt;
  const UnitIdentifier unit = duration->unit.identifier();
  const bool isDay = unit == UnitIdentifier::days && duration->value == one();
  if (token.is(TokenType::unit) || isDay) {
    if (unit == UnitIdentifier::months) return CompoundFrequencyInterval::monthly;
    return isDay ? CompoundFrequencyInterval::daily : CompoundFrequencyInterval::yearly;
  }
  const std::optional<Decimal> unitsAYear = ratioOf(unitOf(UnitIdentifier::years), duration->unit);
  return unitsAYear ? compoundFrequencyIntervalFrom(*unitsAYear / duration->value) : std::nullopt;
}

bool isAmount(const Token& token) { return token.is(TokenType::number) || token.is(TokenType::unitExpression); }

}  // namespace

std::optional<CompoundFrequencyInterval> compoundFrequencyIntervalFrom(const Decimal& timesAYear) {
  using enum CompoundFrequencyInterval;
  for (const CompoundFrequencyInterval interval : std::array{yearly, semiannually, quarterly, monthly, daily}) {
    if (rawValue(interval) == timesAYear) return interval;
  }
  return std::nullopt;
}

Decimal rawValue(CompoundFrequencyInterval interval) { return Decimal(static_cast<int>(interval)); }

// --- Interest -------------------------------------------------------------------------------------------------------

std::optional<FinanceCalculatorForMoneyTimePercent> FinanceCalculatorForMoneyTimePercent::calculatorWith(
    std::span<const Token> standardParameters) {
  std::optional<Decimal> principal;
  std::optional<Decimal> rate;
  std::optional<Decimal> period;
  for (const Token& token : standardParameters) {
    if (isPercentageLike(token)) {
      if (!rate) rate = yearlyFractionOf(token);
    } else if (durationOf(token)) {
      if (!period) period = yearsOf(token);
    } else if (!principal) {
      if (isAmount(token)) principal = token.decimalValue();
    } else if (!period) {
      period = yearsOf(token);
    }
  }
  if (!principal || !rate || !period) return std::nullopt;
  return FinanceCalculatorForMoneyTimePercent{*principal, *period, *rate, CompoundFrequencyInterval::yearly};
}

Decimal FinanceCalculatorForMoneyTimePercent::compoundInterest() const {
  return principal * growthFactor(interestRate, rawValue(compoundFrequency), period);
}

Decimal FinanceCalculatorForMoneyTimePercent::presentValue() const {
  return principal / growthFactor(interestRate, rawValue(compoundFrequency), period);
}

Decimal FinanceCalculatorForMoneyTimePercent::monthlyRepayment() const {
  const Decimal monthsAYear(kMonthsAYear);
  const Decimal growth = growthFactor(interestRate, monthsAYear, period);
  return principal * ((interestRate / monthsAYear) * growth / (growth - one()));
}

Decimal FinanceCalculatorForMoneyTimePercent::annualRepayment() const {
  return monthlyRepayment() * Decimal(kMonthsAYear);
}

Decimal FinanceCalculatorForMoneyTimePercent::totalRepayment() const { return annualRepayment() * period; }

Decimal FinanceCalculatorForMoneyTimePercent::totalInterestPaid() const { return totalRepayment() - principal; }

Decimal FinanceCalculatorForMoneyTimePercent::annualInterestPaid() const { return totalInterestPaid() / period; }

Decimal FinanceCalculatorForMoneyTimePercent::monthlyInterestPaid() const {
  return annualInterestPaid() / Decimal(kMonthsAYear);
}

// --- Returns --------------------------------------------------------------------------------------------------------

Decimal ReturnOnInvestmentCalculator::annualReturn() const {
  return TCDecimalPower(totalReturn() + one(), one() / period) - one();
}

Decimal ReturnOnInvestmentCalculator::totalReturn() const { return (endingFigure - startingFigure) / startingFigure; }

// --- What a phrase tells --------------------------------------------------------------------------------------------

std::optional<FinancialFunctionParamterSet> FinancialFunctionParamterSet::parameters(std::span<const Token> tokens) {
  if (tokens.size() < 3 || !isAmount(tokens[0])) return std::nullopt;
  const bool isPercentageSecond = isPercentageLike(tokens[1]);
  const std::optional<Decimal> percentage = yearlyFractionOf(isPercentageSecond ? tokens[1] : tokens[2]);
  const std::optional<Decimal> period = yearsOf(isPercentageSecond ? tokens[2] : tokens[1]);
  if (!percentage || !period) return std::nullopt;
  const auto interval = tokens.size() > 3 ? intervalOf(tokens[3]) : CompoundFrequencyInterval::yearly;
  if (!interval) return std::nullopt;
  return FinancialFunctionParamterSet{tokens[0].decimalValue(), *percentage, *period, *interval};
}

}  // namespace tavrine
