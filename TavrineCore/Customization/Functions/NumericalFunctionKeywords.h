#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

struct EngineFeatureFlags;
class TokenList;

/// The phrases of the built-in functions, indexed by their words. A line costs a probe for each of its words, and a
/// look at the phrases of which it holds the rarest word, however many phrases there are.
class NumericalFunctionKeywords {
 public:
  NumericalFunctionKeywords() = default;
  /// The order of the functions is their rank.
  explicit NumericalFunctionKeywords(std::vector<Function> functions);

  [[nodiscard]] const std::vector<Function>& indexedFunctions() const { return indexedFunctions_; }

  /// The functions of which the list holds every word, by rank: a superset of those that match. They live as long as
  /// the index.
  [[nodiscard]] std::vector<const Function*> wordFunctionsWorthScanningForIn(
      const TokenList& tokenList, const EngineFeatureFlags& featureFlags) const;

 private:
  using KeywordNumber = std::uint32_t;

  /// What a line must hold for a phrase: a run of `keywordsOfPhrases_`, ascending.
  struct FunctionRequirements {
    std::size_t functionIndex = 0;
    std::size_t firstKeyword = 0;
    std::size_t keywordCount = 0;
  };

  [[nodiscard]] std::vector<KeywordNumber> keywordNumbersIn(const TokenList& tokenList) const;

  std::vector<Function> indexedFunctions_;
  StringMap<KeywordNumber> keywordNumbersForKeywords_;
  WordFilter keywords_;
  /// Of all phrases, one after the other.
  std::vector<KeywordNumber> keywordsOfPhrases_;
  /// By the number of the keyword under which a phrase stands: the rarest of its words.
  std::vector<std::vector<FunctionRequirements>> functionsWithRequirements_;
  /// Phrases without a word: "6 : 60".
  std::vector<std::size_t> wordlessFunctions_;
};

/// The words of a phrase or of a line, in lower case: runs of letters. Letters of scripts that put no blanks between
/// words are words of their own.
void appendWordsOf(std::string_view text, std::vector<std::string>& words);

}  // namespace tavrine
