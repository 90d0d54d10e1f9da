#include "TavrineCore/Parsing/Lexing/Lexer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/CharacterClassifier.h"

namespace tavrine {

std::string_view toString(LexemeType type) {
  constexpr std::array<std::string_view, 6> kNames = {"whitespace",        "number", "symbol", "word",
                                                      "wordNumberCluster", "other"};
  return kNames[static_cast<std::size_t>(type)];
}

namespace {

using namespace lexeme_characters;

/// A text in which each byte is a character.
class AsciiCharacters {
 public:
  explicit AsciiCharacters(std::string_view text) : text_(text) {}

  std::size_t count() const { return text_.size(); }
  CharacterType type(std::size_t i) const { return CharacterClassifier::asciiType(text_[i]); }
  std::size_t byteOffset(std::size_t i) const { return i; }
  std::size_t utf16Offset(std::size_t i) const { return i; }
  bool isAscii(std::size_t) const { return true; }

 private:
  std::string_view text_;
};

/// A text of which the characters have been found and classified beforehand.
class ClusteredCharacters {
 public:
  ClusteredCharacters(std::string_view text, bool includeHanzi) {
    characters_.reserve(text.size() + 1);
    std::size_t utf16Offset = 0;
    forEachCluster(text, [&](std::string_view cluster, std::size_t byteOffset) {
      const bool isPlain = cluster.size() == 1 && static_cast<unsigned char>(cluster.front()) < 0x80;
      const CharacterType type = isPlain ? CharacterClassifier::asciiType(cluster.front())
                                         : CharacterClassifier::determineType(cluster, includeHanzi);
      characters_.push_back({byteOffset, utf16Offset, type, isPlain || cluster == "\r\n"});
      utf16Offset += isPlain ? 1 : utf16Length(cluster);
    });
    characters_.push_back({text.size(), utf16Offset, CharacterType::other, false});
  }

  std::size_t count() const { return characters_.size() - 1; }
  CharacterType type(std::size_t i) const { return characters_[i].type; }
  std::size_t byteOffset(std::size_t i) const { return characters_[i].byteOffset; }
  std::size_t utf16Offset(std::size_t i) const { return characters_[i].utf16Offset; }
  bool isAscii(std::size_t i) const { return characters_[i].isAscii; }

 private:
  struct Character {
    std::size_t byteOffset;
    std::size_t utf16Offset;
    CharacterType type;
    bool isAscii;
  };
  /// With one past the end, so that every offset has an end.
  std::vector<Character> characters_;
};

constexpr CharacterTypeSet kHeads[] = {justWhitespace, numberHead, symbols, wordHead, clusterHead, nothing};
constexpr CharacterTypeSet kBodies[] = {justWhitespace, numberBody, nothing, wordBody, clusterBody, nothing};
/// Empty where any character may come last.
constexpr CharacterTypeSet kTails[] = {nothing, numberTail, nothing, wordTail, justNumber, nothing};

constexpr CharacterTypeSet kNumberJoiners{CharacterType::dot, CharacterType::comma, CharacterType::underscore};
constexpr CharacterTypeSet kClusterJoiners{CharacterType::dot, CharacterType::comma};

template <class Characters>
class Scanner {
 public:
  Scanner(std::string_view text, const Characters& characters, bool isChinese)
      : text_(text), characters_(characters), isChinese_(isChinese) {}

  std::vector<Lexeme> lexemes() {
    std::vector<Lexeme> result;
    result.reserve(std::min<std::size_t>(characters_.count() / 2 + 2, 65'536));
    for (std::size_t start = 0; start < characters_.count();) {
      LexemeType type = LexemeType::whitespace;
      const std::size_t end = endOfLexeme(start, type);
      result.push_back(lexeme(start, end, type));
      start = end;
    }
    return result;
  }

 private:
  /// Tries the kinds of lexeme in their order.
  std::size_t endOfLexeme(std::size_t start, LexemeType& type) {
    const CharacterType head = characters_.type(start);
    const bool isFound = begins<LexemeType::whitespace>(start, head, type) ||
                         begins<LexemeType::number>(start, head, type) ||
                         begins<LexemeType::symbol>(start, head, type) || begins<LexemeType::word>(start, head, type) ||
                         begins<LexemeType::wordNumberCluster>(start, head, type);
    if (isFound) return end_;
    type = LexemeType::other;
    return start + 1;
  }

  /// Whether a lexeme of that type begins at `start`; it ends at `end_`.
  template <LexemeType candidate>
  bool begins(std::size_t start, CharacterType head, LexemeType& type) {
    if (!kHeads[index(candidate)].contains(head)) return false;
    if (candidate == LexemeType::wordNumberCluster && isChinese_ && !characters_.isAscii(start)) return false;
    // Where a run ends doesn't depend on where in it the scan began. So a run that fails for its last character fails
    // from each of its characters, and is not walked again: "a'a'a'a … 1" would cost the square of its length.
    std::size_t& failedEnd = failedEnds_[index(candidate)];
    if (start < failedEnd) return false;
    end_ = start + 1;
    while (end_ < characters_.count() && continues<candidate>(end_)) ++end_;
    constexpr CharacterTypeSet kTail = kTails[index(candidate)];
    if (!kTail.isEmpty() && !kTail.contains(characters_.type(end_ - 1))) {
      failedEnd = end_;
      return false;
    }
    type = candidate;
    return true;
  }

  template <LexemeType type>
  bool continues(std::size_t at) const {
    const CharacterType character = characters_.type(at);
    if (!kBodies[index(type)].contains(character)) return false;
    // What joins two parts is taken only with the second part.
    if (type == LexemeType::number && kNumberJoiners.contains(character))
      return isFollowedBy(at, CharacterType::number);
    if (type == LexemeType::wordNumberCluster && kClusterJoiners.contains(character)) {
      return isFollowedBy(at, CharacterType::number);
    }
    if (type == LexemeType::word && character == CharacterType::dot) return isFollowedBy(at, CharacterType::letter);
    return true;
  }

  bool isFollowedBy(std::size_t at, CharacterType type) const {
    return at + 1 < characters_.count() && characters_.type(at + 1) == type;
  }

  Lexeme lexeme(std::size_t start, std::size_t end, LexemeType type) const {
    const std::size_t firstByte = characters_.byteOffset(start);
    const std::size_t firstUnit = characters_.utf16Offset(start);
    return {text_.substr(firstByte, characters_.byteOffset(end) - firstByte),
            firstByte,
            {narrow(firstUnit), narrow(characters_.utf16Offset(end) - firstUnit)},
            type};
  }

  static constexpr std::size_t index(LexemeType type) { return static_cast<std::size_t>(type); }
  static std::uint32_t narrow(std::size_t value) {
    return static_cast<std::uint32_t>(std::min<std::size_t>(value, std::numeric_limits<std::uint32_t>::max()));
  }

  std::string_view text_;
  const Characters& characters_;
  bool isChinese_;
  std::size_t end_ = 0;
  /// By type: no scan that starts before this place can succeed.
  std::array<std::size_t, 6> failedEnds_{};
};

template <class Characters>
std::vector<Lexeme> scanned(std::string_view text, const Characters& characters, bool isChinese) {
  return Scanner<Characters>(text, characters, isChinese).lexemes();
}

}  // namespace

std::vector<Lexeme> Lexer::lexemesFor(std::string_view text, const Locale& locale) {
  return lexemesFor(text, locale.isChinese() ? Script::chinese : Script::alphabetic);
}

std::vector<Lexeme> Lexer::lexemesFor(std::string_view text, Script script) {
  const bool isChinese = script == Script::chinese;
  if (isAscii(text)) return scanned(text, AsciiCharacters(text), isChinese);
  return scanned(text, ClusteredCharacters(text, isChinese), isChinese);
}

}  // namespace tavrine
