#include "TavrineCore/Parsing/Lexing/LetterNumberScanner.h"

#include <cstddef>
#include <cstdint>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/CharacterClassifier.h"

namespace tavrine {

std::vector<LetterNumberScanner::LetterNumberToken> LetterNumberScanner::scanString(std::string_view text) {
  std::vector<LetterNumberToken> tokens;
  std::uint32_t utf16Offset = 0;
  for (ClusterIterator it(text); !it.atEnd(); it.advance()) {
    const CharacterType type = CharacterClassifier::determineType(it.cluster());
    if (type != CharacterType::letter && type != CharacterType::number) return {};
    const auto runType = type == CharacterType::letter ? LetterNumberTokenType::letter : LetterNumberTokenType::number;
    if (tokens.empty() || tokens.back().type != runType) tokens.push_back({runType, {}, {utf16Offset, 0}});
    const auto length = static_cast<std::uint32_t>(utf16Length(it.cluster()));
    tokens.back().value += it.cluster();
    tokens.back().range.length += length;
    utf16Offset += length;
  }
  return tokens;
}

}  // namespace tavrine
