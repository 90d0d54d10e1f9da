#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "Foundation/TimeZone.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "Tests/Parsing/TokenPrinting.h"

namespace tavrine {
namespace {

Decimal dec(std::string_view text) { return Decimal::parse(text).value_or(Decimal::nan()); }

TCUnit unitNamed(std::string symbol, UnitIdentifier identifier) {
  TCUnit::Record record;
  record.identifier = identifier;
  record.symbol = std::move(symbol);
  return TCUnit::counted(std::move(record));
}
TCUnit kilometers() { return unitNamed("km", UnitIdentifier::kilometers); }
TCUnit hours() { return unitNamed("h", UnitIdentifier::hours); }

template <class Metadata, class Value>
Token rateOf(const Value& value) {
  return TokenFactory::rateWith(std::make_shared<const Metadata>(value));
}

/// What a token is made of, without ranges, which are zero throughout.
std::string shapeOf(const Token& token) {
  EXPECT_TRUE(token.hasNoRange()) << describe(token);
  std::string result(toString(token.type));
  if (token.subType != TokenSubType::notSpecified) result += "." + std::string(toString(token.subType));
  result += " '" + token.stringValue + "'";
  if (!token.subtokens) return result;
  result += " [";
  for (const Token& subtoken : *token.subtokens) result += shapeOf(subtoken) + ";";
  return result + "]";
}

TEST(TokenFactoryTests, makesTokensOfTheirShape) {
  const CalendarEnvironment environment(Calendar::current());
  const Token five = TokenFactory::numberWith(5);
  struct Row {
    Token token;
    std::string_view want;
  };
  const Row rows[] = {
      {TokenFactory::binaryWith(5), "binaryNumber '5'"},
      {TokenFactory::hexWith(255), "hexadecimalNumber '255'"},
      {TokenFactory::numberWith(0), "number.positiveNumber '0'"},
      {TokenFactory::numberWith(-3, "k"), "number.negativeNumber '-3k'"},
      {TokenFactory::scientificNotationWith(5), "number '5'"},
      {TokenFactory::scientificNotationWith(-5), "number.negativeNumber '-5'"},
      {TokenFactory::booleanWith(true), "boolean.true 'true'"},
      {TokenFactory::percentageWith(dec("0.2")), "percentage '20%' [number.positiveNumber '20';percentageSymbol '%';]"},
      {TokenFactory::unitExpressionWith(5, kilometers()),
       "unitExpression '5 km' [number.positiveNumber '5';whitespace ' ';unit 'km';]"},
      {rateOf<UnitRateTokenMetadata>(UnitRate{5, kilometers(), hours()}),
       "rate.unitRate '5 km/h' [unitExpression '5 km' [number.positiveNumber '5';whitespace ' ';unit 'km';];"
       "operator.divisionOperator '/';unit 'h';]"},
      {rateOf<PercentageRateTokenMetadata>(PercentageRate{{dec("0.05")}, hours()}),
       "rate.percentageRate '5%/h' [percentage '5%' [number.positiveNumber '5';percentageSymbol '%';];"
       "operator.divisionOperator '/';unit 'h';]"},
      {rateOf<DecimalRateTokenMetadata>(DecimalRate{5, hours()}),
       "rate.decimalRate '5/h' [number.positiveNumber '5';operator.divisionOperator '/';unit 'h';]"},
      {TokenFactory::rateWith(five.metadata), "unidentified ' '"},
      {TokenFactory::timestampWith(60, environment), "unixTimestamp '60' [number.positiveNumber '60';]"},
      {TokenFactory::statisticTypeWith(StatisticType::lcm), "statisticType.statisticWordLCM 'STATISTIC'"},
      {TokenFactory::pitchWith(*Pitch::fromNotation("A#3")), "pitch 'A#3'"},
      {TokenFactory::subexpressionWith({five}),
       "subexpression '(5)' [bracket.openBracket '(';number.positiveNumber '5';bracket.closeBracket ')';]"},
      {TokenFactory::functionExpressionWith("sin", TokenFactory::subexpressionWith({five})),
       "functionExpression 'sin(5)' [functionName 'sin';subexpression '(5)' [bracket.openBracket '(';"
       "number.positiveNumber '5';bracket.closeBracket ')';];]"},
      {TokenFactory::converterToNumber(),
       "converter.numberConverter ' in number' [whitespace ' ';converterSymbol 'in';whitespace ' ';"
       "typeName.numberTypeName 'number';]"},
      {TokenFactory::converterToPercentage(),
       "converter.percentageConverter ' in %' [whitespace ' ';converterSymbol 'in';whitespace ' ';"
       "percentageSymbol '%';]"},
      {TokenFactory::converterToUnitWith(five.metadata), "unidentified ' '"},
      // A result that is no unit expression is carried along.
      {TokenFactory::unitExpressionWith(EvaluationResult::decimal(5), false),
       "customInternal '5' [number.positiveNumber '5';]"},
      {TokenFactory::unitExpressionWith(EvaluationResult::unitExpression({5, kilometers(), false}), true),
       "unitExpression '5 km' [number.positiveNumber '5';whitespace ' ';unit 'km';]"},
  };
  for (const Row& row : rows) EXPECT_EQ(shapeOf(row.token), row.want);
}

TEST(TokenFactoryTests, putsValuesIntoOtherShapes) {
  const auto text = [](const std::optional<Token>& token) { return token ? token->stringValue : "none"; };
  EXPECT_EQ(text(TokenFactory::tokenWith(7, TokenFactory::numberWith(5, "k"))), "7");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, TokenFactory::fractionWith({dec("0.5"), std::nullopt}))), "7");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, TokenFactory::percentageWith(dec("0.5")))), "7%");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, TokenFactory::unitExpressionWith(5, kilometers()))), "7 km");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, rateOf<UnitRateTokenMetadata>(UnitRate{5, kilometers(), hours()}))),
            "7 km/h");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, rateOf<DecimalRateTokenMetadata>(DecimalRate{5, hours()}))), "7/h");
  EXPECT_EQ(text(TokenFactory::tokenWith(dec("0.07"),
                                         rateOf<PercentageRateTokenMetadata>(PercentageRate{{dec("0.05")}, hours()}))),
            "7%/h");
  EXPECT_EQ(text(TokenFactory::tokenWith(7, TokenFactory::timezoneWith(Calendar::current().timeZone()))), "none");
}

}  // namespace
}  // namespace tavrine
