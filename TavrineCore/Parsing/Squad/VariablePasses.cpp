// Variables: names of several words, and values in the place of names while groups are formed.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/TokenListVariableSubstitutor.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

/// Walks the text of a list's tokens, lexeme by lexeme: a token may be made of several.
class TextCursor {
 public:
  TextCursor(const TokenList& list, std::size_t token) : list_(list), token_(token) {}

  /// A word in lower case says it in any case; other words say themselves alone.
  bool stepOverWord(std::string_view word) {
    const std::string_view text = rest().substr(0, word.size());
    if (text.size() != word.size() || (text != word && lowercased(text) != word)) return false;
    return advance(text.size());
  }
  bool stepOverWhitespace() {
    const std::string_view text = rest();
    const std::size_t length = text.size() - trimmedStart(text).size();
    return length != 0 && advance(length);
  }
  [[nodiscard]] bool isAtEndOfToken() const { return offset_ == 0; }
  [[nodiscard]] std::size_t lastToken() const { return token_ - 1; }

 private:
  [[nodiscard]] std::string_view rest() const {
    if (token_ >= list_.count()) return {};
    return std::string_view(list_[token_].stringValue).substr(offset_);
  }
  bool advance(std::size_t length) {
    offset_ += length;
    if (offset_ < list_[token_].stringValue.size()) return true;
    ++token_;
    offset_ = 0;
    return true;
  }

  const TokenList& list_;
  std::size_t token_;
  std::size_t offset_ = 0;
};

/// Words and the white space between them. A name of thousands of words, looked for at each of thousands of tokens,
/// would take seconds.
constexpr std::size_t kMaximumPhraseLexemes = 2 * kMaximumPhraseWords;

std::string_view upToWhitespace(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const DecodedScalar decoded = decodeScalar(text, length);
    if (isWhitespace(decoded.scalar)) break;
    length += decoded.length;
  }
  return text.substr(0, length);
}

/// A variable of several words.
struct Phrase {
  std::shared_ptr<const Variable> variable;
  std::vector<Lexeme> lexemes;  // views into the name
  std::size_t length;           // in characters
};

struct PhraseMatch {
  const Phrase* phrase;
  std::size_t first;
  std::size_t last;
};

/// Looks for the variables of several words in a list.
class PhraseFinder {
 public:
  PhraseFinder(const TokenList& list, const VariableList& variables, const Locale& locale)
      : list_(list), variables_(variables), locale_(locale) {}

  /// Longer names first, each from left to right, none over another.
  [[nodiscard]] std::vector<PhraseMatch> matches() {
    std::vector<std::size_t> starts;
    std::string line;
    for (const Token& token : list_) {
      starts.push_back(line.size());
      line += VariableList::phraseKey(token.stringValue);
    }
    std::vector<PhraseMatch> candidates;
    for (std::size_t i = 0; i < starts.size(); ++i) {
      variables_.forEachPhraseAtStartOf(std::string_view(line).substr(starts[i]),
                                        [&](const std::shared_ptr<const Variable>& variable) {
                                          const Phrase& phrase = phraseOf(variable);
                                          if (const auto last = endOf(phrase, i))
                                            candidates.push_back({&phrase, i, *last});
                                        });
    }
    std::sort(candidates.begin(), candidates.end(), comesBefore);
    return withoutOverlaps(std::move(candidates), list_.count());
  }

 private:
  const Phrase& phraseOf(const std::shared_ptr<const Variable>& variable) {
    const auto [found, isNew] = phrases_.try_emplace(variable.get());
    if (isNew) {
      found->second = {variable, Lexer::lexemesFor(variable->name, locale_), clusterCount(variable->name)};
    }
    return found->second;
  }

  static bool comesBefore(const PhraseMatch& a, const PhraseMatch& b) {
    if (a.phrase->length != b.phrase->length) return a.phrase->length > b.phrase->length;
    const int order = a.phrase->variable->name.compare(b.phrase->variable->name);
    return order != 0 ? order > 0 : a.first < b.first;
  }

  [[nodiscard]] std::optional<std::size_t> endOf(const Phrase& phrase, std::size_t index) const {
    if (phrase.lexemes.size() < 2 || phrase.lexemes.size() > kMaximumPhraseLexemes) return std::nullopt;
    // No phrase begins with a part of a word. One token may hold the whole first word, "#food", or even more.
    const std::string word = lowercased(upToWhitespace(list_[index].stringValue));
    if (word != lowercased(phrase.lexemes.front().string) &&
        word != lowercased(upToWhitespace(phrase.variable->name))) {
      return std::nullopt;
    }
    TextCursor cursor(list_, index);
    for (const Lexeme& lexeme : phrase.lexemes) {
      const bool says =
          lexeme.type == LexemeType::whitespace ? cursor.stepOverWhitespace() : cursor.stepOverWord(lexeme.string);
      if (!says) return std::nullopt;
    }
    if (!cursor.isAtEndOfToken()) return std::nullopt;
    return cursor.lastToken();
  }

  static std::vector<PhraseMatch> withoutOverlaps(std::vector<PhraseMatch> candidates, std::size_t tokenCount) {
    std::vector<bool> isTaken(tokenCount, false);
    std::erase_if(candidates, [&isTaken](const PhraseMatch& match) {
      const auto first = isTaken.begin() + static_cast<std::ptrdiff_t>(match.first);
      const auto past = isTaken.begin() + static_cast<std::ptrdiff_t>(match.last + 1);
      if (std::find(first, past, true) != past) return true;
      std::fill(first, past, true);
      return false;
    });
    return candidates;
  }

  const TokenList& list_;
  const VariableList& variables_;
  const Locale& locale_;
  std::unordered_map<const Variable*, Phrase> phrases_;  // those met so far; a map that keeps them in their places
};

}  // namespace

void identifyMultiWordVariablesIn(TokenList& list, const PassContext& context) {
  PhraseFinder finder(list, context.variables, context.customization.locale());
  std::vector<PhraseMatch> matches = finder.matches();
  std::sort(matches.begin(), matches.end(),
            [](const PhraseMatch& a, const PhraseMatch& b) { return a.first > b.first; });
  for (const PhraseMatch& match : matches) {
    const TokenSlice slice = list.slice(match.first, match.last);
    list.replaceRun(match.first, match.last,
                    Token(TokenType::variable, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr,
                          std::make_shared<const VariableTokenMetadata>(*match.phrase->variable)));
  }
}

void expandVariables(TokenList& list, const PassContext& context) {
  context.scratch.expansion = TokenListVariableSubstitutor::expandVariablesIn(list);
}

void unexpandVariables(TokenList& list, const PassContext& context) {
  TokenListVariableSubstitutor::unexpand(list, *context.scratch.expansion);
  context.scratch.expansion = nullptr;
}

}  // namespace tavrine::passes
