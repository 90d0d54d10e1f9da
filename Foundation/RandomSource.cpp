#include "Foundation/RandomSource.h"

#include <atomic>
#include <random>
#include <utility>

namespace tavrine::foundation {

namespace {

/// Splitmix: a counter and a mixing of its bits. All state is one counter, so threads share it without a lock.
class MixedCounter final : public RandomSource {
 public:
  explicit MixedCounter(std::uint64_t seed) noexcept : counter_(seed) {}

  std::uint64_t next() override {
    constexpr std::uint64_t step = 0x9e3779b97f4a7c15ULL;
    std::uint64_t bits = counter_.fetch_add(step, std::memory_order_relaxed) + step;
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9ULL;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebULL;
    return bits ^ (bits >> 31);
  }

 private:
  std::atomic<std::uint64_t> counter_;
};

}  // namespace

std::int64_t RandomSource::integerIn(std::int64_t lower, std::int64_t upper) {
  if (lower > upper) std::swap(lower, upper);
  const auto start = static_cast<std::uint64_t>(lower);
  const std::uint64_t count = static_cast<std::uint64_t>(upper) - start + 1;
  if (count == 0) return static_cast<std::int64_t>(next());  // all 64-bit integers
  // The bits below this bound would make the small remainders likelier than the others.
  const std::uint64_t unevenPart = (0 - count) % count;
  std::uint64_t bits = next();
  while (bits < unevenPart) bits = next();
  return static_cast<std::int64_t>(start + bits % count);
}

double RandomSource::unitInterval() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

std::shared_ptr<RandomSource> systemRandomSource() {
  static const auto shared = [] {
    std::random_device device;
    return std::make_shared<MixedCounter>((std::uint64_t{device()} << 32) ^ device());
  }();
  return shared;
}

std::shared_ptr<RandomSource> seededRandomSource(std::uint64_t seed) { return std::make_shared<MixedCounter>(seed); }

}  // namespace tavrine::foundation
