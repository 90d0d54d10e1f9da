// Lines of 10,000 tokens, one kind of token each, and how their cost grows: nothing that can be pasted may be
// quadratic.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstddef>
#include <ctime>
#include <string>
#include <string_view>

#include "TavrineCore/Calculator.h"

namespace tavrine {
namespace {

constexpr std::size_t kFew = 1'000;
constexpr std::size_t kMany = 10'000;
constexpr std::size_t kNesting = 100;

/// `count` tokens of repeated `text`, which has `tokensInText` of them.
std::string repeated(std::string_view text, std::size_t tokensInText, std::size_t count) {
  std::string line;
  for (std::size_t i = 0; i < count / tokensInText; ++i) line += text;
  return line;
}

/// "((…(1+1)+1…)+1)", one bundle of such brackets after the other.
std::string nestedBrackets(std::size_t count) {
  std::string bundle(kNesting, '(');
  bundle += '1';
  for (std::size_t i = 0; i < kNesting; ++i) bundle += "+1)";
  bundle += '*';
  return repeated(bundle, 4 * kNesting + 2, count);
}

double processorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Keeps freed memory in the process. Otherwise the system hands out and takes back the pages of every line of 10,000
/// tokens, and of none of 1,000: half the time of the longer ones, and its share in the growth says nothing of us.
void keepMemory() {
  constexpr int kBytes = 32 << 20;
  mallopt(M_MMAP_THRESHOLD, kBytes);
  mallopt(M_TRIM_THRESHOLD, 4 * kBytes);
}

/// An iteration is a line of 10,000 tokens. The counter `growth` is its cost in lines of 1,000 tokens.
template <class MakeLine>
void longLine(benchmark::State& state, const MakeLine& lineOf) {
  keepMemory();
  const std::string few = lineOf(kFew);
  const std::string many = lineOf(kMany);
  Calculator calculator(EngineCustomization::tavrine());
  calculator.calculate("x = 5");
  benchmark::DoNotOptimize(calculator.calculate(few));
  double secondsOfMany = 0;
  double secondsOfFew = 0;
  for (auto _ : state) {
    const double start = processorSeconds();
    CalculationResult result = calculator.calculate(many);
    benchmark::DoNotOptimize(result);
    result = {};
    secondsOfMany += processorSeconds() - start;

    state.PauseTiming();
    const double startOfFew = processorSeconds();
    for (std::size_t i = 0; i < kMany / kFew; ++i) benchmark::DoNotOptimize(calculator.calculate(few));
    secondsOfFew += processorSeconds() - startOfFew;
    state.ResumeTiming();
  }
  state.counters["growth"] = secondsOfMany / secondsOfFew * static_cast<double>(kMany / kFew);
}

void repeatedText(benchmark::State& state, std::string_view text, std::size_t tokensInText) {
  longLine(state, [&](std::size_t count) { return repeated(text, tokensInText, count); });
}

BENCHMARK_CAPTURE(repeatedText, Sums, "1+", 2)->Name("BM_LongLine/Sums");
BENCHMARK_CAPTURE(repeatedText, SpacedSums, "12.5 * 3 - ", 8)->Name("BM_LongLine/SpacedSums");
BENCHMARK_CAPTURE(repeatedText, Numbers, "1 ", 2)->Name("BM_LongLine/Numbers");
BENCHMARK_CAPTURE(repeatedText, Signs, "-", 1)->Name("BM_LongLine/Signs");
BENCHMARK_CAPTURE(repeatedText, Operators, "+-*/", 4)->Name("BM_LongLine/Operators");
BENCHMARK_CAPTURE(repeatedText, EmptyBrackets, "()", 2)->Name("BM_LongLine/EmptyBrackets");
BENCHMARK_CAPTURE(repeatedText, Brackets, "(1)", 3)->Name("BM_LongLine/Brackets");
BENCHMARK_CAPTURE(repeatedText, ClosingBrackets, "1)", 2)->Name("BM_LongLine/ClosingBrackets");
BENCHMARK_CAPTURE(repeatedText, NumberWords, "twenty seven ", 4)->Name("BM_LongLine/NumberWords");
BENCHMARK_CAPTURE(repeatedText, Words, "plums grow ", 4)->Name("BM_LongLine/Words");
BENCHMARK_CAPTURE(repeatedText, Letters, "a ", 2)->Name("BM_LongLine/Letters");
BENCHMARK_CAPTURE(repeatedText, Variables, "x ", 2)->Name("BM_LongLine/Variables");
BENCHMARK_CAPTURE(repeatedText, VariableSums, "x + ", 4)->Name("BM_LongLine/VariableSums");
BENCHMARK_CAPTURE(repeatedText, VocabularyWords, "of in and ", 6)->Name("BM_LongLine/VocabularyWords");
BENCHMARK_CAPTURE(repeatedText, Percentages, "5% ", 3)->Name("BM_LongLine/Percentages");
BENCHMARK_CAPTURE(repeatedText, PercentSigns, "% ", 2)->Name("BM_LongLine/PercentSigns");
BENCHMARK_CAPTURE(repeatedText, Commas, "a,", 2)->Name("BM_LongLine/Commas");
BENCHMARK_CAPTURE(repeatedText, Equals, "a=", 2)->Name("BM_LongLine/Equals");
BENCHMARK_CAPTURE(repeatedText, Amounts, "5 km + ", 6)->Name("BM_LongLine/Amounts");
BENCHMARK_CAPTURE(repeatedText, Units, "km ", 2)->Name("BM_LongLine/Units");
BENCHMARK_CAPTURE(repeatedText, FeetAndInches, "5 ft 3 in, ", 9)->Name("BM_LongLine/FeetAndInches");
BENCHMARK_CAPTURE(repeatedText, Money, "$5 + ", 5)->Name("BM_LongLine/Money");
BENCHMARK_CAPTURE(repeatedText, Rates, "5 km/h * ", 7)->Name("BM_LongLine/Rates");
BENCHMARK_CAPTURE(repeatedText, Dates, "12/12/2024 ", 6)->Name("BM_LongLine/Dates");
BENCHMARK_CAPTURE(repeatedText, DateWords, "may monday ", 4)->Name("BM_LongLine/DateWords");
BENCHMARK_CAPTURE(repeatedText, ClockTimes, "3:45 pm ", 6)->Name("BM_LongLine/ClockTimes");
BENCHMARK_CAPTURE(repeatedText, Durations, "3 h 20 min + ", 10)->Name("BM_LongLine/Durations");
BENCHMARK_CAPTURE(repeatedText, Places, "Paris ", 2)->Name("BM_LongLine/Places");
BENCHMARK_CAPTURE(repeatedText, Phrases, "half of 5 + ", 8)->Name("BM_LongLine/Phrases");
BENCHMARK_CAPTURE(repeatedText, NestedPhrases, "half of ", 4)->Name("BM_LongLine/NestedPhrases");

BENCHMARK_CAPTURE(repeatedText, Functions, "sqrt 1 ", 4)->Name("BM_LongLine/Functions");

void nested(benchmark::State& state) { longLine(state, nestedBrackets); }
BENCHMARK(nested)->Name("BM_LongLine/NestedBrackets");

}  // namespace
}  // namespace tavrine
