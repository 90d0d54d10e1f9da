#pragma once

#include <string>
#include <string_view>

#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Lexing/LexemeType.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

struct CustomType;
struct PassContext;

/// The first token of a lexeme: a number, white space, a variable, a function name, a symbol of a
/// host's type, a fixture's type, or `unidentified`. Names of variables win over all words of the vocabulary.
Token tokenFor(std::string_view fragment, NSRange range, LexemeType type, const PassContext& context);

/// A symbol of a type that the host brought along.
Token customTypeToken(const CustomType& type, std::string text, NSRange range);

/// The whole line as one comment: what a line past the limits comes to, or one that no list of tokens covers.
TokenList commentOver(std::string_view line);

/// "Rent" and ":" → one `label`. A number before the colon makes one only where white space follows, so that "12:30"
/// is left alone.
void identifyLabels(TokenList& list);

}  // namespace tavrine
