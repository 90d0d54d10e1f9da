#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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

  void insert(std::string_view word);

  /// False only where no word was inserted that is equal to this one but for the case of its letters. Words with bytes
  /// beyond ASCII are never rejected.
  [[nodiscard]] bool mayContain(std::string_view word) const;

 private:
  std::vector<std::uint64_t> bits_;
};

}  // namespace tavrine::foundation
