#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "TavrineCore/Parsing/Lexing/CharacterType.h"

namespace tavrine {

/// The types of the ASCII characters.
inline constexpr auto asciiCharacterTypes = [] {
  std::array<CharacterType, 128> types{};
  for (std::size_t i = 0; i < types.size(); ++i) {
    const char c = static_cast<char>(i);
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (c == ' ' || (c >= '\t' && c <= '\r')) {
      types[i] = CharacterType::whitespace;
    } else if (c >= '0' && c <= '9') {
      types[i] = CharacterType::number;
    } else {
      types[i] = isLetter ? CharacterType::letter : c > ' ' && i != 0x7F ? CharacterType::symbol : CharacterType::other;
    }
  }
  types['.'] = CharacterType::dot;
  types[','] = CharacterType::comma;
  types['\''] = CharacterType::apostrophe;
  types['#'] = CharacterType::hash;
  types['_'] = CharacterType::underscore;
  return types;
}();

/// Tells characters apart for the lexer. A character is one grapheme cluster in UTF-8; its first scalar decides.
class CharacterClassifier {
 public:
  /// The type of the character. With `includeHanzi` the Han characters are a type of their own, as Chinese texts want
  /// it, and not letters. ASCII and Latin-1 are answered from a table. An empty text is `other`.
  [[nodiscard]] static CharacterType determineType(std::string_view character, bool includeHanzi = false);

  /// The type of an ASCII character.
  [[nodiscard]] static CharacterType asciiType(char character) noexcept {
    return asciiCharacterTypes[static_cast<unsigned char>(character)];
  }

  /// Whether the character is a Han ideograph of the basic block or of extensions A to C.
  [[nodiscard]] static bool isHanzi(std::string_view character) noexcept;
};

}  // namespace tavrine
