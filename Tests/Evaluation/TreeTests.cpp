#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Evaluation/EvaluationNode.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view want;
};

TEST(TreeTests, NestsByPrecedence) {
  constexpr Case kCases[] = {
      {"1 + 2 * 3", "(1 + (2 * 3))"},
      {"2 * 3 + 4", "((2 * 3) + 4)"},
      {"1 < 2 + 3", "(1 < (2 + 3))"},
      {"1 and 2 == 3", "(1 and (2 == 3))"},
      {"1 + 2 * 3 * 4", "(1 + ((2 * 3) * 4))"},
      {"1 + 2 * 3 - 4", "((1 + (2 * 3)) - 4)"},
      {"2 ^ 3 ^ 2", "((2 ^ 3) ^ 2)"},
      // Four levels and more in a row.
      {"1 < 2 + 3 * 4 ^ 5", "(1 < (2 + (3 * (4 ^ 5))))"},
      {"1 < 2 + 3 * 4 ^ 5 ^ 6 * 7 + 8", "(1 < ((2 + ((3 * ((4 ^ 5) ^ 6)) * 7)) + 8))"},
      {"1 or 2 < 3 & 4 + 5 * 6 ^ 7", "(1 or (2 < (3 & (4 + (5 * (6 ^ 7))))))"},
      // A converter takes whatever stands before it, and a later operator takes the converted value.
      {"3 + 4 inhex", "((3 + 4) inhex)"},
      {"3 * 4 inhex + 5", "(((3 * 4) inhex) + 5)"},
      // Words between are stepped over; an equals sign and a lone bracket are not.
      {"1 + some 2", "(1 + 2)"},
      {"1 = + 2", "(+ 2)"},
      // The last connected expression counts.
      {"1 + 2 later 3 * 4", "(3 * 4)"},
      // Signs before signs.
      {"3 - - 2", "(3 + 2)"},
      {"3 + - 2", "(3 - 2)"},
      {"3 - - - 2", "(3 - 2)"},
      {"- 5", "(- 5)"},
  };
  for (const Case& c : kCases) {
    const TokenList list = tokensOf(c.line);
    const auto tree = EvaluationTree::headNode(list);
    ASSERT_TRUE(tree) << c.line;
    EXPECT_EQ(tree->ASTDescription(), c.want) << c.line;
  }
}

TEST(TreeTests, EvaluatesAsItStands) {
  constexpr Case kCases[] = {
      {"1 + 2", "3"},
      {"1 < 2 + 3 * 4 ^ 5", "boolean true"},
      {"2 + 3 * 4 ^ 2 - 1", "49"},
      {"(1 + 2) * (3 + 4)", "21"},
      {"- 5", "-5"},
      {"5 +", "5"},
      {"+", "error SilentError"},
      {"- - 5", "5"},
      {"not 0", "boolean true"},
      {"not 3", "boolean false"},
      {"not true", "boolean false"},
      {"~ 0b101", "binary 18446744073709551610"},
      {"~ 5", "none"},
      // A conversion that doesn't apply leaves its operand.
      {"true indate", "boolean true"},
      {"5", "5"},
      {"5 6", "none"},
      {"(5)", "5"},
      {"5 oops 6", "error UnitMismatch"},
      {"", "none"},
      {"just words", "none"},
  };
  for (const Case& c : kCases) EXPECT_EQ(describeResult(evaluatedAsItStands(c.line)), c.want) << c.line;
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
