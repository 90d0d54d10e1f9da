#pragma once

#include <string_view>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Lexing/Lexeme.h"

namespace tavrine {

/// Cuts a line into lexemes by the looks of its characters: "5.5% of x2" into the number "5.5", the symbol "%", the
/// word "of", the cluster "x2" and what is blank between them. Never fails: the lexemes tile the text.
class Lexer {
 public:
  /// The lexemes of the text, as views into it. The locale matters for one thing: in Chinese each Han character is a
  /// lexeme of its own. Linear in the text.
  [[nodiscard]] static std::vector<Lexeme> lexemesFor(std::string_view text, const Locale& locale);

  enum class Script : bool { alphabetic, chinese };
  [[nodiscard]] static std::vector<Lexeme> lexemesFor(std::string_view text, Script script);
};

}  // namespace tavrine
