#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine::testing {
namespace {

Token tokenOfType(TokenType type) {
  Token token(type, " ", NSRange::zero);
  if (type == TokenType::number) token.metadata = std::make_shared<NumberTokenMetadata>(Decimal(1));
  return token;
}

std::string winnerFor(TokenType left, TokenType right) {
  const Token first = tokenOfType(left);
  const Token second = tokenOfType(right);
  const Token plus = operatorToken(TokenSubType::additionOperator, "+");
  return std::string(TokenAndOperatorPairFactory::pairFor({first, second, plus}).name);
}

/// For every two types the pair that wins; a type whose whole row is the same is told in one line.
std::string dispatch() {
  std::ostringstream out;
  for (std::size_t left = 0; left < kTokenTypeCount; ++left) {
    std::map<std::string, std::string> typesByWinner;
    for (std::size_t right = 0; right < kTokenTypeCount; ++right) {
      const auto l = static_cast<TokenType>(left);
      const auto r = static_cast<TokenType>(right);
      const std::string winner = winnerFor(l, r);
      if (winner != "UnhandledPair") typesByWinner[winner] += " " + std::string(toString(r));
    }
    out << toString(static_cast<TokenType>(left)) << "\n";
    for (const auto& [winner, types] : typesByWinner) out << "  " << winner << ":" << types << "\n";
  }
  return out.str();
}

// Run with TAVRINE_UPDATE_GOLDEN=1 to write the file anew, and review the difference.
TEST(DispatchTests, PairsAreAsTheGoldenFileTells) {
  const std::string path = std::string(TAVRINE_SOURCE_DIR) + "/Tests/Evaluation/dispatch.golden.txt";
  const std::string now = dispatch();
  if (std::getenv("TAVRINE_UPDATE_GOLDEN") != nullptr) std::ofstream(path) << now;
  std::stringstream golden;
  golden << std::ifstream(path).rdbuf();
  EXPECT_EQ(now, golden.str());
}

TEST(DispatchTests, EveryPairWinsSomewhere) {
  std::set<std::string> winners;
  for (std::size_t left = 0; left < kTokenTypeCount; ++left) {
    for (std::size_t right = 0; right < kTokenTypeCount; ++right) {
      winners.insert(winnerFor(static_cast<TokenType>(left), static_cast<TokenType>(right)));
    }
  }
  for (const BinaryOperandPair& pair : TokenAndOperatorPairFactory::pairClasses()) {
    EXPECT_TRUE(winners.contains(std::string(pair.name))) << pair.name;
  }
}

TEST(DispatchTests, FurtherConditions) {
  const Token bare(TokenType::number, "1", NSRange::zero);
  const Token number = tokenOfType(TokenType::number);
  const Token tax = tokenOfType(TokenType::salesTax);
  const Token plus = operatorToken(TokenSubType::additionOperator, "+");
  EXPECT_EQ(TokenAndOperatorPairFactory::pairFor({bare, number, plus}).name, "UnhandledPair");
  EXPECT_EQ(TokenAndOperatorPairFactory::pairFor({number, tax, plus}).name, "DecimalAndSalesTaxPair");
  EXPECT_EQ(TokenAndOperatorPairFactory::pairFor({tax, number, plus}).name, "UnhandledPair");
}

// No converter is hidden by one before it, and of two with one subtype the operand decides.
TEST(DispatchTests, EveryConverterIsReached) {
  for (const TokenConverter& converter : TokenConverterFactory::converterClasses()) {
    const Token token(TokenType::converter, converter.requiredConverterSubtype, "in", NSRange::zero);
    for (const TokenType type : converter.permissableOperandTypes) {
      const TokenConverter* found = TokenConverterFactory::converterFor(tokenOfType(type), token);
      ASSERT_NE(found, nullptr);
      EXPECT_EQ(found->name, converter.name) << toString(type);
    }
  }
}

}  // namespace
}  // namespace tavrine::testing
