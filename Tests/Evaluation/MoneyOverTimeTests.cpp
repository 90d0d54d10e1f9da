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
#include "Tests/Support/Table.h"
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
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "LoansTakeTheirArgumentsInAnyOrder"));
}

TEST_F(MoneyOverTimeTests, InterestIsCompoundedAsOftenAsTold) {
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "InterestIsCompoundedAsOftenAsTold"));
}

TEST_F(MoneyOverTimeTests, ReturnsAndTaxes) {
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "ReturnsAndTaxes"));
}

TEST_F(MoneyOverTimeTests, PricesOfOtherYears) {
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "PricesOfOtherYears"));
}

TEST_F(MoneyOverTimeTests, GrowthByPercentages) {
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "GrowthByPercentages"));
}

TEST_F(MoneyOverTimeTests, GrowthByAmounts) {
  expectAnswers(rowsOf<Row>("Evaluation/MoneyOverTimeTests", "GrowthByAmounts"));
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
