#include "TavrineCore/Customization/Functions/NumericalFunctionKeywords.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <unordered_map>
#include <utility>

#include "Foundation/SerialQueue.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Customization/Functions/FunctionVariantsGenerator.h"
#include "TavrineCore/Customization/Functions/FunctionVendor.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// Scripts that are written without blanks between words; and the sign of a factorial, by which its phrase is found.
bool standsAlone(char32_t scalar) { return scalar == U'!' || (scalar >= 0x2E80 && scalar < 0xAC00); }

bool isOneAsciiWord(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

/// "45", but not "three", which phrases hold as a word.
bool isNumberInDigits(const Token& token) {
  return token.is(TokenType::number) && !isOneAsciiWord(std::string_view(token.stringValue).substr(0, 1));
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

void sortWithoutRepetitions(std::vector<std::uint32_t>& numbers) {
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

/// A bit for each keyword, some of which share one: what is in one signature and not in another is not among the
/// keywords of the other.
std::uint32_t signatureOf(std::span<const std::uint32_t> keywords) {
  constexpr std::uint32_t kBits = 32;
  std::uint32_t signature = 0;
  for (const std::uint32_t keyword : keywords) signature |= std::uint32_t{1} << keyword % kBits;
  return signature;
}

/// Hands out the words of the phrase; its placeholders are none. Thousands of phrases are cut when the list is made,
/// and nearly all are in small letters of English, whose words are parts of the phrase itself.
template <class Visitor>
void visitWordsOf(std::string_view phrase, Visitor&& visit) {
  std::vector<std::string> cut;
  for (std::size_t start = 0; start < phrase.size();) {
    std::size_t end = start;
    while (end < phrase.size() && isSmallLetter(phrase[end])) ++end;
    if (end == phrase.size() || phrase[end] == ' ') {
      if (end > start) visit(phrase.substr(start, end - start));
    } else {
      end = std::min(phrase.find(' ', end), phrase.size());
      std::string_view piece = phrase.substr(start, end - start);
      piece = piece.substr(0, piece.find(CustomType::requiredPrefix));
      cut.clear();
      // Most other pieces are numbers and gaps.
      if (!std::all_of(piece.begin(), piece.end(), isDigit)) appendWordsOf(piece, cut);
      for (const std::string& word : cut) visit(std::string_view(word));
    }
    start = end + 1;
  }
}

/// The types that a line must have held for the gaps of a phrase, as far as each takes tokens of its type alone.
TokenTypeSet typesWantedBy(std::string_view phrase) {
  constexpr TokenTypeSet kTakenForOthers{TokenType::anyWord, TokenType::dynamicPlace, TokenType::literal,
                                         TokenType::percentage, TokenType::number};
  TokenTypeSet types;
  for (std::size_t start = 0; start < phrase.size();) {
    const std::size_t end = std::min(phrase.find_first_of(" (", start), phrase.size());
    const std::string_view placeholder = phrase.substr(start, end - start);
    const auto type = PrototypeTypePlaceholders::typeFor(placeholder);
    if (type && !kTakenForOthers.contains(*type)) types.insert(*type);
    if (PrototypeTypePlaceholders::unitExpressionTypeFor(placeholder)) types.insert(TokenType::unitExpression);
    start = end + 1;
  }
  return types;
}

}  // namespace

void appendWordsOf(std::string_view text, std::vector<std::string>& words) {
  std::size_t start = 0;
  const auto endWord = [&](std::size_t end) {
    if (end > start) words.push_back(lowercased(text.substr(start, end - start)));
  };
  for (std::size_t i = 0; i < text.size();) {
    const DecodedScalar scalar = decodeScalar(text, i);
    const bool isAlone = standsAlone(scalar.scalar);
    const bool isWord = isAlone || isAlphabetic(scalar.scalar);
    if (!isWord || isAlone) {
      endWord(i);
      start = i + scalar.length;
      if (isWord) words.emplace_back(text.substr(i, scalar.length));
    }
    i += scalar.length;
  }
  endWord(text.size());
}

/// Read and filled by all threads that use the index.
class NumericalFunctionKeywords::WordingCache {
 public:
  /// What `make` gives the first time; it stays where it is.
  const std::vector<Wording>& wordingsOf(std::size_t rank, FunctionRef<std::vector<Wording>()> make) {
    return *accessQueue_.sync([&] {
      const auto [entry, isNew] = byRank_.try_emplace(rank);
      if (isNew) entry->second = make();
      return &entry->second;
    });
  }

 private:
  SerialQueue accessQueue_{"Phrase Wordings Access Queue"};
  std::unordered_map<std::size_t, std::vector<Wording>> byRank_;
};

NumericalFunctionKeywords::NumericalFunctionKeywords(std::vector<Function> functions, PhraseWordings wordings)
    : indexedFunctions_(std::move(functions)),
      kinds_(wordings),
      wordings_(std::make_shared<WordingCache>()),
      keywordTexts_(std::make_shared<std::deque<std::string>>()) {
  constexpr std::size_t kUsualWords = 6;  // of a phrase
  keywordsOfPhrases_.reserve(kUsualWords * indexedFunctions_.size());
  ends_.reserve(indexedFunctions_.size());
  for (const Function& function : indexedFunctions_) {
    const auto first = static_cast<std::ptrdiff_t>(keywordsOfPhrases_.size());
    visitWordsOf(function.prototypeExpression, [&](std::string_view word) {
      const KeywordNumber number = numberOfKeyword(word);
      // Among a handful of words, in their order.
      auto place = keywordsOfPhrases_.end();
      while (place != keywordsOfPhrases_.begin() + first && *(place - 1) >= number) --place;
      if (place == keywordsOfPhrases_.end() || *place != number) keywordsOfPhrases_.insert(place, number);
    });
    ends_.push_back(keywordsOfPhrases_.size());
  }
  if (kinds_.variants) {
    FunctionVariantsGenerator::forEachReplacement([&](std::string_view word, std::string_view original) {
      const KeywordNumber number = numberOfKeyword(word);
      const KeywordNumber* const found = keywordNumbersForKeywords_.find(original);
      // "%" is no word, and stands in no index.
      replacements_.push_back({number, found == nullptr ? number : *found});
    });
  }
  indexReplacements();
  keywords_ = WordFilter(keywordNumbersForKeywords_.size());
  for (const auto& [word, number] : keywordNumbersForKeywords_) keywords_.insert(word);

  std::vector<std::size_t> uses(keywordNumbersForKeywords_.size());
  for (const KeywordNumber keyword : keywordsOfPhrases_) ++uses[keyword];
  functionsWithRequirements_.resize(uses.size());
  for (std::size_t i = 0; i < indexedFunctions_.size(); ++i) {
    const std::size_t first = i == 0 ? 0 : ends_[i - 1];
    if (first == ends_[i]) {
      const TokenTypeSet types = typesWantedBy(indexedFunctions_[i].prototypeExpression);
      auto phrases = std::find_if(wordlessFunctions_.begin(), wordlessFunctions_.end(),
                                  [&types](const WordlessPhrases& known) { return known.types == types; });
      if (phrases == wordlessFunctions_.end()) phrases = wordlessFunctions_.insert(phrases, {types, {}});
      phrases->ranks.push_back(i);
      continue;
    }
    const auto keywords = std::span(keywordsOfPhrases_).subspan(first, ends_[i] - first);
    const KeywordNumber rarest = *std::min_element(keywords.begin(), keywords.end(),
                                                   [&](KeywordNumber a, KeywordNumber b) { return uses[a] < uses[b]; });
    functionsWithRequirements_[rarest].push_back({static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(first),
                                                  static_cast<std::uint32_t>(keywords.size()), signatureOf(keywords)});
  }
}

void NumericalFunctionKeywords::indexReplacements() {
  std::sort(replacements_.begin(), replacements_.end(),
            [](const Replacement& left, const Replacement& right) { return left.word < right.word; });
  firstReplacements_.assign(keywordNumbersForKeywords_.size() + 1, 0);
  for (const Replacement& replacement : replacements_) ++firstReplacements_[replacement.word + 1];
  std::partial_sum(firstReplacements_.begin(), firstReplacements_.end(), firstReplacements_.begin());
}

NumericalFunctionKeywords::KeywordNumber NumericalFunctionKeywords::numberOfKeyword(std::string_view word) {
  if (const KeywordNumber* const found = keywordNumbersForKeywords_.find(word)) return *found;
  const auto number = static_cast<KeywordNumber>(keywordNumbersForKeywords_.size());
  keywordNumbersForKeywords_.tryEmplace(keywordTexts_->emplace_back(word), number);
  return number;
}

std::vector<NumericalFunctionKeywords::KeywordNumber> NumericalFunctionKeywords::keywordNumbersIn(
    const TokenList& tokenList) const {
  std::vector<KeywordNumber> numbers;
  const auto add = [&](std::string_view word) {
    if (const KeywordNumber* const found = keywordNumbersForKeywords_.find(word)) numbers.push_back(*found);
  };
  std::vector<std::string> words;
  for (const Token& token : tokenList) {
    if (token.is(TokenType::whitespace) || isNumberInDigits(token)) continue;
    if (isOneAsciiWord(token.stringValue)) {
      if (!keywords_.mayContain(token.word())) continue;
      if (isLowercased(token.stringValue)) {
        add(token.stringValue);
        continue;
      }
    } else if (token.subtokens && !token.is(TokenType::number)) {
      continue;  // an amount, a converter: the word of a phrase is a token of its own
    }
    words.clear();
    appendWordsOf(token.stringValue, words);
    for (const std::string& word : words) add(word);
  }
  sortWithoutRepetitions(numbers);
  return numbers;
}

std::span<const NumericalFunctionKeywords::Replacement> NumericalFunctionKeywords::replacementsBy(
    KeywordNumber word) const {
  return std::span(replacements_)
      .subspan(firstReplacements_[word], firstReplacements_[word + 1] - firstReplacements_[word]);
}

std::vector<NumericalFunctionKeywords::KeywordNumber> NumericalFunctionKeywords::withOriginals(
    const std::vector<KeywordNumber>& present) const {
  std::vector<KeywordNumber> all = present;
  for (const KeywordNumber word : present) {
    for (const Replacement& replacement : replacementsBy(word)) all.push_back(replacement.original);
  }
  sortWithoutRepetitions(all);
  return all;
}

std::vector<std::size_t> NumericalFunctionKeywords::ranksWithin(const std::vector<KeywordNumber>& words) const {
  constexpr std::size_t kUsualPhrases = 32;
  std::vector<std::size_t> ranks;
  ranks.reserve(kUsualPhrases);
  const std::uint32_t missing = ~signatureOf(words);
  for (const KeywordNumber keyword : words) {
    for (const FunctionRequirements& function : functionsWithRequirements_[keyword]) {
      if ((function.signature & missing) != 0) continue;
      const auto keywords = std::span(keywordsOfPhrases_).subspan(function.firstKeyword, function.keywordCount);
      if (keywords.size() == 1 || std::includes(words.begin(), words.end(), keywords.begin(), keywords.end())) {
        ranks.push_back(function.functionIndex);
      }
    }
  }
  std::sort(ranks.begin(), ranks.end());
  return ranks;
}

void NumericalFunctionKeywords::addWordless(const TokenList& tokenList, std::vector<std::size_t>& ranks) const {
  TokenTypeSet types = tokenList.typesEverPresent();
  for (const std::size_t rank : ranks) {
    if (const auto returned = returnTypeOf(indexedFunctions_[rank].identifier)) types.insert(*returned);
  }
  for (const WordlessPhrases& phrases : wordlessFunctions_) {
    if (!phrases.types.isSubsetOf(types)) continue;
    for (const std::size_t rank : phrases.ranks) ranks.insert(std::upper_bound(ranks.begin(), ranks.end(), rank), rank);
  }
}

std::vector<NumericalFunctionKeywords::Wording> NumericalFunctionKeywords::wordingsOf(const Function& function) const {
  std::vector<Function> functions =
      kinds_.variants ? FunctionVariantsGenerator::variantsOf(function) : std::vector<Function>{function};
  if (kinds_.placesOfProvider) functions = FunctionVendor::dynamicPlaceVariantsFrom(std::move(functions));
  functions.erase(functions.begin());  // the phrase itself, which the index holds
  std::vector<Wording> wordings;
  wordings.reserve(functions.size());
  for (Function& wording : functions) {
    std::vector<KeywordNumber> keywords;
    visitWordsOf(wording.prototypeExpression, [&](std::string_view word) {
      if (const KeywordNumber* const found = keywordNumbersForKeywords_.find(word)) keywords.push_back(*found);
    });
    sortWithoutRepetitions(keywords);
    wordings.push_back({std::move(wording), std::move(keywords)});
  }
  return wordings;
}

std::vector<const Function*> NumericalFunctionKeywords::wordFunctionsWorthScanningForIn(
    const TokenList& tokenList, const EngineFeatureFlags& featureFlags) const {
  if (!featureFlags.wordFunctions) return {};
  const std::vector<KeywordNumber> present = keywordNumbersIn(tokenList);
  const bool saysOtherWords =
      std::any_of(present.begin(), present.end(), [this](KeywordNumber word) { return !replacementsBy(word).empty(); });
  std::vector<const Function*> functions;
  if (!saysOtherWords && !kinds_.placesOfProvider) {
    std::vector<std::size_t> ranks = ranksWithin(present);
    addWordless(tokenList, ranks);
    functions.reserve(ranks.size());
    for (const std::size_t rank : ranks) functions.push_back(&indexedFunctions_[rank]);
    return functions;
  }

  const auto isSaid = [&present](std::span<const KeywordNumber> keywords) {
    return std::includes(present.begin(), present.end(), keywords.begin(), keywords.end());
  };
  std::vector<std::size_t> ranks = ranksWithin(withOriginals(present));
  addWordless(tokenList, ranks);
  for (const std::size_t rank : ranks) {
    const Function& function = indexedFunctions_[rank];
    const std::size_t first = rank == 0 ? 0 : ends_[rank - 1];
    if (isSaid(std::span(keywordsOfPhrases_).subspan(first, ends_[rank] - first))) functions.push_back(&function);
    for (const Wording& wording : wordings_->wordingsOf(rank, [&] { return wordingsOf(function); })) {
      if (isSaid(wording.keywords)) functions.push_back(&wording.function);
    }
  }
  return functions;
}

}  // namespace tavrine
