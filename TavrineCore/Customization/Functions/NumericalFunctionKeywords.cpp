#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// Scripts that are written without blanks between words.
bool standsAlone(char32_t scalar) { return scalar >= 0x2E80 && scalar < 0xAC00; }

bool isOneAsciiWord(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

/// The words of the phrase, each once; its placeholders are none.
std::vector<std::string> wordsOfPhrase(std::string_view phrase) {
  std::vector<std::string> words;
  for (std::size_t start = 0; start < phrase.size();) {
    const std::size_t end = std::min(phrase.find(' ', start), phrase.size());
    std::string_view piece = phrase.substr(start, end - start);
    const std::size_t placeholder = piece.find(CustomType::requiredPrefix);
    appendWordsOf(piece.substr(0, placeholder), words);
    start = end + 1;
  }
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

}  // namespace

void appendWordsOf(std::string_view text, std::vector<std::string>& words) {
  std::size_t start = 0;
  const auto endWord = [&](std::size_t end) {
    if (end > start) words.push_back(lowercased(text.substr(start, end - start)));
  };
  for (std::size_t i = 0; i < text.size();) {
    const DecodedScalar scalar = decodeScalar(text, i);
    const bool isLetter = isAlphabetic(scalar.scalar);
    if (!isLetter || standsAlone(scalar.scalar)) {
      endWord(i);
      start = i + scalar.length;
      if (isLetter) words.emplace_back(text.substr(i, scalar.length));
    }
    i += scalar.length;
  }
  endWord(text.size());
}

NumericalFunctionKeywords::NumericalFunctionKeywords(std::vector<Function> functions)
    : indexedFunctions_(std::move(functions)) {
  std::vector<std::vector<KeywordNumber>> keywordsOfFunctions;
  keywordsOfFunctions.reserve(indexedFunctions_.size());
  std::vector<std::size_t> uses;
  for (const Function& function : indexedFunctions_) {
    std::vector<KeywordNumber>& keywords = keywordsOfFunctions.emplace_back();
    for (std::string& word : wordsOfPhrase(function.prototypeExpression)) {
      const auto [entry, isNew] =
          keywordNumbersForKeywords_.try_emplace(std::move(word), static_cast<KeywordNumber>(uses.size()));
      if (isNew) uses.push_back(0);
      ++uses[entry->second];
      keywords.push_back(entry->second);
    }
    std::sort(keywords.begin(), keywords.end());
  }

  keywords_ = WordFilter::ofKeys(keywordNumbersForKeywords_);
  functionsWithRequirements_.resize(uses.size());
  for (std::size_t i = 0; i < indexedFunctions_.size(); ++i) {
    std::vector<KeywordNumber>& keywords = keywordsOfFunctions[i];
    if (keywords.empty()) {
      wordlessFunctions_.push_back(i);
      continue;
    }
    const auto rarest = std::min_element(keywords.begin(), keywords.end(),
                                         [&](KeywordNumber a, KeywordNumber b) { return uses[a] < uses[b]; });
    const KeywordNumber keyword = *rarest;
    keywords.erase(rarest);
    functionsWithRequirements_[keyword].push_back({i, std::move(keywords)});
  }
}

std::vector<NumericalFunctionKeywords::KeywordNumber> NumericalFunctionKeywords::keywordNumbersIn(
    const TokenList& tokenList) const {
  std::vector<KeywordNumber> numbers;
  std::vector<std::string> words;
  for (const Token& token : tokenList) {
    if (token.is(TokenType::whitespace) || token.is(TokenType::number)) continue;
    if (isOneAsciiWord(token.stringValue) && !keywords_.mayContain(token.stringValue)) continue;
    words.clear();
    appendWordsOf(token.stringValue, words);
    for (const std::string& word : words) {
      if (const auto found = keywordNumbersForKeywords_.find(word); found != keywordNumbersForKeywords_.end()) {
        numbers.push_back(found->second);
      }
    }
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

std::vector<const Function*> NumericalFunctionKeywords::wordFunctionsWorthScanningForIn(
    const TokenList& tokenList, const EngineFeatureFlags& featureFlags) const {
  if (!featureFlags.wordFunctions) return {};
  const std::vector<KeywordNumber> present = keywordNumbersIn(tokenList);
  std::vector<std::size_t> ranks = wordlessFunctions_;
  for (const KeywordNumber keyword : present) {
    for (const FunctionRequirements& function : functionsWithRequirements_[keyword]) {
      const auto& others = function.otherKeywords;
      if (std::includes(present.begin(), present.end(), others.begin(), others.end())) {
        ranks.push_back(function.functionIndex);
      }
    }
  }
  std::sort(ranks.begin(), ranks.end());
  std::vector<const Function*> functions;
  functions.reserve(ranks.size());
  for (const std::size_t rank : ranks) functions.push_back(&indexedFunctions_[rank]);
  return functions;
}

}  // namespace tavrine
