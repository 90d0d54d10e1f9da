#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Evaluation/EvaluationNode.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view want;
};

TEST(TreeTests, NestsByPrecedence) {
  for (const Case& c : rowsOf<Case>("Evaluation/TreeTests", "NestsByPrecedence")) {
    const TokenList list = tokensOf(c.line);
    const auto tree = EvaluationTree::headNode(list);
    ASSERT_TRUE(tree) << c.line;
    EXPECT_EQ(tree->ASTDescription(), c.want) << c.line;
  }
}

TEST(TreeTests, EvaluatesAsItStands) {
  for (const Case& c : rowsOf<Case>("Evaluation/TreeTests", "EvaluatesAsItStands"))
    EXPECT_EQ(describeResult(evaluatedAsItStands(c.line)), c.want) << c.line;
}

std::string repeated(std::string_view part, int times, std::string_view end) {
  std::string result;
  for (int i = 0; i < times; ++i) result += part;
  return result + std::string(end);
}

// Ten thousand of anything neither overflows the stack nor takes long. The bound is far above what it takes, and far
// below what a quadratic step would.
TEST(TreeTests, LongLinesAreCheap) {
  const std::string lines[] = {
      repeated("5 + ", 10000, "5"),   repeated("2 ^ ", 10000, "2"),  repeated("- ", 10000, "5"),
      repeated("* ", 10000, ""),      repeated("5 ", 10000, ""),     repeated("5 + 2 * ", 5000, "1"),
      repeated("(1)", 5000, ""),      repeated("5% ", 10000, ""),    repeated("(2) ^ ", 5000, "2"),
      repeated("3 -2 ", 5000, ""),    repeated("word ", 10000, "5"), repeated("7 / - ", 5000, "7"),
      repeated("5 1/2 ", 3000, ""),   repeated("pi ", 5000, ""),     repeated("√ 4 ", 3000, ""),
      repeated("5 inhex ", 5000, ""), repeated("2 * - ", 5000, "1"), repeated("not ", 5000, "1"),
      repeated("1 ^ - ", 5000, "1"),  repeated("5 % ", 5000, ""),    repeated("1 word ", 5000, "-5"),
  };
  for (const std::string& line : lines) {
    const auto start = std::chrono::steady_clock::now();
    (void)evaluated(line);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken, std::chrono::milliseconds(1500)) << line.substr(0, 20);
  }
}

}  // namespace
}  // namespace tavrine::testing
