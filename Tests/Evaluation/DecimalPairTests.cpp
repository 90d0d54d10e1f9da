#include <gtest/gtest.h>

#include "EvaluationTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view want;
};

void check(std::span<const Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(describeResult(evaluated(c.line)), c.want) << c.line;
}

TEST(DecimalPairTests, Arithmetic) { check(rowsOf<Case>("Evaluation/DecimalPairTests", "Arithmetic")); }

TEST(DecimalPairTests, ComparisonsLogicAndBits) {
  check(rowsOf<Case>("Evaluation/DecimalPairTests", "ComparisonsLogicAndBits"));
}

// A tie answers with the first operand itself, and so keeps how it was written.
TEST(DecimalPairTests, TieKeepsTheFirstOperand) {
  const TokenList list = tokensOf("1k lesser 1000");
  EXPECT_EQ(describeResult(evaluated("1k lesser 1000")), "1000");
  EXPECT_EQ(list[0].evaluated().scalar(), "k");
}

TEST(DecimalPairTests, Percentages) { check(rowsOf<Case>("Evaluation/DecimalPairTests", "Percentages")); }

TEST(DecimalPairTests, Bases) { check(rowsOf<Case>("Evaluation/DecimalPairTests", "Bases")); }

TEST(DecimalPairTests, OperandsThatTakeAnything) {
  check(rowsOf<Case>("Evaluation/DecimalPairTests", "OperandsThatTakeAnything"));
}

TEST(DecimalPairTests, Converters) { check(rowsOf<Case>("Evaluation/DecimalPairTests", "Converters")); }

}  // namespace
}  // namespace tavrine::testing
