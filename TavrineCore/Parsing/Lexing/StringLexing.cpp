#include "TavrineCore/Parsing/Lexing/StringLexing.h"

#include <algorithm>
#include <cstddef>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

namespace {

bool isNothingButLowercaseLetters(std::string_view text) {
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    if (!isLowercaseLetter(next.scalar)) return false;
    offset += next.length;
  }
  return true;
}

}  // namespace

std::optional<std::string_view> firstWord(std::string_view text) {
  const std::vector<Lexeme> lexemes = Lexer::lexemesFor(text, Locale::current());
  if (lexemes.size() < 2) return std::nullopt;
  return lexemes.front().string;
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(text, Locale::current())) {
    if (lexeme.type != LexemeType::whitespace) result.push_back(lexeme.string);
  }
  return result;
}

std::vector<std::string_view> wordsIncludingWhitespace(std::string_view text) {
  std::vector<std::string_view> result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(text, Locale::current())) result.push_back(lexeme.string);
  return result;
}

bool isPhrase(std::string_view text) {
  // Most names are plain lower-case words: those need no lexer.
  if (isNothingButLowercaseLetters(text)) return false;
  return Lexer::lexemesFor(text, Locale::current()).size() > 1;
}

bool isSingleWord(std::string_view text) { return !isPhrase(text); }

}  // namespace tavrine
