#pragma once

#include <optional>
#include <string_view>
#include <vector>

/// Questions about words, answered by the lexer in the current locale. The results are views into the text.
namespace tavrine {

/// The first word of a text of several; nothing for a single one.
[[nodiscard]] std::optional<std::string_view> firstWord(std::string_view text);
/// All lexemes but white space.
[[nodiscard]] std::vector<std::string_view> words(std::string_view text);
[[nodiscard]] std::vector<std::string_view> wordsIncludingWhitespace(std::string_view text);
/// Whether the text is more than one word: "square meters" and "m2." are.
[[nodiscard]] bool isPhrase(std::string_view text);
[[nodiscard]] bool isSingleWord(std::string_view text);

}  // namespace tavrine
