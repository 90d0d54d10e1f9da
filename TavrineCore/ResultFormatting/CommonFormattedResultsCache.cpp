#include "TavrineCore/ResultFormatting/CommonFormattedResultsCache.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "Foundation/Decimal.h"

namespace tavrine {
namespace {

constexpr std::size_t kCount = 1000;
constexpr std::size_t kWidth = 3;

// Three digits a number, with leading zeros that a look-up steps over: made by the compiler, nothing to build or guard.
constexpr auto kDigits = [] {
  std::array<char, kCount * kWidth> digits{};
  for (std::size_t i = 0; i < kCount; ++i) {
    digits[i * kWidth] = static_cast<char>('0' + i / 100);
    digits[i * kWidth + 1] = static_cast<char>('0' + i / 10 % 10);
    digits[i * kWidth + 2] = static_cast<char>('0' + i % 10);
  }
  return digits;
}();

}  // namespace

std::optional<std::string_view> CommonFormattedResultsCache::find(const Decimal& value) noexcept {
  if (!value.isWhole() || value.isSignMinus() || value.exponent() > 2) return std::nullopt;
  const std::uint64_t number = value.uint64Value();
  if (number >= kCount) return std::nullopt;
  const std::size_t leadingZeros = number >= 100 ? 0 : number >= 10 ? 1 : 2;
  return std::string_view(kDigits.data() + number * kWidth + leadingZeros, kWidth - leadingZeros);
}

}  // namespace tavrine
