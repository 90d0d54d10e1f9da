// The yardstick: work that never changes and calls nothing of ours. Machines differ in speed, and the ratio of a figure
// to this one, taken in the same run, differs less between them. Never edit it: every recorded ratio would lose its
// meaning.

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

/// Classifies and hashes 4,096 bytes that look like text: branches, table look-ups and multiplications in about the
/// measure that lexing and look-ups have them.
void BM_Reference(benchmark::State& state) {
  constexpr std::size_t kSize = 4096;
  std::array<std::uint8_t, kSize> text{};
  std::uint32_t random = 2463534242U;
  for (auto& byte : text) {
    random ^= random << 13;
    random ^= random >> 17;
    random ^= random << 5;
    byte = static_cast<std::uint8_t>(32 + random % 95);
  }
  std::array<std::uint32_t, 256> seen{};
  for (auto _ : state) {
    std::uint64_t hash = 14695981039346656037ULL;
    std::uint32_t words = 0;
    for (const std::uint8_t byte : text) {
      const bool isLetter = (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
      if (isLetter) {
        hash = (hash ^ byte) * 1099511628211ULL;
      } else {
        words += ++seen[(hash >> 32) & 0xFF] & 1U;
        hash = 14695981039346656037ULL;
      }
    }
    benchmark::DoNotOptimize(hash);
    benchmark::DoNotOptimize(words);
  }
}
BENCHMARK(BM_Reference);

}  // namespace
