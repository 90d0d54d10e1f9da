#pragma once

#include <cstdint>
#include <initializer_list>

namespace tavrine {

/// What a character (a grapheme cluster) is to the lexer.
enum class CharacterType : std::uint8_t {
  whitespace,
  number,
  letter,
  symbol,
  apostrophe,
  dot,
  comma,
  underscore,
  hash,
  hanzi,
  internalReference,
  other,
};

/// A set of character types.
class CharacterTypeSet {
 public:
  constexpr CharacterTypeSet() = default;
  constexpr CharacterTypeSet(std::initializer_list<CharacterType> types) {
    for (const CharacterType type : types) bits_ = static_cast<std::uint16_t>(bits_ | bit(type));
  }
  [[nodiscard]] constexpr bool contains(CharacterType type) const noexcept { return (bits_ & bit(type)) != 0; }
  [[nodiscard]] constexpr bool isEmpty() const noexcept { return bits_ == 0; }

 private:
  static constexpr std::uint16_t bit(CharacterType type) {
    return static_cast<std::uint16_t>(1u << static_cast<unsigned>(type));
  }
  std::uint16_t bits_ = 0;
};

}  // namespace tavrine
