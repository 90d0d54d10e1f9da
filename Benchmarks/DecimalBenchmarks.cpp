#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "Foundation/NumberFormatter.h"
#include "Foundation/NumberRecognition.h"

namespace tavrine::foundation {
namespace {

constexpr std::size_t kCount = 1024;  // a power of two, so that the next operand costs one "and"

enum class Length { typed, full };

// Numbers as people type them (up to five digits and three places), or of 38 digits.
std::string numberText(std::mt19937_64& random, Length length) {
  if (length == Length::typed) return std::to_string(1 + random() % 100'000) + "." + std::to_string(random() % 1000);
  std::string text;
  for (int i = 0; i < 38; ++i) text += static_cast<char>('1' + random() % 9);
  text.insert(1 + random() % 30, 1, '.');
  return text;
}

std::vector<Decimal> numbers(Length length, unsigned seed) {
  std::mt19937_64 random(seed);
  std::vector<Decimal> result;
  for (std::size_t i = 0; i < kCount; ++i) result.push_back(*Decimal::parse(numberText(random, length)));
  return result;
}

template <class Operation>
void run(benchmark::State& state, Length length, Operation operation) {
  const std::vector<Decimal> left = numbers(length, 1), right = numbers(length, 2);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(operation(left[i], right[i]));
    i = (i + 1) % kCount;
  }
}

using Binary = Decimal (*)(const Decimal&, const Decimal&);
constexpr Binary kAdd = [](const Decimal& a, const Decimal& b) { return a + b; };
constexpr Binary kMultiply = [](const Decimal& a, const Decimal& b) { return a * b; };
constexpr Binary kDivide = [](const Decimal& a, const Decimal& b) { return a / b; };
constexpr Binary kRound = [](const Decimal& a, const Decimal&) { return a.rounded(2, RoundingMode::plain); };
constexpr Binary kSqrt = [](const Decimal& a, const Decimal&) { return DDDecimalSqrt(a); };
constexpr Binary kCubeRoot = [](const Decimal& a, const Decimal&) { return DDDecimalNthRoot(a, 3); };
constexpr Binary kModulus = [](const Decimal& a, const Decimal& b) { return DDDecimalMod(a, b); };
constexpr Binary kPower = [](const Decimal& a, const Decimal&) { return TCDecimalPower(a, 10); };
constexpr auto kCompare = [](const Decimal& a, const Decimal& b) { return a < b; };
constexpr auto kToDouble = [](const Decimal& a, const Decimal&) { return a.doubleValue(); };
constexpr auto kDescription = [](const Decimal& a, const Decimal&) { return a.description(); };

BENCHMARK_CAPTURE(run, DecimalAdd, Length::typed, kAdd)->Name("BM_DecimalAdd");
BENCHMARK_CAPTURE(run, DecimalAddFull, Length::full, kAdd)->Name("BM_DecimalAddFull");
BENCHMARK_CAPTURE(run, DecimalMultiply, Length::typed, kMultiply)->Name("BM_DecimalMultiply");
BENCHMARK_CAPTURE(run, DecimalMultiplyFull, Length::full, kMultiply)->Name("BM_DecimalMultiplyFull");
BENCHMARK_CAPTURE(run, DecimalDivide, Length::typed, kDivide)->Name("BM_DecimalDivide");
BENCHMARK_CAPTURE(run, DecimalDivideFull, Length::full, kDivide)->Name("BM_DecimalDivideFull");
BENCHMARK_CAPTURE(run, DecimalCompare, Length::typed, kCompare)->Name("BM_DecimalCompare");
BENCHMARK_CAPTURE(run, DecimalRound, Length::typed, kRound)->Name("BM_DecimalRound");
BENCHMARK_CAPTURE(run, DecimalToDouble, Length::typed, kToDouble)->Name("BM_DecimalToDouble");
BENCHMARK_CAPTURE(run, DecimalToDoubleFull, Length::full, kToDouble)->Name("BM_DecimalToDoubleFull");
BENCHMARK_CAPTURE(run, DecimalDescription, Length::typed, kDescription)->Name("BM_DecimalDescription");
BENCHMARK_CAPTURE(run, DecimalSquareRootTyped, Length::typed, kSqrt)->Name("BM_DecimalSquareRootTyped");
BENCHMARK_CAPTURE(run, DecimalNthRootTyped, Length::typed, kCubeRoot)->Name("BM_DecimalNthRootTyped");
BENCHMARK_CAPTURE(run, DecimalModulus, Length::typed, kModulus)->Name("BM_DecimalModulus");
BENCHMARK_CAPTURE(run, DecimalTenthPower, Length::typed, kPower)->Name("BM_DecimalTenthPower");

// Small arguments: the root is near, so that this shows the rounds of the last digits.
void roots(benchmark::State& state, Binary root) {
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(root(Decimal(2 + i), 0));
    i = (i + 1) % 98;
  }
}
BENCHMARK_CAPTURE(roots, SquareRoot, kSqrt)->Name("BM_DecimalSquareRoot");
BENCHMARK_CAPTURE(roots, CubeRoot, kCubeRoot)->Name("BM_DecimalNthRoot");

void formatDecimal(benchmark::State& state) {
  const std::vector<Decimal> values = numbers(Length::typed, 1);
  const NumberFormatter formatter("en_US");
  std::string text;
  std::size_t i = 0;
  for (auto _ : state) {
    text.clear();
    formatter.append(values[i], text);
    benchmark::DoNotOptimize(text.data());
    i = (i + 1) % kCount;
  }
}
BENCHMARK(formatDecimal)->Name("BM_FormatDecimal");

void recogniseNumber(benchmark::State& state) {
  const NumberSymbols& symbols = NumberSymbols::forLocale("en_US");
  for (auto _ : state) benchmark::DoNotOptimize(parseStrict("1,234,567.89", symbols));
}
BENCHMARK(recogniseNumber)->Name("BM_RecogniseNumber");

void findSymbols(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(&NumberSymbols::forLocale("de_DE"));
}
BENCHMARK(findSymbols)->Name("BM_NumberSymbols");

}  // namespace
}  // namespace tavrine::foundation
