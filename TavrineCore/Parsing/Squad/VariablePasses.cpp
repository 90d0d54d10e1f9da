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

struct PhraseMatch {
  std::size_t variable;  // its place in the order of names, longest first
  std::size_t first;
  std::size_t last;
};

std::string_view upToWhitespace(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const DecodedScalar decoded = decodeScalar(text, length);
    if (isWhitespace(decoded.scalar)) break;
    length += decoded.length;
  }
  return text.substr(0, length);
}

/// Whether all words of the name are somewhere in the text, which is in lower case. Most names are not in a line, and
/// those needn't be lexed.
bool allWordsAreIn(const std::string& text, const std::string& name) {
  const std::string lowercasedName = lowercased(name);
  std::string_view rest = trimmedStart(lowercasedName);
  while (!rest.empty()) {
    const std::string_view word = upToWhitespace(rest);
    if (word.empty() || text.find(word) == std::string::npos) return false;
    rest = trimmedStart(rest.substr(word.size()));
  }
  return true;
}

/// The variables of several words that a list may hold, by the first word of their names.
class PhraseVariables {
 public:
  PhraseVariables(const VariableList& variables, const TokenList& list, const Locale& locale) {
    const std::string text = lowercased(list.rebuiltExpression());
    variables.forEach([&](const Variable& variable) {
      if (VariableList::isMultiWord(variable) && allWordsAreIn(text, variable.name)) variables_.push_back(variable);
    });
    VariableList::sortByLength(variables_);
    phrases_.reserve(variables_.size());
    for (const Variable& variable : variables_) {
      phrases_.push_back(Lexer::lexemesFor(variable.name, locale));
      const std::size_t length = phrases_.back().size();
      if (length < 2 || length > kMaximumPhraseLexemes) continue;
      const std::string_view firstLexeme = phrases_.back().front().string;
      const std::string_view firstWord = upToWhitespace(variable.name);
      phrasesByFirstWord_[lowercased(firstLexeme)].push_back(phrases_.size() - 1);
      // One token may hold the whole first word, "#food", or even more.
      if (firstWord != firstLexeme) phrasesByFirstWord_[lowercased(firstWord)].push_back(phrases_.size() - 1);
    }
  }

  const Variable& operator[](std::size_t index) const { return variables_[index]; }

  /// Longer names first, each from left to right, none over another.
  [[nodiscard]] std::vector<PhraseMatch> matchesIn(const TokenList& list) const {
    std::vector<PhraseMatch> candidates;
    for (std::size_t i = 0; i < list.count(); ++i) {
      const auto phrases = phrasesByFirstWord_.find(lowercased(upToWhitespace(list[i].stringValue)));
      if (phrases == phrasesByFirstWord_.end()) continue;
      for (const std::size_t phrase : phrases->second) {
        if (const auto last = endOf(phrases_[phrase], list, i)) candidates.push_back({phrase, i, *last});
      }
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const PhraseMatch& a, const PhraseMatch& b) { return a.variable < b.variable; });
    return withoutOverlaps(std::move(candidates), list.count());
  }

 private:
  static std::optional<std::size_t> endOf(const std::vector<Lexeme>& phrase, const TokenList& list, std::size_t index) {
    TextCursor cursor(list, index);
    for (const Lexeme& lexeme : phrase) {
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

  std::vector<Variable> variables_;
  std::vector<std::vector<Lexeme>> phrases_;  // views into the names above
  std::unordered_map<std::string, std::vector<std::size_t>> phrasesByFirstWord_;
};

}  // namespace

void identifyMultiWordVariablesIn(TokenList& list, const PassContext& context) {
  const PhraseVariables variables(context.variables, list, context.customization.locale());
  std::vector<PhraseMatch> matches = variables.matchesIn(list);
  std::sort(matches.begin(), matches.end(),
            [](const PhraseMatch& a, const PhraseMatch& b) { return a.first > b.first; });
  for (const PhraseMatch& match : matches) {
    const TokenSlice slice = list.slice(match.first, match.last);
    list.replaceRun(match.first, match.last,
                    Token(TokenType::variable, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr,
                          std::make_shared<const VariableTokenMetadata>(variables[match.variable])));
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
