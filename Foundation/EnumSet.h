#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace tavrine::foundation {

/// A set of the values of an enumeration whose values run from 0 to `count` - 1, as bits.
template <typename Enum, std::size_t count>
class EnumSet {
 public:
  constexpr EnumSet() = default;
  constexpr EnumSet(std::initializer_list<Enum> members) {
    for (const Enum member : members) insert(member);
  }

  /// All from `first` to `last`, both included.
  static constexpr EnumSet fromTo(Enum first, Enum last) {
    EnumSet set;
    for (auto i = static_cast<std::size_t>(first); i <= static_cast<std::size_t>(last); ++i) {
      set.insert(static_cast<Enum>(i));
    }
    return set;
  }

  constexpr bool contains(Enum member) const {
    const auto index = static_cast<std::size_t>(member);
    return (words_[index / 64] >> (index % 64) & 1u) != 0;
  }
  constexpr bool containsAny(const EnumSet& other) const {
    for (std::size_t i = 0; i < kWords; ++i) {
      if ((words_[i] & other.words_[i]) != 0) return true;
    }
    return false;
  }
  constexpr bool empty() const { return size() == 0; }
  constexpr std::size_t size() const {
    std::size_t result = 0;
    for (const std::uint64_t word : words_) result += static_cast<std::size_t>(std::popcount(word));
    return result;
  }

  constexpr void insert(Enum member) {
    const auto index = static_cast<std::size_t>(member);
    words_[index / 64] |= std::uint64_t{1} << (index % 64);
  }
  constexpr void remove(Enum member) {
    const auto index = static_cast<std::size_t>(member);
    words_[index / 64] &= ~(std::uint64_t{1} << (index % 64));
  }

  constexpr void formUnion(const EnumSet& other) {
    for (std::size_t i = 0; i < kWords; ++i) words_[i] |= other.words_[i];
  }

  /// Calls `visit(member)` for each member in the order of the enumeration.
  template <typename Visit>
  constexpr void forEach(Visit visit) const {
    for (std::size_t i = 0; i < kWords; ++i) {
      for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
        visit(static_cast<Enum>(i * 64 + static_cast<std::size_t>(std::countr_zero(word))));
      }
    }
  }

  constexpr std::size_t hash() const {
    std::uint64_t result = 0;
    for (const std::uint64_t word : words_) {
      result = (result ^ word) * 0x9E3779B97F4A7C15u;
      result ^= result >> 32;
    }
    return static_cast<std::size_t>(result);
  }

  friend constexpr bool operator==(const EnumSet&, const EnumSet&) = default;

 private:
  static constexpr std::size_t kWords = (count + 63) / 64;
  std::array<std::uint64_t, kWords> words_{};
};

}  // namespace tavrine::foundation
