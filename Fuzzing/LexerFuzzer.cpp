#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

/// Whatever the bytes: the lexemes tile the text, none is empty, and their UTF-16 lengths add up.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrine;
  const std::string_view raw(reinterpret_cast<const char*>(data), size);
  const std::string clean = sanitizedUtf8(raw);
  for (const std::string_view text : {raw, std::string_view(clean)}) {
    for (const auto script : {Lexer::Script::alphabetic, Lexer::Script::chinese}) {
      std::size_t byteOffset = 0;
      std::size_t utf16Offset = 0;
      for (const Lexeme& lexeme : Lexer::lexemesFor(text, script)) {
        if (lexeme.string.empty() || lexeme.byteOffset != byteOffset || lexeme.range.location != utf16Offset ||
            lexeme.string.data() != text.data() + byteOffset) {
          std::abort();
        }
        byteOffset += lexeme.string.size();
        utf16Offset += lexeme.range.length;
      }
      if (byteOffset != text.size() || utf16Offset != utf16Length(text)) std::abort();
    }
  }
  return 0;
}
