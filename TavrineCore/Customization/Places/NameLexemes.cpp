#include "TavrineCore/Customization/Places/NameLexemes.h"

#include <cstddef>

#include "Foundation/Locale.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

namespace {

std::size_t lettersAt(std::string_view text, std::size_t start) {
  std::size_t end = start;
  while (end < text.size()) {
    const unsigned char folded = static_cast<unsigned char>(text[end]) | 0x20;
    if (folded < 'a' || folded > 'z') break;
    ++end;
  }
  return end - start;
}

}  // namespace

NameLexemes leadingLexemesOf(std::string_view name) {
  // Nearly all names are English letters and blanks, where a lexeme is what stands between blanks.
  const std::size_t first = lettersAt(name, 0);
  if (first > 0 && first == name.size()) return {name, {}};
  if (first > 0 && name[first] == ' ') {
    const std::size_t second = lettersAt(name, first + 1);
    const std::size_t end = first + 1 + second;
    if (second > 0 && (end == name.size() || name[end] == ' ')) {
      return {name.substr(0, first), name.substr(first + 1, second)};
    }
  }

  NameLexemes result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(name, Locale::current())) {
    if (lexeme.type == LexemeType::whitespace) continue;
    if (result.first.empty()) {
      result.first = lexeme.string;
    } else {
      result.second = lexeme.string;
      break;
    }
  }
  return result;
}

}  // namespace tavrine
