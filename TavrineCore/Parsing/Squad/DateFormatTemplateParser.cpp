#include "TavrineCore/Parsing/Squad/DateFormatTemplateParser.h"

#include <algorithm>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"

namespace tavrine {

namespace {

constexpr std::string_view kSupportedLetters = "adDEehHmMsSTvVwyYzZ";
constexpr std::string_view kDateFormatSeparators = "'.";

bool isSupportedLetter(char c) { return kSupportedLetters.find(c) != std::string_view::npos; }
bool isSeparator(char c) { return kDateFormatSeparators.find(c) != std::string_view::npos; }

/// What can stand between two parts of a template.
bool isDivider(const Token& token) {
  return TokenTypeSet::dateFormatDividerTypes.contains(token.type) || token.is(TokenType::whitespace) ||
         token.is(TokenType::colon);
}

}  // namespace

bool DateFormatTemplateParser::isValidDateFormat(std::string_view string) {
  if (string.empty() || !isSupportedLetter(string.front()) || !isSupportedLetter(string.back())) return false;
  return std::ranges::all_of(string, [](char c) { return isSupportedLetter(c) || isSeparator(c); });
}

bool DateFormatTemplateParser::isValidDateFormatToken(const Token& token) {
  std::string_view text = token.stringValue;
  if (token.is(TokenType::label) && text.ends_with(':')) text.remove_suffix(1);
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(kDateFormatSeparators);
    const std::string_view part = text.substr(0, end);
    if (!part.empty() && !isValidDateFormat(part)) return false;
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return true;
}

std::optional<TokenSlice> DateFormatTemplateParser::dateFormatConverterSliceFrom(std::size_t converterSymbol,
                                                                                 const TokenList& list) {
  const auto first = list.indexAfter(converterSymbol, /*ignoreWhitespace=*/true);
  if (!first) return std::nullopt;
  std::optional<std::size_t> last;
  for (std::size_t i = *first; i < list.count(); ++i) {
    if (TokenTypeSet::dateFormatTemplateTypes.contains(list[i].type) && isValidDateFormatToken(list[i])) {
      last = i;
    } else if (i == *first || !isDivider(list[i])) {
      break;
    }
  }
  if (!last) return std::nullopt;
  // A single letter opens a template only with more behind it: "d MMM".
  const bool isLetter = utf16Length(list[*first].stringValue) == 1;
  if (isDurationUnit(&list[*first]) && (!isLetter || *last == *first)) return std::nullopt;
  return list.slice(converterSymbol, *last);
}

}  // namespace tavrine
