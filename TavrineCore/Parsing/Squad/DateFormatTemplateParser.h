#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

/// Knows templates of dates, "dd.MM.yyyy" and "h:mm a", from words.
struct DateFormatTemplateParser {
  /// Whether the text has letters of date fields and separators alone, and letters at both ends.
  [[nodiscard]] static bool isValidDateFormat(std::string_view string);
  /// Whether the token is a template or a part of one: "yyyy", "HH:", "dd.MM".
  [[nodiscard]] static bool isValidDateFormatToken(const Token& token);
  /// From the converter symbol to the end of the template behind it; absent where none follows. A duration by itself is
  /// what a difference of dates is converted to: "in days" holds no template.
  [[nodiscard]] static std::optional<TokenSlice> dateFormatConverterSliceFrom(std::size_t converterSymbol,
                                                                              const TokenList& list);
};

}  // namespace tavrine
