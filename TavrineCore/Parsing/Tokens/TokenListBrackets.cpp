// Brackets become subexpressions.
//
// "2 * (3 + (4 - 1))" → 2, *, and a subexpression that holds another. All pairs of a list are matched in one go with a
// stack, then the list is built anew in a second go with a stack of open subexpressions: a scan for the partner of each
// bracket would cost the square of the line.

#include <algorithm>
#include <utility>
#include <vector>

#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

class TokenListBracketWrapper {
 public:
  explicit TokenListBracketWrapper(std::size_t maximumNesting) : maximumNesting_(maximumNesting) {}

  /// The list with its brackets wrapped; nothing where none was. `depth` is the nesting around the list.
  std::optional<std::vector<Token>> wrapped(const TokenList& list, const Token* parent, std::size_t depth) {
    std::vector<Token> tokens(list.begin(), list.end());
    bool isChanged = false;
    for (Token& token : tokens) {
      if (!token.subtokens || !token.subtokens->typesEverPresentAtAnyDepth().contains(TokenType::bracket)) continue;
      if (auto inside = wrapped(*token.subtokens, &token, depth + 1)) {
        TokenList subtokens(std::move(*inside));
        subtokens.formCacheUnionWith(*token.subtokens);
        token.subtokens = TokenList::frozen(std::move(subtokens));
        isChanged = true;
      }
    }
    if (parent == nullptr || !TokenTypeSet::commentTokenTypes.contains(parent->type)) {
      isChanged = wrapPairs(tokens, depth) || isChanged;
    }
    if (!isChanged) return std::nullopt;
    return tokens;
  }

  [[nodiscard]] std::size_t deepestPair() const { return deepestPair_; }

 private:
  struct Pair {
    std::size_t open;
    std::size_t close;
    bool belongsToFunction;
  };

  bool wrapPairs(std::vector<Token>& tokens, std::size_t depth) {
    std::vector<Pair> pairs = pairsIn(tokens);
    if (pairs.empty()) return false;

    // 1 for an opening bracket that starts a subexpression, -1 for the closing one that ends it.
    std::vector<signed char> marks(tokens.size(), 0);
    std::vector<std::size_t> openPairEnds;
    std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) { return a.open < b.open; });
    bool wrapsAny = false;
    for (const Pair& pair : pairs) {
      while (!openPairEnds.empty() && openPairEnds.back() < pair.open) openPairEnds.pop_back();
      openPairEnds.push_back(pair.close);
      const std::size_t nesting = depth + openPairEnds.size();
      deepestPair_ = std::max(deepestPair_, nesting);
      if (pair.belongsToFunction || nesting > maximumNesting_) continue;
      marks[pair.open] = 1;
      marks[pair.close] = -1;
      wrapsAny = true;
    }
    if (wrapsAny) tokens = nested(std::move(tokens), marks);
    return wrapsAny;
  }

  static std::vector<Pair> pairsIn(const std::vector<Token>& tokens) {
    std::vector<Pair> pairs;
    std::vector<Pair> open;
    const Token* before = nullptr;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      const Token& token = tokens[i];
      if (token.is(TokenType::bracket, TokenSubType::openBracket)) {
        const bool followsName =
            before != nullptr && (before->is(TokenType::functionName) || before->is(TokenType::javascriptFunctionName));
        open.push_back({i, i, followsName});
      } else if (token.is(TokenType::bracket, TokenSubType::closeBracket) && !open.empty()) {
        open.back().close = i;
        pairs.push_back(open.back());
        open.pop_back();
      }
      if (!token.is(TokenType::whitespace)) before = &token;
    }
    return pairs;
  }

  static std::vector<Token> nested(std::vector<Token> tokens, const std::vector<signed char>& marks) {
    std::vector<std::vector<Token>> levels(1);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (marks[i] > 0) levels.emplace_back();
      levels.back().push_back(std::move(tokens[i]));
      if (marks[i] < 0) {
        TokenSlice run{std::move(levels.back()), 0, 0};
        levels.pop_back();
        levels.back().push_back(std::move(run).embedInContainerToken(TokenType::subexpression));
      }
    }
    return std::move(levels.front());
  }

  std::size_t maximumNesting_;
  std::size_t deepestPair_ = 0;
};

std::size_t TokenList::wrapBracketsInSubexpressions(std::size_t maximumNesting) {
  if (!deepTypesEverPresent_.contains(TokenType::bracket)) return 0;
  TokenListBracketWrapper wrapper(maximumNesting);
  if (auto tokens = wrapper.wrapped(*this, nullptr, 0)) adopt(std::move(*tokens));
  return wrapper.deepestPair();
}

}  // namespace tavrine
