#include "TavrineCore/Customization/Functions/CustomFunctionsList.h"

#include <utility>

#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexeme.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

CustomFunctionsList::CustomFunctionsList(std::vector<CustomFunction> custom) : customFunctions_(std::move(custom)) {
  for (const CustomFunction& function : customFunctions_) {
    if (!function.customTypes()) continue;
    for (const CustomType& type : *function.customTypes()) {
      for (const std::string& symbol : type.symbols()) {
        const std::string key = lowercased(symbol);
        customTypesMap_.insert_or_assign(key, type);
        const std::vector<Lexeme> lexemes = Lexer::lexemesFor(key, Locale::current());
        if (lexemes.size() > 1) multiWordCustomTypesPrefixWordsCache_.emplace(lexemes.front().string);
      }
    }
  }
}

const CustomType* CustomFunctionsList::customTypeFor(std::string_view symbol) const {
  if (customTypesMap_.empty()) return nullptr;
  const auto found = customTypesMap_.find(lowercased(symbol));
  return found == customTypesMap_.end() ? nullptr : &found->second;
}

bool CustomFunctionsList::beginsMultiWordCustomType(std::string_view word) const {
  return !multiWordCustomTypesPrefixWordsCache_.empty() &&
         multiWordCustomTypesPrefixWordsCache_.contains(lowercased(word));
}

}  // namespace tavrine
