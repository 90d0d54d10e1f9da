#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// Tells by which words people call a currency.
class CurrencyAliasesProvider {
 public:
  explicit CurrencyAliasesProvider(const std::vector<CurrencyDescription>& descriptions);

  /// Whether there are words for the code.
  [[nodiscard]] bool describes(std::string_view code) const { return aliases_.contains(code); }

  /// The code in lower case, the words of the description, and the code itself. Codes that in lower case are words with
  /// another meaning ("all", "dot", "kgs") come in upper case alone.
  [[nodiscard]] std::vector<std::string> aliasesForCurrency(std::string_view code) const;

 private:
  StringMap<std::vector<std::string>> aliases_;
};

}  // namespace tavrine
