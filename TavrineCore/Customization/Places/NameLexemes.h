#pragma once

#include <string>
#include <string_view>

#include "TavrineCore/Imports.h"

namespace tavrine {

/// How a name begins, white space left out: its first lexeme and, if it has more than one, the second. In the case in
/// which they are written.
struct NameLexemes {
  std::string_view first;
  std::string_view second;

  [[nodiscard]] bool areSeveral() const noexcept { return !second.empty(); }
};

/// The views are into `name`. Under the current locale.
[[nodiscard]] NameLexemes leadingLexemesOf(std::string_view name);

}  // namespace tavrine
