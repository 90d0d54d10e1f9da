#pragma once

#include <cstdint>
#include <string_view>

#include "TavrineCore/Parsing/Lexing/CharacterType.h"

namespace tavrine {

/// What a lexeme looks like. The lexer knows no words: "in" and "abc" are both a `word`.
enum class LexemeType : std::uint8_t {
  whitespace,
  number,
  symbol,
  word,
  wordNumberCluster,  ///< letters and digits, ending in a digit: "x2"
  other,              ///< a character that begins nothing else
};

std::string_view toString(LexemeType type);

/// Which characters may begin, continue and end a lexeme.
namespace lexeme_characters {

inline constexpr CharacterTypeSet justWhitespace{CharacterType::whitespace};
inline constexpr CharacterTypeSet justNumber{CharacterType::number};
inline constexpr CharacterTypeSet symbols{CharacterType::symbol, CharacterType::dot, CharacterType::comma};
inline constexpr CharacterTypeSet numberHead{CharacterType::number, CharacterType::dot, CharacterType::comma};
inline constexpr CharacterTypeSet numberBody{CharacterType::number, CharacterType::dot, CharacterType::comma,
                                             CharacterType::underscore, CharacterType::apostrophe};
inline constexpr CharacterTypeSet numberTail{CharacterType::number, CharacterType::underscore};
inline constexpr CharacterTypeSet wordHead{CharacterType::letter, CharacterType::underscore, CharacterType::hash};
inline constexpr CharacterTypeSet wordBody{CharacterType::letter, CharacterType::apostrophe, CharacterType::dot,
                                           CharacterType::number, CharacterType::underscore, CharacterType::hash};
inline constexpr CharacterTypeSet wordTail{CharacterType::letter, CharacterType::apostrophe, CharacterType::underscore};
inline constexpr CharacterTypeSet clusterHead{CharacterType::letter, CharacterType::underscore};
inline constexpr CharacterTypeSet clusterBody{CharacterType::letter, CharacterType::number, CharacterType::underscore,
                                              CharacterType::dot,    CharacterType::comma,  CharacterType::hash};
inline constexpr CharacterTypeSet nothing{};

}  // namespace lexeme_characters

}  // namespace tavrine
