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
