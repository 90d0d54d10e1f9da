#pragma once

#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The functions of a customization's host, with the words that their own types bring along. Read-only.
class CustomFunctionsList {
 public:
  explicit CustomFunctionsList(std::vector<CustomFunction> custom);

  [[nodiscard]] const std::vector<CustomFunction>& customFunctions() const { return customFunctions_; }
  /// The type of which the text, in whatever case, is a symbol; null for others. Of two types with one symbol the later
  /// counts.
  [[nodiscard]] const CustomType* customTypeFor(std::string_view symbol) const;
  /// Whether a symbol of several words begins with the word, in whatever case.
  [[nodiscard]] bool beginsMultiWordCustomType(std::string_view word) const;

 private:
  std::vector<CustomFunction> customFunctions_;
  StringMap<CustomType> customTypesMap_;  // by symbol in lower case
  StringSet multiWordCustomTypesPrefixWordsCache_;
};

}  // namespace tavrine
