#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenBuffer.h"
#include "TavrineCore/Parsing/Tokens/TokenSlice.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// The working surface of parser and evaluator: the tokens of a line, or of one token's inside.
///
/// A list is edited by the one pass that owns it, and frozen once it hangs in a token as its subtokens: from then on
/// it is shared, between tokens and between threads, and never changes again. A pass that edits inside a token works on
/// a copy and the token is replaced (the walks below do that). Copying a list copies one array.
///
/// Tokens stand in the order of their ranges and don't overlap. The list remembers every type that it ever held, so
/// that most questions are answered by "that type has never been here", which is always right; "it has been here" is
/// not proof that it still is.
///
/// Pointers, iterators and views into a list hold until its next edit. Operations that look for a token that isn't
/// there do nothing or give nothing. What works at every depth recurses once a level of nesting: see `kMaximumNesting`.
class TokenList {
 public:
  using Iterator = TokenBuffer::Iterator;

  /// Gets a token; sets the flag to end the walk.
  using TokenBlock = FunctionRef<void(const Token&, bool& stop)>;
  /// Gets a token, the list that holds it and the token whose subtokens these are (null at the top).
  using NestedTokenBlock = FunctionRef<void(const Token&, const TokenList&, const Token* parent, bool& stop)>;
  /// Gets a token with its neighbours; null at the ends.
  using NeighbourBlock = FunctionRef<void(const Token&, const Token* before, const Token* after, bool& stop)>;
  using SublistBlock = FunctionRef<void(const TokenList&, const Token* parent, bool& stop)>;
  using TokenTest = FunctionRef<bool(const Token&, const Token* parent)>;
  using Transformation = FunctionRef<std::optional<Token>(const Token&)>;
  using NestedTransformation = FunctionRef<std::optional<Token>(const Token&, const Token* parent)>;
  /// Gets a token and the list to edit around it.
  using Modification = FunctionRef<void(const Token&, TokenList&, const Token* parent)>;

  TokenList() = default;
  explicit TokenList(std::vector<Token> tokens);
  /// A copy that shares nothing that could change. It remembers the types that are there now, not those that were.
  TokenList(const TokenList& other);
  TokenList(TokenList&& other) noexcept;
  TokenList& operator=(const TokenList& other);
  TokenList& operator=(TokenList&& other) noexcept;
  ~TokenList();

  /// A list ready to be shared.
  [[nodiscard]] static TokenListRef frozen(std::vector<Token> tokens);
  [[nodiscard]] static TokenListRef frozen(TokenList list);

  // --- Which types there have been: answered without a look at the tokens -----------------------------------------

  [[nodiscard]] bool typePrecheck(TokenType type) const noexcept { return typesEverPresent_.contains(type); }
  /// Whether every type of the set has been present.
  [[nodiscard]] bool typesPrecheck(const TokenTypeSet& types) const noexcept {
    return types.isSubsetOf(typesEverPresent_);
  }
  [[nodiscard]] bool allTypesHaveBeenPresentIn(const TokenTypeSet& types) const noexcept {
    return types.isSubsetOf(typesEverPresent_);
  }
  [[nodiscard]] bool anyTypesHaveBeenPresentIn(const TokenTypeSet& types) const noexcept {
    return types.containsTypesFrom(typesEverPresent_);
  }
  [[nodiscard]] bool onlyTypesHaveBeenPresentIn(const TokenTypeSet& types) const noexcept {
    return typesEverPresent_.isSubsetOf(types);
  }
  /// The types that the list has held, those inside of subexpressions, declarations and function expressions included,
  /// and those that the values of variables would bring.
  [[nodiscard]] const TokenTypeSet& typesEverPresent() const noexcept { return typesEverPresent_; }
  /// The types that the list has held at any depth, whatever the containers.
  [[nodiscard]] const TokenTypeSet& typesEverPresentAtAnyDepth() const noexcept { return deepTypesEverPresent_; }
  void addToCacheTypesFrom(std::span<const Token> tokens);
  /// The kinds of the units that the list has held, at any depth.
  [[nodiscard]] const UnitTypeSet& unitTypesCache() const noexcept { return unitTypesCache_; }
  /// Remembers the types of another list as well.
  void formCacheUnionWith(const TokenList& other);
  /// From here on the list is one that has held just these types.
  void replaceTypesCache(const TokenTypeSet& types) noexcept { typesEverPresent_ = types; }

  /// Goes up by one with each edit.
  [[nodiscard]] std::uint64_t modificationCount() const noexcept { return modificationCount_; }

  // --- The tokens -------------------------------------------------------------------------------------------------

  [[nodiscard]] std::size_t count() const noexcept { return tokens_.size(); }
  [[nodiscard]] bool isEmpty() const noexcept { return tokens_.empty(); }
  [[nodiscard]] const Token& operator[](std::size_t index) const noexcept { return tokens_[index]; }
  [[nodiscard]] Iterator begin() const noexcept { return tokens_.begin(); }
  [[nodiscard]] Iterator end() const noexcept { return tokens_.end(); }
  /// All tokens side by side. After an edit this moves the tokens behind the place of the edit together: prefer
  /// indices and iterators between edits. On a frozen list it is a plain read.
  [[nodiscard]] std::span<const Token> tokens() const;

  [[nodiscard]] const Token* first() const noexcept { return isEmpty() ? nullptr : &tokens_[0]; }
  [[nodiscard]] const Token* last() const noexcept { return isEmpty() ? nullptr : &tokens_[count() - 1]; }
  [[nodiscard]] const Token* firstTokenOfType(const TokenTypeSet& types) const;
  [[nodiscard]] const Token* lastTokenOfType(const TokenTypeSet& types) const;
  [[nodiscard]] std::vector<Token> tokensOfType(const TokenTypeSet& types) const;
  /// At every depth, but for those whose parent has one of the excluded types.
  [[nodiscard]] std::vector<Token> allTokensOfType(const TokenTypeSet& types,
                                                   const TokenTypeSet& excludedParents = {}) const;
  /// The token when there is exactly one.
  [[nodiscard]] const Token* onlyToken() const noexcept { return count() == 1 ? &tokens_[0] : nullptr; }
  /// The texts of the tokens, joined.
  [[nodiscard]] std::string rebuiltExpression() const;
  [[nodiscard]] std::size_t hash() const;

  /// The index of the token that equals `token`: by place where the tokens have one, so in logarithmic time.
  [[nodiscard]] std::optional<std::size_t> indexOf(const Token& token) const;
  [[nodiscard]] std::optional<std::size_t> tokenIndexFor(const Token& token) const { return indexOf(token); }
  /// Null past the end.
  [[nodiscard]] const Token* tokenFor(std::size_t tokenIndex) const noexcept {
    return tokenIndex < count() ? &tokens_[tokenIndex] : nullptr;
  }
  /// Whether the list or one inside of it holds the token.
  [[nodiscard]] bool containsToken(const Token& token) const;
  [[nodiscard]] bool includesConvertersOfSubtype(const TokenSubTypeSet& subTypes) const;

  // --- Neighbours: by index, for passes that walk; by token, for those that were handed one -----------------------

  [[nodiscard]] std::optional<std::size_t> indexAfter(std::size_t index, bool ignoreWhitespace = false,
                                                      const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] std::optional<std::size_t> indexBefore(std::size_t index, bool ignoreWhitespace = false,
                                                       const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenAfter(std::size_t index, bool ignoreWhitespace = false,
                                        const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenBefore(std::size_t index, bool ignoreWhitespace = false,
                                         const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenAfter(const Token& token, bool ignoreWhitespace = false,
                                        const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenBefore(const Token& token, bool ignoreWhitespace = false,
                                         const TokenTypeSet& ignoreTypes = {}) const;
  /// The neighbour if it has one of the types and does not overlap the token.
  [[nodiscard]] const Token* tokenAfterMustBe(std::size_t index, const TokenTypeSet& mustBe,
                                              bool ignoreWhitespace = false,
                                              const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenBeforeMustBe(std::size_t index, const TokenTypeSet& mustBe,
                                               bool ignoreWhitespace = false,
                                               const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenAfterMustBe(const Token& token, const TokenTypeSet& mustBe,
                                              bool ignoreWhitespace = false,
                                              const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] const Token* tokenBeforeMustBe(const Token& token, const TokenTypeSet& mustBe,
                                               bool ignoreWhitespace = false,
                                               const TokenTypeSet& ignoreTypes = {}) const;
  /// The token before if it has one of the types, else the token after if that has.
  [[nodiscard]] const Token* tokenNeighbouring(const Token& token, const TokenTypeSet& mustBe,
                                               bool ignoreWhitespace = false,
                                               const TokenTypeSet& ignoreTypes = {}) const;
  /// The neighbours, before and then after, that have one of the types (any, where the set is empty) and pass the test.
  [[nodiscard]] std::vector<Token> neighboursToToken(const Token& token, const TokenTypeSet& ofTypes,
                                                     bool ignoreWhitespace, const TokenTypeSet& ignoreTypes,
                                                     FunctionRef<bool(const Token&)> passingTest) const;
  [[nodiscard]] std::vector<Token> neighboursToToken(const Token& token, const TokenTypeSet& ofTypes,
                                                     bool ignoreWhitespace = false,
                                                     const TokenTypeSet& ignoreTypes = {}) const;
  [[nodiscard]] std::vector<Token> neighboursOfSlice(const TokenSlice& slice, bool ignoreWhitespace = false,
                                                     const TokenTypeSet& ignoreTypes = {}) const;
  /// Whether the token has neighbours, white space aside, and none of them means anything by itself.
  [[nodiscard]] bool hasMeaninglessNeighbours(const Token& token) const;

  /// The run of tokens of the wanted types to the left, nearest first (in reading order where `reversed`). Ends at the
  /// first token that is neither wanted nor ignored; a token with an ignored subtype is stepped over.
  [[nodiscard]] std::vector<Token> scanLeft(const Token& fromToken, const TokenTypeSet& forNeighboursOfTypes,
                                            const TokenTypeSet& ignoringTokensWithTypes = {},
                                            const TokenSubTypeSet& ignoreSubTypes = {}, bool reversed = false) const;
  /// The same to the right, in reading order.
  [[nodiscard]] std::vector<Token> scanRight(const Token& fromToken, const TokenTypeSet& forNeighboursOfTypes,
                                             const TokenTypeSet& ignoringTokensWithTypes = {},
                                             const TokenSubTypeSet& ignoreSubTypes = {}) const;
  [[nodiscard]] std::vector<Token> tokensAfter(const Token& token) const;
  /// The tokens on that side up to, and not including, the first with one of the types; in reading order.
  [[nodiscard]] std::vector<Token> gatherForwardsFrom(const Token& token, const TokenTypeSet& upToTokenWithTypes) const;
  [[nodiscard]] std::vector<Token> gatherBackwardsFrom(const Token& token,
                                                       const TokenTypeSet& upToTokenWithTypes) const;
  /// From the next token up to the last before a token of the types; nothing where no such token follows.
  [[nodiscard]] std::optional<TokenSlice> scanFromTokenAfter(const Token& token,
                                                             const TokenTypeSet& upToNextTokenMatching,
                                                             bool ignoreWhitespace = false) const;

  // --- What the line rests on -------------------------------------------------------------------------------------

  /// The last token that can carry an answer: white space and stray words behind it don't count.
  [[nodiscard]] const Token* lastMeaningfulToken() const;
  /// The same, where no other meaningful token stands before it.
  [[nodiscard]] const Token* onlyMeaningfulToken() const;
  [[nodiscard]] const Token* getLastToken(bool ignoringWhitespace = false) const;
  /// The last meaningful token if it is a converter.
  [[nodiscard]] const Token* trailingConverter() const;
  /// The errors if there are any, else the tokens that can be an answer.
  [[nodiscard]] std::vector<Token> validAnswerTokens() const;
  [[nodiscard]] const Token* lastValidAnswerToken() const;
  void trimWhitespace();

  /// The condition of "if … then … else": behind "if" or "unless", up to "then", failing that "else" or the end.
  [[nodiscard]] std::optional<TokenList> ifClause() const;
  [[nodiscard]] std::optional<TokenList> thenClause() const;
  [[nodiscard]] std::optional<TokenList> elseClause() const;

  // --- Slices -----------------------------------------------------------------------------------------------------

  [[nodiscard]] TokenSlice completeSlice() const;
  /// The closed run of indices, cut to the list.
  [[nodiscard]] TokenSlice slice(std::size_t firstIndex, std::size_t lastIndex) const;
  /// The closed run between the two tokens, in either order. Both must be in the list.
  [[nodiscard]] TokenSlice sliceFrom(const Token& startToken, const Token& endToken) const;
  [[nodiscard]] TokenSlice sliceBetween(const Token& token, const Token& otherToken) const {
    return sliceFrom(token, otherToken);
  }
  /// The tokens that share a unit of text with the range.
  [[nodiscard]] std::optional<TokenSlice> sliceForExpressionRange(NSRange range) const;
  /// The growing slices from the token, of two tokens and more, while tokens of the types follow. White space between
  /// them is stepped over and not counted.
  [[nodiscard]] std::vector<TokenSlice> slicesFrom(const Token& startToken, const TokenTypeSet& withTokensIn,
                                                   std::size_t maxTokensInSlice = kMaximumPhraseWords) const;
  /// The slice that says the words of `phrase`, whatever the case and the white space.
  [[nodiscard]] std::optional<TokenSlice> sliceBeginningWith(const Token& token, std::string_view phrase) const;
  [[nodiscard]] std::optional<TokenSlice> sliceBeginningWith(std::size_t index,
                                                             std::span<const std::string_view> words) const;
  /// The longest phrase of two words or more that the handler accepts. White space is stepped over; a token of another
  /// type ends the phrase.
  [[nodiscard]] std::optional<TokenSlice> findPhraseBeginningWith(
      const Token& token, const TokenTypeSet& validTypes, FunctionRef<bool(const TokenSlice&)> handler,
      std::size_t maximumWordCount = kMaximumPhraseWords) const;
  /// The same for a handler that looks at the text alone, which costs no copies of tokens.
  [[nodiscard]] std::optional<TokenSlice> findPhraseTextBeginningWith(
      std::size_t index, const TokenTypeSet& validTypes, FunctionRef<bool(std::string_view text)> handler,
      std::size_t maximumWordCount = kMaximumPhraseWords) const;

  // --- Editing ----------------------------------------------------------------------------------------------------
  // A token without a range that comes in gets the place of what it replaces or stands beside, and its own length.

  void append(Token token);
  void append(std::span<const Token> tokens);
  void insertAt(std::size_t index, Token token);
  void insertAfter(Token token, const Token& afterToken);
  void insertBefore(Token token, const Token& beforeToken);
  void replaceAt(std::size_t index, Token token);
  /// A comment in place of the token without subtokens that stands there; its text stays as it is, uncopied.
  void becomeWordAt(std::size_t index);
  /// The closed run of indices by one token.
  void replaceRun(std::size_t firstIndex, std::size_t lastIndex, Token token);
  void removeAt(std::size_t index) { removeRun(index, index); }
  void removeRun(std::size_t firstIndex, std::size_t lastIndex);
  void removeAll();

  /// Whether the token was there.
  bool replace(const Token& token, Token replacement);
  bool remove(const Token& token);
  void replace(const TokenSlice& slice, Token replacement);
  /// A token of that type over the slice, with its text, in its place; tells the new token.
  Token replace(const TokenSlice& slice, TokenType type, TokenMetadataRef metadata = nullptr,
                bool includeSubtokens = false);
  std::optional<Token> replace(const Token& token, TokenType type, TokenMetadataRef metadata = nullptr);

  /// One token of the type and subtype of `into` over all from `token` to `into`.
  void fuse(const Token& token, const Token& into, TokenMetadataRef metadata = nullptr);
  /// One token over the token and those directly beside it that have its type.
  void fuseWithCommonlyTypedNeighbours(const Token& token);
  /// Turns a recognised token back into a comment, with all that is in it. References to other lines stay.
  void deidentify(const Token& token, bool retainSubtype = false);

  /// Remove tokens at every depth, in one sweep of each list.
  void filterOutAllTokensOf(const TokenTypeSet& types, const TokenTypeSet& excludingTokensWhereParentIs = {});
  void filterOutAllTokensOfTypes(const TokenTypeSet& types, TokenTest condition);
  void filterOutAllTokensPassingTest(TokenTest test, bool reversed = false);

  /// Each run of at least two tokens of type `of`, with nothing but white space and separators between them, becomes
  /// one token of type `into` that keeps the run as its subtokens.
  void compoundSequentialTokens(TokenType of, TokenType into, const TokenTypeSet& validSeparatorTypes);

  /// "(…)" → one subexpression, at every depth, innermost first. A bracket behind the name of a function is left to
  /// the pass for functions, one without a partner stays a bracket, and comments are left alone.
  /// Pairs that lie deeper than `maximumNesting` pairs stay plain brackets. Gives the depth of the deepest pair, so
  /// that the caller can tell. Linear in the line, for a bounded depth.
  std::size_t wrapBracketsInSubexpressions(std::size_t maximumNesting = kMaximumNesting);

  /// The same tokens with ranges that follow from their texts, from `offset` on, at every depth. With
  /// `updateParentsStrings` the text of a fused token is that of its subtokens.
  [[nodiscard]] TokenList listWithRecalculatedTokenRanges(std::int64_t offset, bool updateParentsStrings) const;

  // --- Walks ------------------------------------------------------------------------------------------------------
  // A walk over a list that can be edited goes over the tokens as they were when it began: a token that the block has
  // since replaced is still handed over, and the block that looks it up finds nothing. A walk over a constant list
  // makes no copies.

  void enumerateTokensOfType(const TokenTypeSet& types, bool reversed, TokenBlock block);
  void enumerateTokensOfType(const TokenTypeSet& types, bool reversed, TokenBlock block) const;
  /// At every depth, the subtokens before their parent.
  void enumerateAllTokens(bool reversed, NestedTokenBlock block) const;
  void enumerateAllTokensOfType(const TokenTypeSet& types, bool reversed, NestedTokenBlock block) const;
  void enumerateAllTokensPassingTest(TokenTest test, const Token* parent, bool reversed, NestedTokenBlock block) const;
  /// Tokens with their neighbours, at the top level. With `ensureBothSides` only those that have both.
  void enumerateTokensOfTypeWithNeighbours(const TokenTypeSet& types, bool reversed, bool ignoreWhitespace,
                                           bool ensureBothSides, NeighbourBlock block) const;
  /// Each list of subtokens at every depth, inner ones first; with `includeSelf` this list last.
  void enumerateSublists(bool reversed, bool includeSelf, SublistBlock block) const;

  void applyTransformationToTokensOfType(const TokenTypeSet& types, bool reversed, Transformation transform);
  void applyTransformationToAllTokensOfType(const TokenTypeSet& types, const Token* parent, bool reversed,
                                            NestedTransformation transform);
  void applyTransformationToAllTokensPassingTest(TokenTest test, const Token* parent, bool reversed,
                                                 NestedTransformation transform);

  /// Hands each token that passes the test to the block with the list to edit. The subtokens come before their parent,
  /// which is then seen with its edited subtokens.
  void applyModificationsToAllListsWithTokensPassingTest(TokenTest test, const Token* parent, bool reversed,
                                                         bool topLevelOnly, Modification block);
  /// The same for the tokens of the types, from the end of the line to its start, so that the indices in front of an
  /// edit stay good. Lists that never held the types are not visited. `recalculateRangesAfterEdit`: for edits that
  /// change how much text the tokens cover.
  void performEditsToListsWith(const TokenTypeSet& types, bool recalculateRangesAfterEdit, Modification block);

  /// Called once by each walk: a hook to count them.
  std::function<void()> onEnumerateTokens;

  // --- Searches ---------------------------------------------------------------------------------------------------

  /// The first token of the types at any depth, a parent before its subtokens, not looking into parents of the ignored
  /// types.
  [[nodiscard]] const Token* scanForTokenWithTypes(const TokenTypeSet& types,
                                                   const TokenTypeSet& ignoreParentsWithTypes = {}) const;
  /// A closed range of indices.
  struct IndexRange {
    std::size_t first = 0;
    std::size_t last = 0;
  };
  /// The token that holds `childToken` among its subtokens: the nearest, or the one in this list.
  [[nodiscard]] const Token* findParentOf(const Token& childToken, bool highestLevelParent = false,
                                          std::optional<IndexRange> inRange = std::nullopt) const;
  /// The token at the position (UTF-16 units). White space, if ignored, gives nothing; the end of the line gives the
  /// last token where asked.
  [[nodiscard]] const Token* tokenForCharacterIndex(std::uint32_t characterIndex, bool ignoreWhitespace = false,
                                                    bool endOfLineReturnsLastToken = false) const;
  /// The names that the line declares, in order.
  [[nodiscard]] std::vector<std::string> declaredVariableNames() const;
  /// The texts of the tokens at every depth, but for white space and what is inside of unit expressions. Built once:
  /// ask only when the list has stopped changing.
  [[nodiscard]] const StringSet& allStrings(bool lowercased) const;

 private:
  friend class TokenListTransformation;
  friend class TokenListWalk;
  friend class TokenListBracketWrapper;

  void rememberTypesOf(const Token& token);
  /// After an edit at the index.
  void noteEditAt(std::size_t index);
  [[nodiscard]] bool isOrderedAt(std::size_t index) const noexcept;
  /// Takes other tokens in place of all. What has been present stays remembered.
  void adopt(std::vector<Token> tokens);
  /// `indexOf` for a token that most likely still stands at `hint`.
  [[nodiscard]] std::optional<std::size_t> indexOf(const Token& token, std::size_t hint) const;
  [[nodiscard]] std::optional<TokenList> clauseBehind(const TokenSubTypeSet& keywords, TokenSubType endKeyword) const;
  void countEnumeration() const {
    if (onEnumerateTokens) onEnumerateTokens();
  }
  void releaseTokens() noexcept;

  mutable TokenBuffer tokens_;
  TokenTypeSet typesEverPresent_;
  TokenTypeSet deepTypesEverPresent_;
  UnitTypeSet unitTypesCache_;
  std::uint64_t modificationCount_ = 0;
  /// The texts as typed and in lower case. Filled by whoever comes first, also on a list that threads share.
  mutable std::array<std::atomic<const StringSet*>, 2> strings_{};
  /// Every token has a range and stands behind the one before it, so that a search by place is never mistaken.
  bool isOrdered_ = true;
};

}  // namespace tavrine
