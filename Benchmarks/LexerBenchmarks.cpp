#include <benchmark/benchmark.h>

#include <string>

#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {
namespace {

/// Bytes per second; the inverse is the time a character takes.
void lex(benchmark::State& state, std::string_view unit, std::size_t size) {
  std::string line;
  while (line.size() < size) line += unit;
  line += '1';
  for (auto _ : state) benchmark::DoNotOptimize(Lexer::lexemesFor(line, Lexer::Script::alphabetic));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * line.size()));
}

constexpr std::string_view kPlain = "20 km / 4 hours in mph + 1,234.5 ";
BENCHMARK_CAPTURE(lex, Line, kPlain, 30);
BENCHMARK_CAPTURE(lex, Ascii, kPlain, 100'000);
BENCHMARK_CAPTURE(lex, Accented, "20 € für 4 Stück à ½ ", 100'000);
BENCHMARK_CAPTURE(lex, FailingRuns, "a'", 100'000);

}  // namespace
}  // namespace tavrine
