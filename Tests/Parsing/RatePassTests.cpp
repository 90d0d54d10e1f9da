// What is so much per unit, and the prepositions beside it.

#include <gtest/gtest.h>

#include <string_view>

#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view shape;
};

TEST(RatePasses, RatesOfEachKind) {
  const LineReader reader;
  const Case cases[] = {
      {"5 / day", "rate[number.operator.unit]"},
      {"$20/hour", "rate[unitExpression[unit number] operator unit]"},
      {"5% / year", "rate[percentage[number percentageSymbol].operator.unit]"},
      {"5 ripe apples / day", "rate[number.unidentified.unidentified.operator.unit]"},
      {"apples / day", "unidentified.operator.unit"},
      {"/ day", "operator.unit"},
      {"20 km / 4 hours", "unitExpression[number.unit].operator.timespan[unitExpression[number.unit]]"},
      {"5 / day / week", "rate[number.operator.unit].operator.unit"},
      {"10 km a day", "rate[unitExpression[number.unit].operator.unit]"},
  };
  for (const auto& [line, shape] : cases) EXPECT_EQ(reader.shapeAfter("G14", line), shape) << line;
}

TEST(RatePasses, ValuesOfRates) {
  const LineReader reader;
  const auto decimal = RateExtractor::from(reader.after("G14", "5k / day")[0]);
  ASSERT_TRUE(decimal && std::holds_alternative<DecimalRate>(*decimal));
  EXPECT_EQ(std::get<DecimalRate>(*decimal).value, Decimal(5000));

  const auto percentage = RateExtractor::from(reader.after("G14", "5% / year")[0]);
  ASSERT_TRUE(percentage && std::holds_alternative<PercentageRate>(*percentage));
  EXPECT_EQ(std::get<PercentageRate>(*percentage).percentage.decimalValue.description(), "0.05");

  const auto unit = RateExtractor::from(reader.after("G14", "$2k / hour")[0]);
  ASSERT_TRUE(unit && std::holds_alternative<UnitRate>(*unit));
  EXPECT_EQ(std::get<UnitRate>(*unit).value, Decimal(2000));
  EXPECT_EQ(std::get<UnitRate>(*unit).ofUnit->identifier(), UnitIdentifier::currencyUSD);
  EXPECT_EQ(std::get<UnitRate>(*unit).perUnit.identifier(), UnitIdentifier::hours);
}

struct OperatorCase {
  std::string_view line;
  TokenSubType expected;
};

/// The subtype of what the preposition of the line has become.
TokenSubType subTypeOf(const LineReader& reader, std::string_view line) {
  for (const Token& token : reader.after("G32", line)) {
    if (token.stringValue == "at" || token.stringValue == "for") return token.subType;
  }
  return TokenSubType::notSpecified;
}

TEST(RatePasses, PrepositionsBesideRates) {
  const LineReader reader;
  const OperatorCase cases[] = {
      {"100 km at 50 km/h", TokenSubType::divisionOperator},
      {"100 miles at 50 km / hour", TokenSubType::divisionOperator},
      {"2 hours at 50 km/h", TokenSubType::multiplicationOperator},
      {"5 hours at $20 / hour", TokenSubType::multiplicationOperator},
      {"$100 at $20 / hour", TokenSubType::divisionOperator},
      {"$10 / hour for 5 hours", TokenSubType::multiplicationOperator},
      {"60 mph for 2 hours", TokenSubType::multiplicationOperator},
      {"5 apples at $3 / apple", TokenSubType::multiplicationOperator},
      {"5 boxes at $3 / box", TokenSubType::multiplicationOperator},
      {"5 pears at $3 / apple", TokenSubType::prepositionWordAt},
      {"5 km at 3 kg", TokenSubType::prepositionWordAt},
      {"5 at 3", TokenSubType::prepositionWordAt},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(subTypeOf(reader, line), expected) << line;
}

}  // namespace
}  // namespace tavrine::testing
