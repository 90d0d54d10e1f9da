#include "Foundation/WordFilter.h"

#include <bit>
#include <cstring>
#include <optional>

#include "Foundation/StringMap.h"

namespace tavrine::foundation {

namespace {

constexpr std::size_t kBitsPerEntry = 64;
constexpr std::size_t kBitsPerWord = 16;

/// Equal for words that differ only in the case of ASCII letters; nothing beyond ASCII.
std::optional<std::uint64_t> hashIgnoringCase(std::string_view word) {
  constexpr std::uint64_t kFactor = 0xD6E8FEB86659FD93;
  constexpr std::uint64_t kBeyondAscii = 0x8080808080808080;
  constexpr std::uint64_t kCaseBits = 0x2020202020202020;  // of signs as well: fewer bits, not a wrong answer
  std::uint64_t hash = word.size();
  bool isAscii = true;
  const auto mix = [&](std::uint64_t bytes) {
    isAscii = isAscii && (bytes & kBeyondAscii) == 0;
    hash = (hash ^ (bytes | kCaseBits)) * kFactor;
    hash ^= hash >> 32;
  };
  for (std::uint64_t bytes = 0; word.size() > sizeof bytes; word.remove_prefix(sizeof bytes)) {
    std::memcpy(&bytes, word.data(), sizeof bytes);
    mix(bytes);
  }
  mix(packedBytesOf(word));
  if (!isAscii) return std::nullopt;
  return hash * kFactor;
}

}  // namespace

WordFilter::WordFilter(std::size_t expectedWords) {
  if (expectedWords > 0) bits_.resize(std::bit_ceil(expectedWords * kBitsPerWord / kBitsPerEntry + 1));
}

void WordFilter::insert(std::string_view word) {
  const auto hash = hashIgnoringCase(word);
  if (!hash) return;
  if (bits_.empty()) bits_.resize(1);
  for (const std::uint64_t half : {*hash >> 32, *hash & 0xFFFFFFFF}) {
    bits_[half / kBitsPerEntry & (bits_.size() - 1)] |= std::uint64_t{1} << half % kBitsPerEntry;
  }
}

bool WordFilter::mayContain(std::string_view word) const {
  const auto hash = hashIgnoringCase(word);
  if (!hash) return true;
  if (bits_.empty()) return false;
  const auto isSet = [this](std::uint64_t half) {
    return (bits_[half / kBitsPerEntry & (bits_.size() - 1)] >> half % kBitsPerEntry & 1) != 0;
  };
  return isSet(*hash >> 32) && isSet(*hash & 0xFFFFFFFF);
}

}  // namespace tavrine::foundation
