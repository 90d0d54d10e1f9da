// What phrases about money, prices and growth give for their arguments, in the order and of the types that lines have.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Date.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/FinanceCalculators.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "Tests/Evaluation/DateTokens.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

/// "unit months", "tax 0.2", "word daily", or what `timeToken` reads.
Token argumentFrom(std::string_view text) {
  if (text.starts_with("unit ")) return TokenFactory::unitWith(unitWithName(text.substr(5)));
  if (text.starts_with("tax ")) return TokenFactory::salesTaxWith({*Decimal::parse(text.substr(4))});
  if (text.starts_with("word ")) return Token(TokenType::literal, std::string(text.substr(5)), NSRange::zero);
  return timeToken(text);
}

std::vector<Token> argumentsFrom(const std::vector<std::string_view>& texts) {
  std::vector<Token> arguments;
  for (const std::string_view text : texts) arguments.push_back(argumentFrom(text));
  return arguments;
}

/// The answer with its number cut to 12 places.
std::string answerOf(FunctionIdentifier identifier, const std::vector<std::string_view>& texts) {
  const Token answer =
      WordFunctionHandlers::evaluate(identifier, argumentsFrom(texts), EngineCustomization::standard());
  const EvaluationResult result = answer.evaluationResult();
  const std::optional<Decimal> value = result.decimalValue();
  if (!value) return std::string(toString(result.kind()));
  const std::string number = value->rounded(12, RoundingMode::plain).description();
  const auto* expression = result.as<EvaluationResultCase::unitExpression>();
  if (expression != nullptr) return number + ' ' + std::string(toString(expression->unit.identifier()));
  return std::string(toString(result.kind())) + ' ' + number;
}

using enum FunctionIdentifier;

/// Wednesday 10 June 2026.
class MoneyOverTimeTests : public ::testing::Test {
 protected:
  ScopedEnvironment scope_{worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
};

struct Row {
  FunctionIdentifier identifier;
  std::vector<std::string_view> arguments;
  std::string_view want;
};

void expectAnswers(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    std::string shown;
    for (const std::string_view argument : row.arguments) shown.append(argument).append("; ");
    EXPECT_EQ(answerOf(row.identifier, row.arguments), row.want) << toString(row.identifier) << ": " << shown;
  }
}

TEST_F(MoneyOverTimeTests, LoansTakeTheirArgumentsInAnyOrder) {
  expectAnswers({
      {monthlyLoanRepayment, {"300000 currencyUSD", "30 years", "4%"}, "1432.245886396378 currencyUSD"},
      {monthlyLoanRepayment, {"4%", "span 30y", "300000 currencyUSD"}, "1432.245886396378 currencyUSD"},
      {monthlyLoanRepayment, {"300000 currencyUSD", "360 months", "4% / years"}, "1432.245886396378 currencyUSD"},
      // A bare number behind the amount is a count of years, and 1% a month 12% a year.
      {monthlyLoanRepayment, {"300000", "30", "4%"}, "decimal 1432.245886396378"},
      {monthlyLoanRepayment, {"1000", "1 years", "1% / months"}, "decimal 88.848788678342"},
      {annualLoanRepayment, {"300000", "30 years", "4%"}, "decimal 17186.950636756542"},
      {totalLoanRepayment, {"300000", "30 years", "4%"}, "decimal 515608.519102696252"},
      {totalInterestOnLoanRepayment, {"300000", "30 years", "4%"}, "decimal 215608.519102696252"},
      {annualInterestOnLoanRepayment, {"300000", "30 years", "4%"}, "decimal 7186.950636756542"},
      {monthlyInterestOnLoanRepayment, {"300000", "30 years", "4%"}, "decimal 598.912553063045"},
      // Without interest the formula divides by 0.
      {monthlyLoanRepayment, {"300000", "30 years", "0%"}, "error"},
      {monthlyLoanRepayment, {"300000", "30 years"}, "none"},
      {monthlyLoanRepayment, {"300000", "4%", "30 kilometers"}, "none"},
      {presentValue, {"1000", "10%", "20 years"}, "decimal 148.643628024144"},
  });
}

TEST_F(MoneyOverTimeTests, InterestIsCompoundedAsOftenAsTold) {
  expectAnswers({
      {compoundInterest, {"1000 currencyUSD", "5 years", "7%"}, "1402.5517307 currencyUSD"},
      {compoundInterest, {"1000 currencyUSD", "7%", "60 months"}, "1402.5517307 currencyUSD"},
      {compoundInterest, {"1000", "7%", "5 years", "unit months"}, "decimal 1417.625259613988"},
      {compoundInterest, {"1000", "7%", "unit months", "5 years"}, "decimal 1417.625259613988"},
      {compoundInterest, {"1000", "7%", "3 months", "5 years"}, "decimal 1414.778195755798"},
      {compoundInterest, {"1000", "7%", "5 years", "word semiannually"}, "decimal 1410.598760621122"},
      {compoundInterest, {"1000", "7%", "5 years", "unit days"}, "decimal 1419.019929240931"},
      {compoundInterest, {"1000", "7%", "5 years", "word daily"}, "decimal 1419.019929240931"},
      // Any other unit counts as a year; what is no interval has no answer.
      {compoundInterest, {"1000", "7%", "5 years", "unit weeks"}, "decimal 1402.5517307"},
      {compoundInterest, {"1000", "7%", "5 years", "5 months"}, "none"},
      {compoundInterest, {"1000", "7%", "5 years", "word happily"}, "none"},
      {compoundInterestCompoundingMonthly, {"1000", "7%", "5 years"}, "decimal 1417.625259613988"},
      {compoundInterestCompoundingQuarterly, {"5 years", "7%", "1000"}, "decimal 1414.778195755798"},
      {compoundInterest, {"1000", "7%"}, "none"},
  });
}

TEST_F(MoneyOverTimeTests, ReturnsAndTaxes) {
  expectAnswers({
      {returnOnInvestmentAfter, {"1000", "2500", "7 years"}, "percentage 0.139852281048"},
      {returnOnInvestmentAfter, {"84 months", "1000", "2500"}, "percentage 0.139852281048"},
      {returnOnInvestmentAfter, {"1000", "2500", "3 kilometers"}, "none"},
      {returnOnInvestmentAfter, {"1000", "2500"}, "none"},
      {returnOnInvestment, {"500", "1500"}, "multiplier 2"},
      {returnOnInvestment, {"1500 meters", "3 kilometers"}, "multiplier 1"},
      {returnOnInvestment, {"500 currencyUSD", "3 kilometers"}, "none"},
      {returnOnInvestment, {"0", "1500"}, "multiplier NaN"},
      {salesTaxIn, {"120 currencyUSD", "20%"}, "20 currencyUSD"},
      {salesTaxIn, {"20%", "120"}, "decimal 20"},
      {salesTaxIn, {"120", "tax 0.2"}, "decimal 20"},
      {salesTaxIn, {"120", "-100%"}, "error"},
      {salesTaxIn, {"120", "20"}, "none"},
  });
}

TEST_F(MoneyOverTimeTests, PricesOfOtherYears) {
  expectAnswers({
      {dollarWorthAdjustedForInflation, {"100 currencyUSD", "1990", "2010"}, "166.837031369549 currencyUSD"},
      {dollarWorthAdjustedForInflation, {"100", "date 1990-06-10 nakedYear", "2010 currencyUSD"}, "none"},
      {dollarWorthAdjustedForInflation,
       {"100 currencyUSD", "1990", "2010 currencyUSD"},
       "166.837031369549 currencyUSD"},
      {dollarWorthToTodayAdjustedForInflation, {"100", "1990"}, "decimal 240.00688599847"},
      {dollarWorthToTodayAdjustedForInflation,
       {"100", "date 1990-06-10 dayMonthYear", "date 2026-06-10 today"},
       "decimal 240.00688599847"},
      {dollarWorthFromTodayAdjustedForInflation, {"100", "date 2026-06-10 today", "1990"}, "decimal 41.665471215121"},
      // The last year of the table stands for four more; before the first there is nothing.
      {dollarWorthAdjustedForInflation, {"100", "2024", "2028"}, "decimal 100"},
      {dollarWorthAdjustedForInflation, {"100", "2024", "2029"}, "none"},
      {dollarWorthAdjustedForInflation, {"100", "1912", "2024"}, "none"},
      {dollarWorthAdjustedForInflation, {"100", "1990.5", "2024"}, "none"},
      {predictedDollarWorthGivenInflation, {"100 currencyUSD", "2040", "3%"}, "66.111780581862 currencyUSD"},
      {predictedDollarWorthGivenInflation, {"3%", "100 currencyUSD", "2025"}, "103 currencyUSD"},
      {predictedDollarWorthGivenInflation, {"100", "2024", "3%"}, "none"},
      {predictedDollarWorthGivenInflation, {"100", "2040"}, "none"},
  });
}

TEST_F(MoneyOverTimeTests, GrowthByPercentages) {
  expectAnswers({
      {exponentialGrowth, {"5000 currencyUSD", "5% / months", "2 years"}, "16125.499718568499 currencyUSD"},
      {exponentialGrowth, {"5000", "2 years", "5%", "1 months"}, "decimal 16125.499718568499"},
      {exponentialGrowth, {"5000", "5%", "1 months", "2 years"}, "decimal 16125.499718568499"},
      {exponentialGrowth, {"5000", "5%", "unit months", "2 years"}, "decimal 16125.499718568499"},
      {exponentialGrowth, {"5000", "5%", "2 years"}, "decimal 5512.5"},
      {exponentialGrowth, {"20%", "50% / days", "2 days"}, "percentage 0.45"},
      {exponentialGrowth, {"1000", "3 hours", "2 days"}, "decimal 65536000"},
      {exponentialDecay, {"100 grams", "5 days", "20 days"}, "6.25 grams"},
      {exponentialDecay, {"5000", "5% / months", "2 years"}, "decimal 1459.945121693864"},
      {exponentialGrowth, {"5000", "5%"}, "none"},
      {exponentialGrowth, {"5000", "5%", "3 kilometers"}, "none"},
      {timeRequiredForExponentialChange, {"100", "200", "5% / years"}, "14.20669908289 years"},
      {timeRequiredForExponentialChange, {"100 meters", "0.2 kilometers", "5%", "1 years"}, "14.20669908289 years"},
      {timeRequiredForExponentialChange, {"200", "100", "5%", "unit years"}, "13.513407333965 years"},
      {timeRequiredForExponentialChange, {"unit months", "100", "200", "5% / years"}, "170.480388994686 months"},
      {timeRequiredForExponentialChange, {"7% / years"}, "10.244768351059 years"},
      {timeRequiredForExponentialChange, {"100", "100", "5% / years"}, "0 years"},
      // Nothing grows by 0%, to or from a debt, or the wrong way.
      {timeRequiredForExponentialChange, {"100", "200", "0% / years"}, "none"},
      {timeRequiredForExponentialChange, {"100", "-200", "5% / years"}, "none"},
      {timeRequiredForExponentialChange, {"0", "200", "5% / years"}, "none"},
      {timeRequiredForExponentialChange, {"100", "200", "-5% / years"}, "none"},
      {timeRequiredForExponentialChange, {"200", "100", "100% / years"}, "none"},
      {timeRequiredForExponentialChange, {"100", "200", "5%"}, "none"},
      {growthOverExponentialChange, {"100", "200", "5 years"}, "percentage 0.148698354997"},
      {growthOverExponentialChange, {"100", "200", "1 months", "5 years"}, "percentage 0.011619440302"},
      {growthOverExponentialChange, {"word monthly", "100", "200", "5 years"}, "percentage 0.011619440302"},
      {growthOverExponentialChange, {"100", "200", "1 years", "100 years"}, "percentage 0.006955550057"},
      {growthOverExponentialChange, {"0", "200", "5 years"}, "percentage 0"},
      {growthOverExponentialChange, {"100", "200"}, "none"},
  });
}

TEST_F(MoneyOverTimeTests, GrowthByAmounts) {
  expectAnswers({
      {timeRequiredForLinearChange, {"10 kilometers", "100 kilometers", "5 kilometers / weeks"}, "18 weeks"},
      {timeRequiredForLinearChange,
       {"unit days", "10 kilometers", "100 kilometers", "5000 meters / weeks"},
       "126 days"},
      {timeRequiredForLinearChange, {"10", "100 kilometers", "60 kilometersPerHour"}, "1.5 hours"},
      {timeRequiredForLinearChange, {"100", "200", "5 / days"}, "20 days"},
      {timeRequiredForLinearChange, {"100", "200", "5", "2 days"}, "40 days"},
      {timeRequiredForLinearChange, {"100", "200", "5", "word daily"}, "20 days"},
      // Growth is a change towards the end; told with a sign it has a direction.
      {timeRequiredForLinearChange, {"200", "100", "5 / days"}, "20 days"},
      {timeRequiredForLinearChange, {"200", "100", "-5 / days"}, "20 days"},
      {timeRequiredForLinearChange, {"100", "200", "-5 / days"}, "none"},
      {timeRequiredForLinearChange, {"100", "200", "0 / days"}, "none"},
      {timeRequiredForLinearChange, {"100 meters", "200 meters", "5 kilograms / days"}, "none"},
      {timeRequiredForLinearChange, {"100 meters", "200 kilograms", "5 / days"}, "none"},
      {timeRequiredForLinearChange, {"100", "200", "5"}, "none"},
  });
}

TEST(CompoundFrequencyIntervals, AreFive) {
  const struct {
    int timesAYear;
    std::optional<CompoundFrequencyInterval> want;
  } rows[] = {
      {1, CompoundFrequencyInterval::yearly},
      {2, CompoundFrequencyInterval::semiannually},
      {4, CompoundFrequencyInterval::quarterly},
      {12, CompoundFrequencyInterval::monthly},
      {365, CompoundFrequencyInterval::daily},
      {52, std::nullopt},
      {0, std::nullopt},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(compoundFrequencyIntervalFrom(Decimal(row.timesAYear)), row.want) << row.timesAYear;
  }
}

}  // namespace
}  // namespace tavrine::testing
