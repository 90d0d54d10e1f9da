#pragma once

#include <cstdint>
#include <memory>

namespace tavrine::foundation {

/// Gives random bits. May be asked from any thread.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  [[nodiscard]] virtual std::uint64_t next() = 0;

  /// Evenly from `lower` to `upper`, both included; the bounds may come in either order.
  [[nodiscard]] std::int64_t integerIn(std::int64_t lower, std::int64_t upper);
  /// Evenly from 0 up to but not including 1.
  [[nodiscard]] double unitInterval();
};

/// Seeded from the machine; one source for the whole process.
[[nodiscard]] std::shared_ptr<RandomSource> systemRandomSource();

/// The same sequence for the same seed, on every machine.
[[nodiscard]] std::shared_ptr<RandomSource> seededRandomSource(std::uint64_t seed);

}  // namespace tavrine::foundation
