#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Foundation/HashedWord.h"

namespace tavrine::foundation {

/// Tells most of the words that a vocabulary doesn't hold, whatever their case, at the price of two bits to look at.
/// Nearly every word that people type is unknown to nearly every vocabulary. Two bytes for each word.
class WordFilter {
 public:
  /// Rejects every ASCII word.
  WordFilter() = default;
  /// For about so many words; with many more it rejects less.
  explicit WordFilter(std::size_t expectedWords);

  /// For the keys of a map or the elements of a set of texts.
  template <class Keys>
  [[nodiscard]] static WordFilter ofKeys(const Keys& keys) {
    WordFilter filter(keys.size());
    for (const auto& key : keys) {
      if constexpr (requires { key.first; }) {
        filter.insert(key.first);
      } else {
        filter.insert(key);
      }
    }
    return filter;
  }

  void insert(const HashedWord& word);
  /// Two words in a row, which `mayContainPair` asks for.
  void insertPair(const HashedWord& first, const HashedWord& second);

  /// False only where no word was inserted that is equal to this one but for the case of its letters. Words with bytes
  /// beyond ASCII are never rejected.
  [[nodiscard]] bool mayContain(const HashedWord& word) const { return word.hash == 0 || isSet(word.hash); }
  [[nodiscard]] bool mayContainPair(const HashedWord& first, const HashedWord& second) const {
    return first.hash == 0 || second.hash == 0 || isSet(hashOfPair(first, second));
  }

 private:
  static constexpr std::size_t kBitsPerEntry = 64;

  [[nodiscard]] static std::uint64_t hashOfPair(const HashedWord& first, const HashedWord& second) {
    return (first.hash ^ second.hash >> 32 ^ second.hash << 32) * 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
  }
  void set(std::uint64_t hash);
  [[nodiscard]] bool isSet(std::uint64_t hash) const { return isBitSet(hash & 0xFFFFFFFF) && isBitSet(hash >> 32); }
  [[nodiscard]] bool isBitSet(std::uint64_t half) const {
    if (bits_.empty()) return false;
    return (bits_[half / kBitsPerEntry & (bits_.size() - 1)] >> half % kBitsPerEntry & 1) != 0;
  }

  std::vector<std::uint64_t> bits_;  // a power of two of entries, or none
};

}  // namespace tavrine::foundation
