#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tavrine::foundation {

/// The bytes of a text of up to eight, in an order that only the length tells: two halves that may overlap.
[[nodiscard]] inline std::uint64_t packedBytesOf(std::string_view text) {
  if (text.size() >= sizeof(std::uint32_t)) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, text.data(), sizeof first);
    std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
    return std::uint64_t{first} << 32 | last;
  }
  if (text.empty()) return 0;
  const auto byteAt = [text](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(text[i])}; };
  return byteAt(0) << 16 | byteAt(text.size() / 2) << 8 | byteAt(text.size() - 1);
}

/// A hash of the bytes, the same in each run on one machine; made for words, eight bytes a step. Not for files.
[[nodiscard]] inline std::uint64_t hashOfText(std::string_view text) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
  const auto mixed = [](std::uint64_t hash, std::uint64_t bytes) {
    hash = (hash ^ bytes) * kFactor;
    return hash ^ hash >> 32;
  };
  std::uint64_t hash = text.size();
  for (std::uint64_t bytes = 0; text.size() > sizeof bytes; text.remove_prefix(sizeof bytes)) {
    std::memcpy(&bytes, text.data(), sizeof bytes);
    hash = mixed(hash, bytes);
  }
  return mixed(mixed(hash, packedBytesOf(text)), hash);
}

/// Hashes texts so that a map with `std::string` keys answers `find` for a `std::string_view` without a copy.
struct StringHash {
  using is_transparent = void;
  // Not noexcept: then the standard library's tables keep the hash beside each text, and a search looks at no other
  // text than the one that it finds.
  std::size_t operator()(std::string_view text) const { return hashOfText(text); }
};

template <class Value>
using StringMap = std::unordered_map<std::string, Value, StringHash, std::equal_to<>>;

using StringSet = std::unordered_set<std::string, StringHash, std::equal_to<>>;

/// Of texts that live elsewhere.
template <class Value>
using StringViewMap = std::unordered_map<std::string_view, Value, StringHash, std::equal_to<>>;

}  // namespace tavrine::foundation
