// What is so much per unit, and the prepositions beside it.

#include <gtest/gtest.h>

#include <string_view>

#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view shape;
};

TEST(RatePasses, RatesOfEachKind) {
  const LineReader reader;
  for (const auto& [line, shape] : rowsOf<Case>("Parsing/RatePassTests", "RatesOfEachKind"))
    EXPECT_EQ(reader.shapeAfter("G14", line), shape) << line;
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
  for (const auto& [line, expected] : rowsOf<OperatorCase>("Parsing/RatePassTests", "PrepositionsBesideRates"))
    EXPECT_EQ(subTypeOf(reader, line), expected) << line;
}

}  // namespace
}  // namespace tavrine::testing
