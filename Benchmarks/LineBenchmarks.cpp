// Whole lines, text in and answer out, through a calculator that has seen such lines before.

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Benchmarks/Allocations.h"
#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Functions/FunctionVendor.h"
#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {
namespace {

/// An iteration is one line; what it allocates is told beside its time. Skipped with an error where the answer is not
/// the one that the line is there for: a line that isn't understood is cheap, and its time says nothing. Where the
/// answer depends on the day, any will do.
void calculateLine(benchmark::State& state, std::string_view line, std::optional<std::string_view> want) {
  Calculator calculator(EngineCustomization::standard());
  const std::string answer = calculator.calculate(line).stringValue;
  if (want ? answer != *want : answer.empty()) {
    state.SkipWithError(("the answer is " + answer).c_str());
    return;
  }
  const std::size_t before = benchmarks::allocations();
  for (auto _ : state) {
    CalculationResult result = calculator.calculate(line);
    benchmark::DoNotOptimize(result);
  }
  const auto allocations = static_cast<double>(benchmarks::allocations() - before);
  state.counters["allocations"] = allocations / static_cast<double>(state.iterations());
}

BENCHMARK_CAPTURE(calculateLine, OnePlusTwo, "1 + 2", "3")->Name("BM_Line/OnePlusTwo");
BENCHMARK_CAPTURE(calculateLine, Brackets, "2 * (3 + 4) * 5", "70")->Name("BM_Line/Brackets");
BENCHMARK_CAPTURE(calculateLine, PlainWords,
                  "the old plums under our crooked trees grow best where loamy soil keeps some rain and "
                  "morning fog lingers long",
                  "")
    ->Name("BM_Line/PlainWords");

BENCHMARK_CAPTURE(calculateLine, Units, "20 km / 4 hours in mph", "3.1068559612 mph")->Name("BM_Line/Units");
BENCHMARK_CAPTURE(calculateLine, Money, "$10 + 20%", "$12.00")->Name("BM_Line/Money");
BENCHMARK_CAPTURE(calculateLine, WordFunction, "what is 20% of 50", "10")->Name("BM_Line/WordFunction");
BENCHMARK_CAPTURE(calculateLine, Date, "today + 3 weeks", std::nullopt)->Name("BM_Line/Date");
BENCHMARK_CAPTURE(calculateLine, Place, "3pm in Paris to New York", std::nullopt)->Name("BM_Line/Place");

/// What a line without a phrase pays for the phrases that there are: those that it could hold, chosen by its words.
/// `more` phrases without a word of the line have joined the usual ones.
void preselectPhrases(benchmark::State& state, std::string_view line, int more) {
  const EngineCustomization customization = EngineCustomization::standard();
  std::vector<Function> functions = FunctionVendor::functionsFor(customization);
  for (int i = 0; i < more; ++i) {
    const std::string made{'q', static_cast<char>('a' + i % 26), static_cast<char>('a' + i / 26 % 26), 'q'};
    functions.push_back({"what is the " + made + " of 10 and 10 in __unit", FunctionIdentifier::xToY});
  }
  const NumericalFunctionKeywords keywords(std::move(functions));
  const TokenList list = Parser(customization).tokensFor(line, VariableList());
  for (auto _ : state) {
    benchmark::DoNotOptimize(keywords.wordFunctionsWorthScanningForIn(list, customization.featureFlags()));
  }
}

BENCHMARK_CAPTURE(preselectPhrases, Usual, "20 km / 4 hours in mph", 0)->Name("BM_Preselection/Usual");
BENCHMARK_CAPTURE(preselectPhrases, ThousandMore, "20 km / 4 hours in mph", 1000)->Name("BM_Preselection/ThousandMore");

constexpr std::array<std::string_view, 24> kPlainSums{
    "12.50 + 7.25 + 3",
    "1024 * 768",
    "(12 + 8) * 3 - 7",
    "99.99 * 12 / 4",
    "2 ^ 10 - 24",
    "1,250 + 3,475 + 890",
    "3.14159 * 5 ^ 2",
    "100 - 33.3 - 33.3",
    "(5 + 3) * (7 - 2) / 4",
    "86400 / 60 / 60",
    "0.1 + 0.2 + 0.3 + 0.4",
    "45 * 8 + 12 * 6.5",
    "1000000 / 365",
    "17 * 23 - 19 * 11",
    "((2 + 3) * 4 - 6) / 7",
    "1 / 3 + 1 / 6",
    "250 * 1.19 - 17.50",
    "12 * 12 * 12",
    "5 - -3 + 2 * -4",
    "1.5 + 2.25 * 4 - 0.125 / 2",
    "640 * 480 * 3 / 1024",
    "9.81 * 12 ^ 2 / 2",
    "7 + 14 + 21 + 28 + 35 + 42",
    "(1 + 0.05) ^ 10 * 1000",
};

void calculatePage(benchmark::State& state, const std::vector<std::string>& page) {
  if (page.empty()) {
    state.SkipWithError("no page");
    return;
  }
  Calculator calculator(EngineCustomization::standard());
  for (const std::string& line : page) benchmark::DoNotOptimize(calculator.calculate(line));
  std::size_t next = 0;
  for (auto _ : state) {
    CalculationResult result = calculator.calculate(page[next]);
    benchmark::DoNotOptimize(result);
    if (++next == page.size()) next = 0;
  }
}

void plainSums(benchmark::State& state) { calculatePage(state, {kPlainSums.begin(), kPlainSums.end()}); }
BENCHMARK(plainSums)->Name("BM_Page/PlainSums");

void mixedPage(benchmark::State& state) {
  std::ifstream file(TAVRINE_SOURCE_DIR "/Benchmarks/mixed-page.txt");
  std::vector<std::string> page;
  for (std::string line; std::getline(file, line);) page.push_back(line);
  calculatePage(state, page);
}
BENCHMARK(mixedPage)->Name("BM_Page/Mixed");

void freshCalculator(benchmark::State& state) {
  Calculator first(EngineCustomization::standard());
  for (auto _ : state) {
    Calculator calculator(EngineCustomization::standard());
    benchmark::DoNotOptimize(calculator);
  }
}
BENCHMARK(freshCalculator)->Name("BM_FreshCalculator");

}  // namespace
}  // namespace tavrine
