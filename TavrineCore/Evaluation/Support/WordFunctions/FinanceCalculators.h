#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// How often interest is added to the principal; the value is how often a year.
enum class CompoundFrequencyInterval : std::uint16_t {
  yearly = 1,
  semiannually = 2,
  quarterly = 4,
  monthly = 12,
  daily = 365,
};

/// Nothing for a number that is none of the five.
[[nodiscard]] std::optional<CompoundFrequencyInterval> compoundFrequencyIntervalFrom(const Decimal& timesAYear);
[[nodiscard]] Decimal rawValue(CompoundFrequencyInterval interval);

/// Money that is lent or invested at a rate of interest for a time. All numbers are not-a-number where the mathematics
/// has none: a loan without interest has no payment by these formulas.
struct FinanceCalculatorForMoneyTimePercent {
  Decimal principal;
  /// In years.
  Decimal period;
  /// A year's interest as a fraction: 7% is 0.07.
  Decimal interestRate;
  CompoundFrequencyInterval compoundFrequency = CompoundFrequencyInterval::yearly;

  /// Reads an amount, a percentage and a duration, in whatever order the phrase has them. A duration in another unit is
  /// turned into years; so is the percentage of a rate ("1% per month"), by as many months as a year has. Nothing where
  /// one of the three is missing.
  [[nodiscard]] static std::optional<FinanceCalculatorForMoneyTimePercent> calculatorWith(
      std::span<const Token> standardParameters);

  /// What the principal has become at the end: P × (1 + r ÷ f)^(f × n).
  [[nodiscard]] Decimal compoundInterest() const;
  /// What has to be invested now to become the principal: P ÷ (1 + r ÷ f)^(f × n).
  [[nodiscard]] Decimal presentValue() const;

  /// The payment at the end of each month that has paid the loan off at the end of the period: an annuity,
  /// P × m × g ÷ (g − 1) with a month's interest m = r ÷ 12 and g = (1 + m)^(12 × n).
  [[nodiscard]] Decimal monthlyRepayment() const;
  [[nodiscard]] Decimal annualRepayment() const;
  [[nodiscard]] Decimal totalRepayment() const;
  /// What is paid back beyond the principal.
  [[nodiscard]] Decimal totalInterestPaid() const;
  [[nodiscard]] Decimal annualInterestPaid() const;
  [[nodiscard]] Decimal monthlyInterestPaid() const;

  friend bool operator==(const FinanceCalculatorForMoneyTimePercent&,
                         const FinanceCalculatorForMoneyTimePercent&) = default;
};

/// An investment by what went in and what came out.
struct ReturnOnInvestmentCalculator {
  Decimal startingFigure;
  Decimal endingFigure;
  /// In years.
  Decimal period;

  /// The yearly growth, as a fraction, that leads from the one to the other.
  [[nodiscard]] Decimal annualReturn() const;
  /// The gain in proportion to what went in: 2 where it has tripled.
  [[nodiscard]] Decimal totalReturn() const;

  friend bool operator==(const ReturnOnInvestmentCalculator&, const ReturnOnInvestmentCalculator&) = default;
};

/// What a phrase about compound interest tells: "$1,000", "7%", "5 years", and perhaps how often ("month").
struct FinancialFunctionParamterSet {
  Decimal amount;
  /// A fraction: 7% is 0.07.
  Decimal percentage;
  /// In years.
  Decimal period;
  CompoundFrequencyInterval compoundInterval = CompoundFrequencyInterval::yearly;

  /// The amount comes first; percentage and period follow in either order, and last the unit of compounding, if told.
  [[nodiscard]] static std::optional<FinancialFunctionParamterSet> parameters(std::span<const Token> tokens);

  friend bool operator==(const FinancialFunctionParamterSet&, const FinancialFunctionParamterSet&) = default;
};

}  // namespace tavrine
