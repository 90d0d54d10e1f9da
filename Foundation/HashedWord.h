#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

namespace tavrine::foundation {

/// FNV-1a of the text with ASCII letters in small, continued from the hash of what stands before it. The same on every
/// machine.
[[nodiscard]] constexpr std::uint64_t foldedHash(std::string_view text, std::uint64_t before = 0xCBF29CE484222325) {
  constexpr std::uint64_t kPrime = 0x100000001B3;
  std::uint64_t hash = before;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    hash = (hash ^ (c >= 'A' && c <= 'Z' ? byte | 0x20U : byte)) * kPrime;
  }
  return hash;
}

/// A word with its hash: what each of many vocabularies is asked with, hashed once.
struct HashedWord {
  std::string_view text;
  /// The `foldedHash`, equal for words that differ only in the case of ASCII letters; 0 for a word with bytes beyond
  /// ASCII, and for no other.
  std::uint64_t hash;

  /// From a text of any kind, so that who has no hash need not know of it.
  template <std::convertible_to<std::string_view> Text>
  HashedWord(const Text& word) : text(word), hash(hashOf(text)) {}
  HashedWord(std::string_view word, std::uint64_t hashOfWord) : text(word), hash(hashOfWord) {}

 private:
  static std::uint64_t hashOf(std::string_view word) {
    unsigned seen = 0;
    for (const char c : word) seen |= static_cast<unsigned char>(c);
    if (seen >= 0x80) return 0;
    const std::uint64_t hash = foldedHash(word);
    return hash == 0 ? 1 : hash;
  }
};

}  // namespace tavrine::foundation
