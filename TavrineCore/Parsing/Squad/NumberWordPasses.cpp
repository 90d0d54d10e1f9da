// Numbers in words: "two hundred and five", "3 thousand".

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

/// How many words a line may fuse: one a sweep, and no more sweeps than this.
constexpr std::size_t kMaximumFusions = 600;

/// How deep the subtokens of a fused number nest. No number that anyone writes comes near it; a long chain of words
/// lays its oldest parts side by side instead.
constexpr std::size_t kDeepestNumber = 32;

// --- Which words are numbers ----------------------------------------------------------------------------------------

/// "and" between two numbers: `word` is the one that asks.
bool joinsAnotherNumber(const TokenList& list, std::size_t conjunction, std::size_t word) {
  for (const auto neighbour : {list.indexBefore(conjunction, true), list.indexAfter(conjunction, true)}) {
    if (!neighbour || *neighbour == word) continue;
    if (list[*neighbour].is(TokenType::number) || list[*neighbour].is(TokenType::numberWord)) return true;
  }
  return false;
}

bool isMeaningfulBeside(const TokenList& list, std::size_t neighbour, std::size_t word) {
  if (!TokenTypeSet::nonMeaningfulTypes.contains(list[neighbour].type)) return true;
  return list[neighbour].is(TokenType::conjunctionWord) && joinsAnotherNumber(list, neighbour, word);
}

/// "five + 2" calculates, "five apples" and "five-star" tell of something. A word alone on its line is a number.
bool isNumberAmongNeighbours(const TokenList& list, std::size_t word) {
  const auto before = list.indexBefore(word, /*ignoreWhitespace=*/true);
  const auto after = list.indexAfter(word, /*ignoreWhitespace=*/true);
  if (!before && !after) return true;

  bool isMeaningful = false;
  for (const auto neighbour : {before, after}) {
    if (!neighbour) continue;
    isMeaningful = isMeaningful || isMeaningfulBeside(list, *neighbour, word);
    if (list[*neighbour].subType != TokenSubType::subtractionOperator) continue;
    const Token* behindTheMinus = list.tokenAfter(*neighbour, /*ignoreWhitespace=*/true);
    if (behindTheMinus != nullptr && behindTheMinus->is(TokenType::unidentified)) isMeaningful = false;
  }
  return isMeaningful;
}

/// Gives every number word its value, and those that mean a number its type. Tells whether there was any.
bool transformNumberWords(TokenList& list, const NumberWordsList& numberWords) {
  bool hasChanged = false;
  for (std::size_t i = list.count(); i-- > 0;) {
    const Token& token = list[i];
    if (!token.is(TokenType::numberWord)) continue;
    const NumberWord* word = numberWords.numberWordFor(token.stringValue);
    if (word == nullptr) continue;

    const NumberTokenMetadata metadata(Decimal(word->number), std::nullopt, /*isNumberWord=*/true);
    if (isNumberAmongNeighbours(list, i)) {
      list.replaceAt(i, numberToken(metadata, token.stringValue, token.range));
    } else {
      list.replaceAt(i, Token(token.type, token.subType, token.stringValue, token.range, nullptr,
                              std::make_shared<const NumberTokenMetadata>(metadata)));
    }
    hasChanged = true;
  }
  return hasChanged;
}

// --- Halves ---------------------------------------------------------------------------------------------------------

bool representsNumberWord(const Token& token) {
  const auto* metadata = token.metadataAs<NumberTokenMetadata>();
  return token.is(TokenType::number) && metadata != nullptr && metadata->representsNumberWord;
}

/// What "and a half" adds; absent for other words.
std::optional<Decimal> partNamed(std::string_view word) {
  const std::string text = lowercased(word);
  if (text == "half") return Decimal(1) / Decimal(2);
  if (text == "quarter") return Decimal(1) / Decimal(4);
  return std::nullopt;
}

/// What stands before "and a half": a number, or a number of a unit.
struct Counted {
  std::size_t first = 0;  // the number's index
  Decimal count;
  std::optional<TCUnit> unit = std::nullopt;
};

/// "two", "2 hours", and the one hour of "an hour", at whose end the index is.
std::optional<Counted> countedAt(const TokenList& list, std::size_t index) {
  const auto isNumber = [](const Token& token) {
    return (token.is(TokenType::number) || token.is(TokenType::numberWord)) && token.hasDecimalValue();
  };
  if (isNumber(list[index])) return Counted{index, list[index].decimalValue()};
  const auto unit = list[index].is(TokenType::unit) ? list[index].unitValue() : std::nullopt;
  const auto before = unit ? list.indexBefore(index, /*ignoreWhitespace=*/true) : std::nullopt;
  if (!before) return std::nullopt;
  if (list[*before].is(TokenType::grammerArticleWord, TokenSubType::indefiniteGrammarArticleWord) ||
      lowercased(list[*before].stringValue) == "an") {
    return Counted{*before, Decimal(1), unit};
  }
  if (isNumber(list[*before])) return Counted{*before, list[*before].decimalValue(), unit};
  return std::nullopt;
}

/// "two and a half" → 2.5, before the number counts anything, and "an hour and a half" → 1.5 hours. In "two and a half
/// of it" the half is something else.
void addHalves(TokenList& list) {
  if (!list.typesPrecheck({TokenType::conjunctionWord, TokenType::grammerArticleWord})) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::grammerArticleWord, TokenSubType::indefiniteGrammarArticleWord)) continue;
    const auto part = list.indexAfter(i, /*ignoreWhitespace=*/true);
    const auto added = part ? partNamed(list[*part].stringValue) : std::nullopt;
    const auto conjunction = added ? list.indexBefore(i, /*ignoreWhitespace=*/true) : std::nullopt;
    if (!conjunction || list[*conjunction].subType != TokenSubType::conjunctionWordAnd) continue;
    const auto last = list.indexBefore(*conjunction, /*ignoreWhitespace=*/true);
    const auto counted = last ? countedAt(list, *last) : std::nullopt;
    if (!counted) continue;
    const Token* next = list.tokenAfter(*part, /*ignoreWhitespace=*/true);
    if (next != nullptr && next->is(TokenType::prepositionWord, TokenSubType::prepositionWordOf)) continue;
    const NumberTokenMetadata metadata(counted->count + *added, std::nullopt,
                                       /*isNumberWord=*/!counted->unit && representsNumberWord(list[counted->first]));
    TokenSlice slice = list.slice(counted->first, *part);
    if (counted->unit) {
      list.replaceRun(counted->first, *part,
                      unitExpressionToken(std::move(slice), *counted->unit, metadata, /*prefersCompound=*/false));
    } else {
      std::string text = slice.stringValue();
      const NSRange range = slice.range();
      list.replaceRun(counted->first, *part,
                      numberToken(metadata, std::move(text), range, TokenList::frozen(std::move(slice.tokens))));
    }
    i = counted->first;
  }
}

// --- Fusing ---------------------------------------------------------------------------------------------------------

/// "two", "hundred" multiply; "hundred", "five" add up, and so does what "and" joins.
Decimal fusedValue(const Decimal& left, const Decimal& right, bool isJoinedByConjunction) {
  return right < left || isJoinedByConjunction ? left + right : left * right;
}

/// Fuses numbers with the number words behind them.
class NumberWordFuser {
 public:
  explicit NumberWordFuser(TokenList& list) : list_(list) {}

  /// Does what sweeps would do that begin at the start of the line, fuse the first pair that they meet and start
  /// again, for as many sweeps as there may be. Going on from the fused number is the same: no pair in front of it
  /// has changed, but for the one that it now makes with the number before it, if it was no number word until then.
  void run() {
    for (std::size_t i = 0; i < list_.count(); ++i) {
      while (representsNumberWord(list_[i])) {
        const auto left = list_.indexBefore(i, /*ignoreWhitespace=*/true, TokenTypeSet::conjunctionWords);
        if (!left || !list_[*left].is(TokenType::number)) break;
        if (list_[*left].range.upperBound() > list_[i].range.location) break;
        if (fusions_++ == kMaximumFusions) return;
        const bool wasNumberWord = representsNumberWord(list_[*left]);
        fuseWithNumberWord(*left, i);
        i = *left;
        if (wasNumberWord) break;
      }
    }
  }

 private:
  void fuseWithNumberWord(std::size_t left, std::size_t right) {
    TokenSlice slice = list_.slice(left, right);
    const bool isJoined = std::any_of(slice.tokens.begin(), slice.tokens.end(),
                                      [](const Token& token) { return token.is(TokenType::conjunctionWord); });
    const Decimal value = fusedValue(numberIn(slice.tokens.front()), numberIn(slice.tokens.back()), isJoined);

    std::size_t depth = 1 + std::max(depthOf(slice.tokens.front()), depthOf(slice.tokens.back()));
    std::string text = slice.stringValue();
    const NSRange range = slice.range();
    if (depth > kDeepestNumber) {
      slice.tokens = flattened(slice.tokens);
      depth = 1;
    }
    depths_[range.location] = depth;
    list_.replaceRun(left, right,
                     numberToken(NumberTokenMetadata(value, std::nullopt, /*isNumberWord=*/true), std::move(text),
                                 range, TokenList::frozen(std::move(slice.tokens))));
  }

  std::size_t depthOf(const Token& number) const {
    const auto found = number.subtokens ? depths_.find(number.range.location) : depths_.end();
    return found == depths_.end() ? 0 : found->second;
  }

  /// The tokens with those inside of fused words in their places.
  static std::vector<Token> flattened(const std::vector<Token>& tokens) {
    std::vector<Token> result;
    for (const Token& token : tokens) appendFlattened(token, result);
    return result;
  }

  static void appendFlattened(const Token& token, std::vector<Token>& result) {
    if (!token.subtokens || !representsNumberWord(token)) {
      result.push_back(token);
      return;
    }
    for (const Token& subtoken : *token.subtokens) appendFlattened(subtoken, result);
  }

  TokenList& list_;
  std::size_t fusions_ = 0;
  /// By the places of the fused numbers.
  std::unordered_map<std::uint32_t, std::size_t> depths_;
};

}  // namespace

void transformNumberWordsAndApplyToNumbersWhereRequired(TokenList& list, const PassContext& context) {
  const bool hasNumberWords = transformNumberWords(list, *context.content.numberWordsList);
  addHalves(list);
  if (!hasNumberWords) return;
  NumberWordFuser(list).run();
}

}  // namespace tavrine::passes
