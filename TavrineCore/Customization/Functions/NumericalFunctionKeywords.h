#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/WordFilter.h"
#include "Foundation/WordTable.h"
#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

struct EngineFeatureFlags;
class TokenList;

/// In which wordings, besides its own, an indexed phrase is looked for. They are made when a line first holds their
/// words: there are more of them than phrases.
struct PhraseWordings {
  /// Those of `FunctionVariantsGenerator`.
  bool variants = false;
  /// With the name of a place that only the host knows where the phrase ends with a zone.
  bool placesOfProvider = false;
};

/// The phrases of the built-in functions, indexed by their words. A line costs a probe for each of its words, and a
/// look at the phrases of which it holds the rarest word, however many phrases there are.
class NumericalFunctionKeywords {
 public:
  NumericalFunctionKeywords() = default;
  /// The order of the functions is their rank.
  explicit NumericalFunctionKeywords(std::vector<Function> functions, PhraseWordings wordings = {});

  [[nodiscard]] const std::vector<Function>& indexedFunctions() const { return indexedFunctions_; }

  /// The functions of which the list holds every word, by rank, and behind each its other wordings: a superset of those
  /// that match, or will match when calls of them have become values. They live as long as the index.
  [[nodiscard]] std::vector<const Function*> wordFunctionsWorthScanningForIn(
      const TokenList& tokenList, const EngineFeatureFlags& featureFlags) const;

 private:
  using KeywordNumber = std::uint32_t;

  /// What a line must hold for a phrase: a run of `keywordsOfPhrases_`, ascending.
  struct FunctionRequirements {
    std::uint32_t functionIndex = 0;
    std::uint32_t firstKeyword = 0;
    std::uint32_t keywordCount = 0;
    std::uint32_t signature = 0;  // of the run
  };

  /// A word that may stand for the one with which the phrases are written.
  struct Replacement {
    KeywordNumber word = 0;
    KeywordNumber original = 0;
  };

  struct Wording {
    Function function;
    std::vector<KeywordNumber> keywords;  // ascending
  };
  class WordingCache;

  [[nodiscard]] KeywordNumber numberOfKeyword(std::string_view word);
  [[nodiscard]] std::vector<KeywordNumber> keywordNumbersIn(const TokenList& tokenList) const;
  [[nodiscard]] std::span<const Replacement> replacementsBy(KeywordNumber word) const;
  /// With the words for which one of these may stand.
  [[nodiscard]] std::vector<KeywordNumber> withOriginals(const std::vector<KeywordNumber>& present) const;
  void indexReplacements();
  void addWordless(const TokenList& tokenList, std::vector<std::size_t>& ranks) const;
  [[nodiscard]] std::vector<std::size_t> ranksWithin(const std::vector<KeywordNumber>& words) const;
  [[nodiscard]] std::vector<Wording> wordingsOf(const Function& function) const;

  std::vector<Function> indexedFunctions_;
  PhraseWordings kinds_;
  std::shared_ptr<WordingCache> wordings_;
  std::vector<Replacement> replacements_;                  // by word
  std::shared_ptr<std::deque<std::string>> keywordTexts_;  // which copies of the index share
  std::vector<std::uint32_t> firstReplacements_;           // by the number of the word; one more at the end
  WordTable<KeywordNumber> keywordNumbersForKeywords_;
  WordFilter keywords_;
  /// Of all phrases, one after the other.
  std::vector<KeywordNumber> keywordsOfPhrases_;
  std::vector<std::size_t> ends_;  // of each phrase, in that list
  /// By the number of the keyword under which a phrase stands: the rarest of its words.
  std::vector<std::vector<FunctionRequirements>> functionsWithRequirements_;
  /// Phrases without a word, "10 ft 1080p", by the types that their gaps want.
  struct WordlessPhrases {
    TokenTypeSet types;
    std::vector<std::size_t> ranks;
  };
  std::vector<WordlessPhrases> wordlessFunctions_;
};

/// The words of a phrase or of a line, in lower case: runs of letters. Letters of scripts that put no blanks between
/// words are words of their own, and so is "!".
void appendWordsOf(std::string_view text, std::vector<std::string>& words);

}  // namespace tavrine
