#pragma once

#include <string_view>

#include "TavrineCore/Parsing/Lexing/CharacterType.h"

namespace tavrine {

/// Tells characters apart for the lexer. A character is one grapheme cluster in UTF-8; its first scalar decides.
class CharacterClassifier {
 public:
  /// The type of the character. With `includeHanzi` the Han characters are a type of their own, as Chinese texts want
  /// it, and not letters. ASCII and Latin-1 are answered from a table. An empty text is `other`.
  [[nodiscard]] static CharacterType determineType(std::string_view character, bool includeHanzi = false);

  /// The type of an ASCII character.
  [[nodiscard]] static CharacterType asciiType(char character) noexcept;

  /// Whether the character is a Han ideograph of the basic block or of extensions A to C.
  [[nodiscard]] static bool isHanzi(std::string_view character) noexcept;
};

}  // namespace tavrine
