#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Functions/FunctionExpressionEvaluator.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "Tests/Evaluation/EvaluationTestSupport.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

Decimal number(std::string_view text) { return *Decimal::parse(text); }

TCUnit unit(UnitIdentifier identifier, UnitType type, std::string symbol) {
  TCUnit::Record record;
  record.identifier = identifier;
  record.unitType = type;
  record.symbol = std::move(symbol);
  record.converter = {Decimal(1), Decimal(0)};
  return TCUnit::counted(record);
}
TCUnit degrees() { return unit(UnitIdentifier::degrees, UnitType::angle, "°"); }

/// "4", "unitExpression 6 km", "rate 6", "error ImaginaryNumber", "none" where there is no token.
std::string applied(std::string_view function, const Token& argument) {
  const Token call(TokenType::functionExpression, TokenSubType::notSpecified, "", NSRange::zero,
                   TokenList::frozen(std::vector<Token>{
                       Token(TokenType::functionName, std::string(function), NSRange::zero), argument}));
  const std::optional<Token> answer = FunctionExpressionEvaluator::evaluateFunction(call);
  if (!answer) return "none";
  if (const auto expression = answer->unitExpressionValue()) {
    return "unitExpression " + expression->value.description() + ' ' + expression->unit.symbol();
  }
  if (answer->is(TokenType::rate)) return "rate " + answer->decimalValue().description();
  return describeResult(answer->evaluationResult());
}
std::string applied(std::string_view function, std::string_view argument) {
  return applied(function, TokenFactory::numberWith(number(argument)));
}

struct Case {
  std::string_view function;
  std::string_view argument;
  std::string_view want;
};

TEST(TraditionalFunctions, OfNumbers) {
  for (const Case& c : rowsOf<Case>("Evaluation/TraditionalFunctionTests", "OfNumbers"))
    EXPECT_EQ(applied(c.function, c.argument), c.want) << c.function << ' ' << c.argument;
}

TEST(TraditionalFunctions, OfQuantities) {
  for (const Case& row : rowsOf<Case>("Evaluation/TraditionalFunctionTests", "OfQuantities")) {
    const Token call(
        TokenType::functionExpression, TokenSubType::notSpecified, "", NSRange::zero,
        TokenList::frozen(std::vector<Token>{Token(TokenType::functionName, std::string(row.function), NSRange::zero),
                                             valueToken(row.argument)}));
    const std::optional<Token> answer = FunctionExpressionEvaluator::evaluateFunction(call);
    EXPECT_EQ(answer ? describeValue(*answer) : "none", row.want) << row.function << " of " << row.argument;
  }
}

TEST(TraditionalFunctions, AnglesKeepToTheUnitOfTheArgument) {
  const Token right = TokenFactory::unitExpressionWith(number("90"), degrees());
  EXPECT_EQ(applied("sin", right), "1");
  // "sind" reads plain numbers as degrees, and takes a value that says so as it stands.
  EXPECT_EQ(applied("sind", right).substr(0, 12), "0.8939966636");
  const Token one = TokenFactory::unitExpressionWith(Decimal(1), degrees());
  EXPECT_EQ(applied("asin", one), "unitExpression 89.999999999999999 °");
  EXPECT_EQ(applied("acos", one), "unitExpression 0 °");
  EXPECT_EQ(applied("arccos", "1"), "unitExpression 0 rad");
  EXPECT_EQ(applied("arcsin", "1"), applied("asin", "1"));
  EXPECT_EQ(applied("asin", "1").substr(0, 24), "unitExpression 1.5707963");
}

TEST(TraditionalFunctions, PassOnWhatTheyCannotCalculateWith) {
  EXPECT_EQ(applied("sqrt", errorToken(EvaluationError::DivideByZero)), "error DivideByZero");
  EXPECT_EQ(applied("assert", TokenFactory::booleanWith(false)), "boolean false");
  EXPECT_EQ(applied("sqrt", Token()), "none");
  EXPECT_FALSE(FunctionExpressionEvaluator::evaluateFunction(TokenFactory::numberWith(Decimal(4))));
}

}  // namespace
}  // namespace tavrine::testing
