#include <gtest/gtest.h>

#include "EvaluationTestSupport.h"

namespace tavrine::testing {
namespace {

struct Case {
  std::string_view line;
  std::string_view want;
};

void check(std::span<const Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(describeResult(evaluated(c.line)), c.want) << c.line;
}

TEST(DecimalPairTests, Arithmetic) {
  constexpr Case kCases[] = {
      {"0.1 + 0.2", "0.3"},
      {"7 - 9", "-2"},
      {"1 / 4", "0.25"},
      {"10 / 0", "error DivideByZero"},
      {"0 into 10", "error DivideByZero"},
      {"4 into 10", "2.5"},
      {"3 from 10", "7"},
      {"2 ^ 10", "1024"},
      {"2 ^ 0.5 * 0", "0"},
      {"5 mod 3", "2"},
      {"7.5 mod 2", "1.5"},
      {"100000000000000000000000000000000000 mod 7", "error ImpreciseResult"},
      {"10000000000000000000000000000000000 mod 7", "4"},
      {"2k + 1", "2001"},
      {"9 ^ 9 ^ 9 ^ 9", "error Infinity"},
      {"3 lesser 2", "2"},
      {"3 greater 2", "3"},
  };
  check(kCases);
}

TEST(DecimalPairTests, ComparisonsLogicAndBits) {
  constexpr Case kCases[] = {
      {"2 > 1", "boolean true"},
      {"2 >= 2", "boolean true"},
      {"2 < 1", "boolean false"},
      {"1 <= 1", "boolean true"},
      {"1 == 1.0", "boolean true"},
      {"1 != 1", "boolean false"},
      {"1 and 0", "boolean false"},
      {"0 or 3", "boolean true"},
      {"true and 5", "boolean true"},
      {"true and false", "boolean false"},
      {"true == false", "boolean false"},
      {"true + true", "none"},
      {"12 & 10", "8"},
      {"12 | 3", "15"},
      {"12 xor 10", "6"},
      {"1 << 10", "1024"},
      {"1 << 64", "0"},
      {"1024 >> 3", "128"},
  };
  check(kCases);
}

// A tie answers with the first operand itself, and so keeps how it was written.
TEST(DecimalPairTests, TieKeepsTheFirstOperand) {
  const TokenList list = tokensOf("1k lesser 1000");
  EXPECT_EQ(describeResult(evaluated("1k lesser 1000")), "1000");
  EXPECT_EQ(list[0].evaluated().scalar(), "k");
}

TEST(DecimalPairTests, Percentages) {
  constexpr Case kCases[] = {
      {"10 + 20%", "12"},
      {"10 - 20%", "8"},
      {"10 + -20%", "8"},
      {"10 * 20%", "2"},
      {"10 / 20%", "50"},
      {"10 / 0%", "error DivideByZero"},
      {"20% + 10", "percentage 10.2"},
      {"20% * 10", "2"},
      {"20% / 4", "percentage 0.05"},
      {"20% ^ 2", "0.04"},
      {"20% + 10%", "percentage 0.3"},
      {"20% * 10%", "percentage 0.02"},
      {"20% / 10%", "2"},
      {"20% / 0%", "error DivideByZero"},
      {"20% > 10%", "boolean true"},
      {"6 / -20%", "-30"},
  };
  check(kCases);
}

TEST(DecimalPairTests, Bases) {
  constexpr Case kCases[] = {
      {"0xFF + 1", "hex 256"},
      {"1 + 0xFF", "hex 256"},
      {"1 * 0xFF", "255"},
      {"0xFF * 1", "hex 255"},
      {"0xF - 0x10", "-1"},
      {"0xF - 300", "-285"},
      {"-5 + 0xF", "hex 10"},
      {"0x2 ^ 0x3", "hex 8"},
      {"0b11 ^ 0b01", "binary 2"},
      {"0b11 ^ 1", "binary 2"},
      {"1 ^ 0b11", "2"},
      {"0b1 << 0b1000000", "binary 0"},
      {"0b11 + 1.4", "binary 4"},
      {"0b1 - 5", "-4"},
      {"0b11 / 0b10", "1.5"},
      {"0b11 / 0b0", "error DivideByZero"},
      {"0xF + 0b1", "hex 16"},
      {"0b1 + 0xF", "binary 16"},
      {"0o7 + 0o1", "octal 8"},
      {"0xFF > 0b1", "boolean true"},
      {"0xFF == 0xFF", "boolean true"},
      {"255 == 0xFF", "boolean true"},
      // More than 64 bits can hold: the number is told, rather than a wrong one in the base.
      {"0xFFFFFFFFFFFFFFFF + 0x1", "18446744073709551616"},
      {"0xFFFFFFFFFFFFFFFF + 1", "18446744073709551616"},
  };
  check(kCases);
}

TEST(DecimalPairTests, OperandsThatTakeAnything) {
  constexpr Case kCases[] = {
      {"5 + oops", "error UnitMismatch"},
      {"oops + wait", "error UnitMismatch"},
      {"wait + 5", "pending"},
      {"5 + lost", "failed"},
      {"wait + lost", "pending"},
      {"5 + (nothing)", "5"},
      {"(nothing) * 5", "5"},
      {"true + 20%", "error Other"},
  };
  check(kCases);
}

TEST(DecimalPairTests, Converters) {
  constexpr Case kCases[] = {
      {"255 inhex", "hex 255"},
      {"254.6 inhex", "hex 255"},
      {"3 + 4 inbinary", "binary 7"},
      {"0xFF innumber", "255"},
      {"20% innumber", "0.2"},
      {"0.5 inpercent", "percentage 0.5"},
      {"0.75 infraction", "fraction 0.75"},
      {"2 inmultiplier", "multiplier 2x"},
      {"12345 inscientific", "scientificNotation 12345"},
      {"3.7 rounded", "4"},
      {"3.2 roundedup", "4"},
      {"3.7 roundeddown", "3"},
      {"-3.2 roundeddown", "-4"},
      {"10 / 3 indp", "3.33"},
      {"12.345% indp", "percentage 0.1235"},
      {"1 / 0 inhex", "error DivideByZero"},
  };
  check(kCases);
}

}  // namespace
}  // namespace tavrine::testing
