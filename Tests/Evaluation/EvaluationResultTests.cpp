#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {
namespace {

using Result = EvaluationResult;
using Case = EvaluationResultCase;

Decimal dec(std::string_view text) { return *Decimal::parse(text); }

TCUnit unit() {
  TCUnit::Record record;
  record.identifier = UnitIdentifier::meters;
  record.symbol = "m";
  return TCUnit::counted(std::move(record));
}

TEST(EvaluationResultTests, EqualityAndHashGoByCaseAndPayload) {
  EXPECT_EQ(Result::decimal(12), Result::decimal(dec("12.0")));
  EXPECT_EQ(Result::decimal(12).hash(), Result::decimal(dec("12.0")).hash());
  EXPECT_NE(Result::decimal(12), Result::decimal(13));
  EXPECT_NE(Result::decimal(12), Result::scientificNotation(12));
  EXPECT_NE(Result::binary(12), Result::hex(12));
  EXPECT_NE(Result::pending(), Result::failed());
  EXPECT_EQ(Result::none(), Result::nullResult);
  EXPECT_EQ(Result(), Result::nullResult);
  EXPECT_EQ(Result::decimal(Decimal::nan()), Result::decimal(Decimal::nan()));
}

TEST(EvaluationResultTests, CopiesShareAndMovesLeaveNothing) {
  Result first = Result::rawString("a text that is too long to be kept within a string object");
  const Result second = first;
  EXPECT_EQ(first.as<Case::rawString>(), second.as<Case::rawString>());
  const Result third = std::move(first);
  EXPECT_EQ(third, second);
  EXPECT_TRUE(first.is(Case::none));
  EXPECT_EQ(second.as<Case::decimal>(), nullptr);
}

TEST(EvaluationResultTests, Rounding) {
  const TCUnit meters = unit();
  struct {
    Result result;
    std::optional<Result> want;
  } const rows[] = {
      {Result::decimal(dec("2.345")), Result::decimal(dec("2.35"))},
      {Result::decimal(dec("-2.345")), Result::decimal(dec("-2.35"))},
      {Result::fraction(Fraction{dec("0.125"), std::nullopt}), Result::decimal(dec("0.13"))},
      {Result::percentage(Percentage{dec("0.126")}), Result::percentage(Percentage{dec("0.13")})},
      {Result::unitExpression(UnitExpression{dec("1.234"), meters, false}),
       Result::unitExpression(UnitExpression{dec("1.23"), meters, true})},
      {Result::unitRate(UnitRate{dec("1.234"), meters, meters, true}),
       Result::unitRate(UnitRate{dec("1.23"), meters, meters, false})},
      {Result::hex(5), std::nullopt},
      {Result::boolean(true), std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(row.result.roundedTo(2), row.want) << toString(row.result.kind());
}

TEST(EvaluationResultTests, TokensAndBack) {
  const TCUnit meters = unit();
  const Result rows[] = {
      Result::decimal(dec("1.5")),
      Result::percentage(Percentage{dec("0.2")}),
      Result::fraction(Fraction{dec("0.75"), std::nullopt}),
      Result::binary(5),
      Result::octal(8),
      Result::hex(255),
      Result::multiplier(Multiplier{3}),
      Result::boolean(true),
      Result::boolean(false),
      Result::unitExpression(UnitExpression{5, meters, false}),
      Result::unitRate(UnitRate{5, meters, meters, false}),
      Result::unit(meters),
      Result::pitch(Pitch{}),
      Result::rawString("text"),
      Result::error(EvaluationError::SilentError),
      Result::error(EvaluationError::Other),
      Result::pending(),
      Result::failed(),
      Result::none(),
  };
  for (const Result& result : rows) {
    EXPECT_EQ(result.tokenized().evaluationResult(), result) << toString(result.kind());
  }
  EXPECT_EQ(Result::list(List{}).tokenized(), Token());
  EXPECT_EQ(Result::scientificNotation(5).tokenized().type, TokenType::number);
}

TEST(EvaluationResultTests, FirstOfThoseThatStopAnEvaluation) {
  const std::vector<Result> results = {Result::decimal(1), Result::failed(), Result::pending()};
  EXPECT_EQ(pendingOrFailureResult(results), &results[1]);
  EXPECT_EQ(pendingOrFailureResult(std::span(results).first(1)), nullptr);
  const std::vector<Result> lists = {Result::list(List{}),
                                     Result::list(List{std::make_shared<std::vector<Result>>(results)})};
  ASSERT_NE(pendingOrFailureResult(lists), nullptr);
  EXPECT_EQ(*pendingOrFailureResult(lists), Result::failed());
}

TEST(EvaluationErrorTests, SubtypesLeadBackToTheirErrors) {
  for (int i = 0; i <= static_cast<int>(EvaluationError::Other); ++i) {
    const auto error = static_cast<EvaluationError>(i);
    EXPECT_EQ(evaluationErrorWithSubtype(tokenSubtype(error)), error);
  }
  EXPECT_EQ(evaluationErrorWithSubtype(TokenSubType::pi), std::nullopt);
}

}  // namespace
}  // namespace tavrine
