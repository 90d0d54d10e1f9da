// Money over time: interest, loans, returns, taxes, and what a dollar of another year is worth.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Date.h"
#include "Foundation/Environment.h"
#include "TavrineCore/Customization/Currencies/InflationList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/FinanceCalculators.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{compoundInterest,
                                         compoundInterestCompoundingMonthly,
                                         compoundInterestCompoundingQuarterly,
                                         presentValue,
                                         returnOnInvestment,
                                         returnOnInvestmentAfter,
                                         totalLoanRepayment,
                                         annualLoanRepayment,
                                         monthlyLoanRepayment,
                                         totalInterestOnLoanRepayment,
                                         monthlyInterestOnLoanRepayment,
                                         annualInterestOnLoanRepayment,
                                         dollarWorthAdjustedForInflation,
                                         dollarWorthFromTodayAdjustedForInflation,
                                         dollarWorthToTodayAdjustedForInflation,
                                         predictedDollarWorthGivenInflation,
                                         salesTaxIn};

/// How far beyond the table of prices a year may lie and still be taken as the last one of it.
constexpr std::int64_t kYearsBeyondTable = 4;

// --- Which argument is what -----------------------------------------------------------------------------------------

bool isAmount(const Token& token) {
  const bool isQuantity = token.is(TokenType::unitExpression) && !durationOf(token);
  return isQuantity || token.is(TokenType::number);
}

const Token* amountAmong(Arguments arguments) {
  const auto found = std::find_if(arguments.begin(), arguments.end(), isAmount);
  return found != arguments.end() ? &*found : nullptr;
}

/// Without what else a phrase holds: "ROI" is a time zone too.
std::vector<Token> amountsAmong(Arguments arguments) {
  std::vector<Token> amounts;
  std::copy_if(arguments.begin(), arguments.end(), std::back_inserter(amounts), isAmount);
  return amounts;
}

/// Amount, percentage, period and the interval of compounding, in whatever order the phrase has them. Of two durations
/// the longer is the period.
std::vector<Token> inStandardOrder(Arguments arguments) {
  std::vector<Token> ordered(arguments.begin(), arguments.end());
  const auto amount = std::find_if(ordered.begin(), ordered.end(), isAmount);
  if (amount == ordered.end()) return ordered;
  std::rotate(ordered.begin(), amount, amount + 1);
  const auto lengthOf = [](const Token& token) {
    const std::optional<UnitExpression> duration = durationOf(token);
    return duration && !isIntervalInWords(token) ? secondsOf(*duration).value_or(Decimal()) : Decimal();
  };
  std::stable_sort(ordered.begin() + 1, ordered.end(), [&](const Token& left, const Token& right) {
    if (isPercentageLike(left) != isPercentageLike(right)) return isPercentageLike(left);
    return lengthOf(right) < lengthOf(left);
  });
  return ordered;
}

// --- Interest and loans ---------------------------------------------------------------------------------------------

Answer interestCompounded(Arguments arguments, std::optional<CompoundFrequencyInterval> interval) {
  const std::vector<Token> ordered = inStandardOrder(arguments);
  const auto told = FinancialFunctionParamterSet::parameters(ordered);
  if (!told) return std::nullopt;
  const FinanceCalculatorForMoneyTimePercent calculator{told->amount, told->period, told->percentage,
                                                        interval.value_or(told->compoundInterval)};
  return resultWith(calculator.compoundInterest(), ordered.front());
}

using FinanceFormula = Decimal (FinanceCalculatorForMoneyTimePercent::*)() const;

FinanceFormula formulaOf(FunctionIdentifier identifier) {
  using Calculator = FinanceCalculatorForMoneyTimePercent;
  switch (identifier) {
    case presentValue:
      return &Calculator::presentValue;
    case monthlyLoanRepayment:
      return &Calculator::monthlyRepayment;
    case annualLoanRepayment:
      return &Calculator::annualRepayment;
    case totalLoanRepayment:
      return &Calculator::totalRepayment;
    case totalInterestOnLoanRepayment:
      return &Calculator::totalInterestPaid;
    case annualInterestOnLoanRepayment:
      return &Calculator::annualInterestPaid;
    case monthlyInterestOnLoanRepayment:
      return &Calculator::monthlyInterestPaid;
    default:
      return nullptr;
  }
}

Answer ofMoneyTimePercent(FunctionIdentifier identifier, Arguments arguments) {
  const auto calculator = FinanceCalculatorForMoneyTimePercent::calculatorWith(arguments);
  const Token* amount = amountAmong(arguments);
  const FinanceFormula formula = formulaOf(identifier);
  if (!calculator || amount == nullptr || formula == nullptr) return std::nullopt;
  return resultWith(((*calculator).*formula)(), *amount);
}

// --- Returns --------------------------------------------------------------------------------------------------------

/// What went in is the first amount and what came out the last.
Answer totalReturnOf(Arguments arguments) {
  const std::vector<Token> amounts = amountsAmong(arguments);
  if (amounts.size() < 2) return std::nullopt;
  const std::optional<Decimal> end = valueInUnitOf(amounts.front(), amounts.back());
  if (!end) return std::nullopt;
  const ReturnOnInvestmentCalculator calculator{amounts.front().decimalValue(), *end, Decimal()};
  return EvaluationResult::multiplier({calculator.totalReturn()});
}

/// Two amounts, what went in first, and how long it took.
Answer annualReturnOf(Arguments arguments) {
  const std::vector<Token> amounts = amountsAmong(arguments);
  std::optional<UnitExpression> duration;
  for (const Token& argument : arguments) {
    if (!duration) duration = durationOf(argument);
  }
  if (amounts.size() != 2 || !duration) return std::nullopt;
  const std::optional<UnitExpression> years = convertedTo(*duration, UnitIdentifier::years);
  const std::optional<Decimal> end = valueInUnitOf(amounts[0], amounts[1]);
  if (!years || !end) return std::nullopt;
  const ReturnOnInvestmentCalculator calculator{amounts[0].decimalValue(), *end, years->value};
  return EvaluationResult::percentage({calculator.annualReturn()});
}

// --- Taxes ----------------------------------------------------------------------------------------------------------

/// The tax that an amount holds already. Phrases name the tax, so that a percentage in them is its rate.
Answer taxIn(Arguments arguments) {
  const Token* amount = amountAmong(arguments);
  std::optional<Decimal> rate;
  for (const Token& argument : arguments) {
    if (rate) break;
    if (const std::optional<SalesTax> tax = argument.salesTaxValue()) {
      rate = tax->decimalValue;
    } else if (argument.is(TokenType::percentage) || argument.is(TokenType::fraction)) {
      rate = argument.decimalValue();
    }
  }
  if (amount == nullptr || !rate) return std::nullopt;
  const Decimal whole = amount->decimalValue();
  return resultWith(whole - whole / (Decimal(1) + *rate), *amount);
}

// --- Inflation ------------------------------------------------------------------------------------------------------

bool isMoney(const Token& token) {
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  return expression && expression->unit.unitType() == UnitType::currency;
}

std::int64_t yearAt(Date date, const TimeZone& zone) {
  return Calendar(Calendar::Identifier::gregorian).in(zone).component(Calendar::Component::year, date);
}

std::int64_t currentYear() { return yearAt(Date::now(), Environment::current().timeZone()); }

/// The year of a date; behind some words a year is read as a number, and in "2010 dollars" as an amount.
std::optional<std::int64_t> yearOf(const Token& token) {
  // Asked first: a number is a date too, so many seconds after the start of 1970.
  const std::optional<Decimal> value = token.is(TokenType::number) || isMoney(token) ? decimalOf(token) : std::nullopt;
  if (!value) {
    const std::optional<Datestamp> date = token.datestampValue();
    return date ? std::optional(yearAt(date->date, date->timezone)) : std::nullopt;
  }
  if (value->rounded(0, RoundingMode::plain) != *value) return std::nullopt;
  return value->intValue();
}

/// "today" and the like, which some phrases name and others leave out.
bool meansNow(const Token& token) {
  if (!token.is(TokenType::datestamp)) return false;
  const std::optional<Datestamp> date = token.datestampValue();
  if (!date) return false;
  using enum DatestampType;
  return date->type == now || date->type == today || date->type == thisYear;
}

/// What a phrase about prices tells: the money (or the first number), the years but for the present one, and a rate.
struct InflationArguments {
  const Token* amount = nullptr;
  std::vector<std::int64_t> years;
  std::optional<Decimal> inflation;
};

std::optional<InflationArguments> inflationArguments(Arguments arguments) {
  InflationArguments told;
  const auto money = std::find_if(arguments.begin(), arguments.end(), isMoney);
  told.amount = money != arguments.end() ? &*money : amountAmong(arguments);
  if (told.amount == nullptr) return std::nullopt;
  for (const Token& argument : arguments) {
    if (&argument == told.amount || meansNow(argument)) continue;
    if (isPercentageLike(argument)) {
      told.inflation = decimalOf(argument);
    } else if (const std::optional<std::int64_t> year = yearOf(argument)) {
      told.years.push_back(*year);
    }
  }
  return told;
}

/// A year of the table of prices; the last one stands for the few after it.
std::optional<int> supportedYear(std::int64_t year) {
  constexpr int kLatest = InflationList::latestYearSupported;
  if (year > kLatest + kYearsBeyondTable || year < InflationList::earliestYearSupported) return std::nullopt;
  return static_cast<int>(std::min<std::int64_t>(year, kLatest));
}

Answer dollarWorth(const Token& amount, std::int64_t fromYear, std::int64_t toYear) {
  const std::optional<int> from = supportedYear(fromYear);
  const std::optional<int> to = supportedYear(toYear);
  if (!from || !to) return std::nullopt;
  const std::optional<double> worth = InflationList::convertUSD(amount.decimalValue().toDouble(), *from, *to);
  if (!worth) return std::nullopt;
  return resultWith(Decimal::fromDouble(*worth), amount);
}

/// What the amount buys in a year to come, in money of now.
Answer predictedDollarWorth(const InflationArguments& told) {
  if (told.years.empty() || !told.inflation || told.years.front() <= InflationList::latestYearSupported) {
    return std::nullopt;
  }
  const auto years = static_cast<double>(told.years.front() - currentYear());
  const double worth = told.amount->decimalValue().toDouble() / std::pow(1 + told.inflation->toDouble(), years);
  return resultWith(Decimal::fromDouble(worth), *told.amount);
}

Answer withInflation(FunctionIdentifier identifier, Arguments arguments) {
  const std::optional<InflationArguments> told = inflationArguments(arguments);
  if (!told || told->years.empty()) return std::nullopt;
  switch (identifier) {
    case dollarWorthAdjustedForInflation:
      if (told->years.size() < 2) return std::nullopt;
      return dollarWorth(*told->amount, told->years[0], told->years[1]);
    case dollarWorthFromTodayAdjustedForInflation:
      return dollarWorth(*told->amount, currentYear(), told->years.front());
    case dollarWorthToTodayAdjustedForInflation:
      return dollarWorth(*told->amount, told->years.front(), currentYear());
    default:
      return predictedDollarWorth(*told);
  }
}

Answer evaluateFinancialFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  switch (identifier) {
    case compoundInterest:
      return interestCompounded(arguments, std::nullopt);
    case compoundInterestCompoundingMonthly:
      return interestCompounded(arguments, CompoundFrequencyInterval::monthly);
    case compoundInterestCompoundingQuarterly:
      return interestCompounded(arguments, CompoundFrequencyInterval::quarterly);
    case returnOnInvestment:
      return totalReturnOf(arguments);
    case returnOnInvestmentAfter:
      return annualReturnOf(arguments);
    case salesTaxIn:
      return taxIn(arguments);
    case dollarWorthAdjustedForInflation:
    case dollarWorthFromTodayAdjustedForInflation:
    case dollarWorthToTodayAdjustedForInflation:
    case predictedDollarWorthGivenInflation:
      return withInflation(identifier, arguments);
    default:
      return ofMoneyTimePercent(identifier, arguments);
  }
}

}  // namespace

constinit const WordFunctionHandler kFinancialFunctionHandler{kHandled, evaluateFinancialFunction};

}  // namespace tavrine
