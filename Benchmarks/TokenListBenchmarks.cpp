#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <vector>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {
namespace {

/// "7+7+7+…": numbers and operators by turns.
TokenList sumOf(std::size_t count) {
  std::vector<Token> tokens;
  for (std::uint32_t i = 0; i < count; ++i) {
    tokens.emplace_back(i % 2 == 0 ? TokenType::number : TokenType::operator_, i % 2 == 0 ? "7" : "+", NSRange{i, 1});
  }
  return TokenList(std::move(tokens));
}

void copyList(benchmark::State& state) {
  const TokenList list = sumOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(TokenList(list));
}
BENCHMARK(copyList)->Arg(5)->Arg(10'000);

/// A pass whose types have never been here.
void skippedPass(benchmark::State& state) {
  TokenList list = sumOf(10'000);
  for (auto _ : state) {
    list.performEditsToListsWith(TokenType::unit, false, [](const Token&, TokenList&, const Token*) {});
  }
}
BENCHMARK(skippedPass);

/// A pass that looks at the neighbours of each number and changes nothing.
void lookingPass(benchmark::State& state) {
  TokenList list = sumOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    list.performEditsToListsWith(TokenType::number, false, [](const Token& token, TokenList& owner, const Token*) {
      benchmark::DoNotOptimize(owner.tokenBeforeMustBe(token, TokenType::operator_, true));
    });
  }
}
BENCHMARK(lookingPass)->Arg(5)->Arg(1'000)->Arg(10'000);

/// A pass that fuses every operator with the number behind it, from the end.
void fusingPass(benchmark::State& state) {
  const TokenList list = sumOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    TokenList copy(list);
    copy.performEditsToListsWith(TokenType::operator_, false, [](const Token& token, TokenList& owner, const Token*) {
      const auto index = owner.indexOf(token);
      if (index && *index + 1 < owner.count()) {
        owner.replaceRun(*index, *index + 1, owner.slice(*index, *index + 1).embedInContainerToken(TokenType::rate));
      }
    });
    benchmark::DoNotOptimize(copy.count());
  }
}
BENCHMARK(fusingPass)->Arg(1'000)->Arg(10'000);

void wrapBrackets(benchmark::State& state) {
  const auto depth = static_cast<std::uint32_t>(state.range(0));
  std::vector<Token> tokens;
  for (std::uint32_t i = 0; i < 2 * depth; ++i) {
    tokens.emplace_back(TokenType::bracket, i < depth ? TokenSubType::openBracket : TokenSubType::closeBracket,
                        i < depth ? "(" : ")", NSRange{i, 1});
  }
  const TokenList list(std::move(tokens));
  for (auto _ : state) {
    TokenList copy(list);
    benchmark::DoNotOptimize(copy.wrapBracketsInSubexpressions());
  }
}
BENCHMARK(wrapBrackets)->Arg(10)->Arg(200)->Arg(5'000);

}  // namespace
}  // namespace tavrine
