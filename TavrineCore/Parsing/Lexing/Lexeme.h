#pragma once

#include <cstddef>
#include <string_view>

#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Lexing/LexemeType.h"

namespace tavrine {

/// A run of characters of a line that belong together by their looks alone.
struct Lexeme {
  /// A view into the line.
  std::string_view string;
  /// Where the text begins in the line, in bytes.
  std::size_t byteOffset = 0;
  /// Where the text stands in the line, in UTF-16 units.
  NSRange range;
  LexemeType type = LexemeType::other;

  friend bool operator==(const Lexeme&, const Lexeme&) = default;
};

}  // namespace tavrine
