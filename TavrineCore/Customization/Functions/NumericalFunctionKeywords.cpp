#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"

#include <algorithm>
#include <cstddef>
#include <span>
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

bool isSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

/// Hands out the words of the phrase; its placeholders are none. Thousands of phrases are cut when the list is made,
/// and nearly all are in small letters of English, whose words are parts of the phrase itself.
template <class Visitor>
void visitWordsOf(std::string_view phrase, Visitor&& visit) {
  std::vector<std::string> cut;
  for (std::size_t start = 0; start < phrase.size();) {
    const std::size_t end = std::min(phrase.find(' ', start), phrase.size());
    std::string_view piece = phrase.substr(start, end - start);
    piece = piece.substr(0, piece.find(CustomType::requiredPrefix));
    start = end + 1;
    if (std::all_of(piece.begin(), piece.end(), isSmallLetter)) {
      if (!piece.empty()) visit(piece);
    } else {
      cut.clear();
      appendWordsOf(piece, cut);
      for (const std::string& word : cut) visit(std::string_view(word));
    }
  }
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
  constexpr std::size_t kUsualWords = 6;  // of a phrase
  keywordsOfPhrases_.reserve(kUsualWords * indexedFunctions_.size());
  std::vector<std::size_t> ends;  // of each phrase, in the list of all their keywords
  ends.reserve(indexedFunctions_.size());
  std::vector<std::size_t> uses;
  for (const Function& function : indexedFunctions_) {
    const auto first = static_cast<std::ptrdiff_t>(keywordsOfPhrases_.size());
    visitWordsOf(function.prototypeExpression, [&](std::string_view word) {
      auto entry = keywordNumbersForKeywords_.find(word);
      if (entry == keywordNumbersForKeywords_.end()) {
        entry = keywordNumbersForKeywords_.emplace(word, static_cast<KeywordNumber>(uses.size())).first;
        uses.push_back(0);
      }
      keywordsOfPhrases_.push_back(entry->second);
    });
    std::sort(keywordsOfPhrases_.begin() + first, keywordsOfPhrases_.end());
    keywordsOfPhrases_.erase(std::unique(keywordsOfPhrases_.begin() + first, keywordsOfPhrases_.end()),
                             keywordsOfPhrases_.end());
    for (auto keyword = keywordsOfPhrases_.begin() + first; keyword != keywordsOfPhrases_.end(); ++keyword)
      ++uses[*keyword];
    ends.push_back(keywordsOfPhrases_.size());
  }

  keywords_ = WordFilter::ofKeys(keywordNumbersForKeywords_);
  functionsWithRequirements_.resize(uses.size());
  for (std::size_t i = 0; i < indexedFunctions_.size(); ++i) {
    const std::size_t first = i == 0 ? 0 : ends[i - 1];
    if (first == ends[i]) {
      wordlessFunctions_.push_back(i);
      continue;
    }
    const auto keywords = std::span(keywordsOfPhrases_).subspan(first, ends[i] - first);
    const KeywordNumber rarest = *std::min_element(keywords.begin(), keywords.end(),
                                                   [&](KeywordNumber a, KeywordNumber b) { return uses[a] < uses[b]; });
    functionsWithRequirements_[rarest].push_back({i, first, keywords.size()});
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
      const auto keywords = std::span(keywordsOfPhrases_).subspan(function.firstKeyword, function.keywordCount);
      if (std::includes(present.begin(), present.end(), keywords.begin(), keywords.end())) {
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
