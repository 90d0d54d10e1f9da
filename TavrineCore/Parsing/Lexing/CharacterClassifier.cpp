#include "TavrineCore/Parsing/Lexing/CharacterClassifier.h"

#include <array>
#include <cstddef>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Variables/SingleCharacterUIDGenerator.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

namespace {

/// U+0080 ... U+00FF. The degree sign and its look-alike, the ordinal mark º, are symbols both, so that "5º" reads as
/// degrees.
constexpr CharacterType typeOfLatin1(char32_t scalar) {
  switch (scalar) {
    case 0x85:
    case 0xA0:
      return CharacterType::whitespace;
    case 0xB2:
    case 0xB3:
    case 0xB9:
    case 0xBC:
    case 0xBD:
    case 0xBE:
      return CharacterType::number;
    case 0xAA:
    case 0xB5:
      return CharacterType::letter;
    case 0xAD:
      return CharacterType::other;  // the soft hyphen, a format character
    case 0xD7:
    case 0xF7:
      return CharacterType::symbol;
    default:
      break;
  }
  if (scalar < 0xA0) return CharacterType::other;
  return scalar >= 0xC0 ? CharacterType::letter : CharacterType::symbol;
}

constexpr auto kTable = [] {
  std::array<CharacterType, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] = i < 0x80 ? asciiCharacterTypes[i] : typeOfLatin1(static_cast<char32_t>(i));
  }
  return table;
}();

CharacterType typeByProperties(char32_t scalar, bool isSingleScalar) {
  if (isWhitespace(scalar)) return CharacterType::whitespace;
  if (isSingleScalar && SingleCharacterUIDGenerator::isUID(scalar)) return CharacterType::internalReference;
  if (hasNumericType(scalar)) return CharacterType::number;
  if (isAlphabetic(scalar)) return CharacterType::letter;
  constexpr char32_t kFancyApostrophe = 0x2019;
  if (scalar == kFancyApostrophe && isSingleScalar) return CharacterType::apostrophe;
  if (isSymbol(scalar) || isPunctuation(scalar)) return CharacterType::symbol;
  return CharacterType::other;
}

constexpr bool isHanScalar(char32_t scalar) {
  return (scalar >= 0x4E00 && scalar <= 0x9FFF) || (scalar >= 0x3400 && scalar <= 0x4DBF) ||
         (scalar >= 0x20000 && scalar <= 0x2A6DF) || (scalar >= 0x2A700 && scalar <= 0x2B73F);
}

/// A dot, an apostrophe and the like are what they are only alone: with a combining mark they are mere symbols.
CharacterType withMarks(CharacterType bare) {
  switch (bare) {
    case CharacterType::dot:
    case CharacterType::comma:
    case CharacterType::apostrophe:
    case CharacterType::hash:
    case CharacterType::underscore:
      return CharacterType::symbol;
    default:
      return bare;
  }
}

}  // namespace

CharacterType CharacterClassifier::determineType(std::string_view character, bool includeHanzi) {
  if (character.empty()) return CharacterType::other;
  const DecodedScalar first = decodeScalar(character, 0);
  const bool isSingleScalar = first.length == character.size();
  if (first.scalar < kTable.size()) {
    const CharacterType bare = kTable[first.scalar];
    return isSingleScalar ? bare : withMarks(bare);
  }
  if (includeHanzi && isHanScalar(first.scalar)) return CharacterType::hanzi;
  return typeByProperties(first.scalar, isSingleScalar);
}

bool CharacterClassifier::isHanzi(std::string_view character) noexcept {
  return !character.empty() && isHanScalar(decodeScalar(character, 0).scalar);
}

}  // namespace tavrine
