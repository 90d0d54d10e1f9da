// Names of functions take their arguments: "sqrt(16)" and "sqrt 16" become one token, a call.
//
// Each list is swept once from its end to its start, so that in "sqrt(abs(-16))" the inner call is one token before the
// outer one looks for its argument, and no bracket is counted twice however deep the calls nest.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Functions/FunctionList.h"
#include "TavrineCore/Customization/Places/PlaceList.h"
#include "TavrineCore/Parsing/Helpers/Scalars.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceCache.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Squad/Nesting.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// What a function can be applied to without brackets. Signs are not among them: "log = 5" declares, "sqrt + 5" says
/// nothing.
constexpr TokenTypeSet kArgumentTypes =
    TokenTypeSet::validAnswerProducingTypes | TokenTypeSet{TokenType::subexpression, TokenType::functionExpression,
                                                           TokenType::wordFunction,  TokenType::compoundUnitExpression,
                                                           TokenType::variable,      TokenType::subsheet};

/// What belongs to the number right before it and has not joined it: "sin 30%".
constexpr TokenTypeSet kNumberSuffixTypes{TokenType::unit, TokenType::percentageSymbol};

/// What a name that ends in a scalar can scale.
constexpr TokenTypeSet kScalableTypes{TokenType::number, TokenType::unitExpression, TokenType::rate,
                                      TokenType::subexpression};

bool endsWithScalar(const Token& name) {
  return !name.stringValue.empty() &&
         Scalars::isValid(std::string_view(name.stringValue).substr(name.stringValue.size() - 1));
}

class CallFinder {
 public:
  /// `depth` is the nesting around the list.
  CallFinder(TokenList& list, TokenType nameType, const PassContext& context, std::size_t depth)
      : list_(list), nameType_(nameType), context_(context), depth_(depth) {}

  void fuseCalls() {
    for (std::size_t i = list_.count(); i-- > 0;) {
      const Token& token = list_[i];
      nesting_.push_back(nestingOf(token));
      if (token.is(TokenType::bracket, TokenSubType::closeBracket)) {
        openClosers_.push_back(fromEnd(i));
      } else if (token.is(TokenType::bracket, TokenSubType::openBracket)) {
        noteOpener(i);
      } else if (token.is(nameType_)) {
        i = fuseCallAt(i);
      }
    }
  }

 private:
  /// Tells the same token before and after an edit in front of it.
  [[nodiscard]] std::size_t fromEnd(std::size_t index) const { return list_.count() - 1 - index; }

  void noteOpener(std::size_t index) {
    lastOpener_ = fromEnd(index);
    lastCloser_.reset();
    if (openClosers_.empty()) return;
    lastCloser_ = openClosers_.back();
    openClosers_.pop_back();
  }

  /// The index at which the sweep goes on.
  std::size_t fuseCallAt(std::size_t name) {
    if (nameType_ == TokenType::functionName && endsWithScalar(list_[name])) return fuseScaledValue(name);
    const std::optional<TokenList::IndexRange> body = bodyOf(name);
    if (!body) return name;
    const bool isWord = saysHowToRound(name, *body);
    if (!isWord && !beginsPhrase(name, *body)) {
      fuse(name, *body, {name, body->last});
      return name;
    }
    if (body->first != body->last) foldBrackets(name, *body);
    if (isWord) list_.replaceAt(name, Token(TokenType::wordComment, list_[name].stringValue, list_[name].range));
    return name;
  }

  /// Whether the name is the verb of "round 3.14159 to 2 dp": the places are the answer, and no whole number.
  [[nodiscard]] bool saysHowToRound(std::size_t name, TokenList::IndexRange body) const {
    if (lowercased(list_[name].stringValue) != "round") return false;
    const auto symbol = list_.indexAfter(body.last, /*ignoreWhitespace=*/true);
    if (!symbol || !list_[*symbol].is(TokenType::converterSymbol)) return false;
    const Token* target = list_.tokenAfter(*symbol, /*ignoreWhitespace=*/true);
    return target != nullptr && target->is(TokenType::dpSpecifier);
  }

  /// Whether the name is the first word of a whole phrase, which then takes the value: "round 44.5 to nearest 10".
  [[nodiscard]] bool beginsPhrase(std::size_t name, TokenList::IndexRange body) {
    if (nameType_ != TokenType::functionName) return false;
    if (!phrases_) phrases_ = phrasesBeginningWithNames();
    return std::any_of(phrases_->begin(), phrases_->end(), [&](const PrototypeSequenceRef& phrase) {
      const std::size_t length = phrase->prototypes().size();
      const std::size_t last = name + length - 1 + (body.last - body.first);
      if (last >= list_.count() || last < body.last) return false;
      TokenSlice slice = list_.slice(name, last);
      if (body.first != body.last) {
        const auto first = slice.tokens.begin() + static_cast<std::ptrdiff_t>(body.first - name);
        *first = list_.slice(body.first, body.last).embedInContainerToken(TokenType::subexpression);
        slice.tokens.erase(first + 1, first + 1 + static_cast<std::ptrdiff_t>(body.last - body.first));
      }
      return phrase->matches(slice);
    });
  }

  /// The brackets as one value, for the phrase that begins with the name.
  void foldBrackets(std::size_t name, TokenList::IndexRange body) {
    const std::size_t behind = list_.count() - 1 - body.last;
    const std::size_t inside =
        *std::max_element(nesting_.begin() + static_cast<std::ptrdiff_t>(behind), nesting_.end());
    if (depth_ + inside + 1 > kMaximumNesting) return;
    list_.replaceRun(body.first, body.last,
                     list_.slice(body.first, body.last).embedInContainerToken(TokenType::subexpression));
    nesting_.resize(behind);
    nesting_.push_back(inside + 1);
    for (std::size_t i = body.first; i-- > name;) nesting_.push_back(nestingOf(list_[i]));
  }

  [[nodiscard]] std::vector<PrototypeSequenceRef> phrasesBeginningWithNames() const {
    const auto& mapper = context_.content.functionList->numericalKeywordMapper();
    std::vector<PrototypeSequenceRef> phrases =
        PrototypeSequenceCache::sequencesFor(mapper.wordFunctionsWorthScanningForIn(list_, context_.features));
    std::erase_if(phrases, [](const PrototypeSequenceRef& phrase) {
      if (phrase->prototypes().empty()) return true;
      const TokenPrototype& first = *phrase->prototypes().front();
      return first.kind() != TokenPrototype::Kind::type ||
             static_cast<const TypeTokenPrototype&>(first).type() != TokenType::functionName;
    });
    return phrases;
  }

  /// The argument of the name: the brackets behind it, or without brackets the one value behind it.
  [[nodiscard]] std::optional<TokenList::IndexRange> bodyOf(std::size_t name) const {
    const std::optional<std::size_t> next = list_.indexAfter(name, true);
    if (!next) return std::nullopt;
    if (list_[*next].is(TokenType::bracket, TokenSubType::openBracket)) {
      if (lastOpener_ != fromEnd(*next) || !lastCloser_) return std::nullopt;
      return TokenList::IndexRange{*next, list_.count() - 1 - *lastCloser_};
    }
    if (context_.features.functionsRequireParentheses) return std::nullopt;
    if (!kArgumentTypes.contains(list_[*next].type)) return std::nullopt;
    const Token* suffix = list_.tokenFor(*next + 1);
    const bool hasSuffix =
        list_[*next].is(TokenType::number) && suffix != nullptr && kNumberSuffixTypes.contains(suffix->type);
    return TokenList::IndexRange{*next, hasSuffix ? *next + 1 : *next};
  }

  /// "12 k", where the host has a function of that name. With nothing to scale it may still name a place.
  std::size_t fuseScaledValue(std::size_t name) {
    const std::optional<std::size_t> value = list_.indexBefore(name, true);
    if (!value || !kScalableTypes.contains(list_[*value].type)) {
      readAsPlace(name);
      return name;
    }
    while (nesting_.size() < list_.count() - *value) {
      nesting_.push_back(nestingOf(list_[list_.count() - 1 - nesting_.size()]));
    }
    fuse(name, {*value, *value}, {*value, name});
    return *value;
  }

  void readAsPlace(std::size_t name) {
    const std::string& text = list_[name].stringValue;
    std::optional<Place> place = context_.content.placeList->placeFor(text);
    if (!place) place = AirportsList::runQuery(text);
    if (!place) return;
    Token token = TokenFactory::placeWith(*place);
    token.stringValue = text;
    token.range = list_[name].range;
    list_.replaceAt(name, std::move(token));
  }

  /// One token over `call`, with the body in a subexpression of its own and what stands around it as it is.
  void fuse(std::size_t name, TokenList::IndexRange body, TokenList::IndexRange call) {
    const std::size_t behind = list_.count() - 1 - call.last;
    const std::size_t inside =
        *std::max_element(nesting_.begin() + static_cast<std::ptrdiff_t>(behind), nesting_.end());
    if (depth_ + inside + 2 > kMaximumNesting) return;

    TokenSlice slice = list_.slice(call.first, call.last);
    // A script function reads its arguments itself, so they stay as they are.
    const bool isWrapped = body.first == body.last && list_[body.first].is(TokenType::subexpression);
    if (list_[name].is(TokenType::functionName) && !isWrapped) {
      const auto first = slice.tokens.begin() + static_cast<std::ptrdiff_t>(body.first - call.first);
      const auto last = first + static_cast<std::ptrdiff_t>(body.last - body.first);
      TokenSlice argument{std::vector<Token>(first, last + 1), body.first, body.last};
      *first = std::move(argument).embedInContainerToken(TokenType::subexpression);
      slice.tokens.erase(first + 1, last + 1);
    }
    list_.replaceRun(call.first, call.last, std::move(slice).embedInContainerToken(TokenType::functionExpression));
    nesting_.resize(behind);
    nesting_.push_back(inside + 2);
  }

  TokenList& list_;
  const TokenType nameType_;
  const PassContext& context_;
  const std::size_t depth_;
  /// Of each token from the end of the list to the place of the sweep.
  std::vector<std::size_t> nesting_;
  // Brackets by their distance from the end of the list.
  std::vector<std::size_t> openClosers_;
  std::optional<std::size_t> lastOpener_;
  std::optional<std::size_t> lastCloser_;  // the partner of `lastOpener_`, if it has one
  /// Of the phrases whose words the list holds; looked up for the first name that has a body.
  std::optional<std::vector<PrototypeSequenceRef>> phrases_;
};

/// Fuses the calls of the list and of those inside of it, inner lists first.
void fuseCallsIn(TokenList& list, TokenType nameType, const PassContext& context, std::size_t depth) {
  if (!list.typesEverPresentAtAnyDepth().contains(nameType)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    const Token& token = list[i];
    if (!token.subtokens || TokenTypeSet::commentTokenTypes.contains(token.type)) continue;
    if (!token.subtokens->typesEverPresentAtAnyDepth().contains(nameType)) continue;
    TokenList inside = *token.subtokens;
    const std::uint64_t before = inside.modificationCount();
    fuseCallsIn(inside, nameType, context, depth + 1);
    if (inside.modificationCount() == before) continue;
    Token edited = token;
    edited.subtokens = TokenList::frozen(std::move(inside));
    list.replaceAt(i, std::move(edited));
  }
  CallFinder(list, nameType, context, depth).fuseCalls();
}

}  // namespace

namespace passes {

void identifyFunctionExpressionsIn(TokenList& list, const PassContext& context) {
  if (!list.anyTypesHaveBeenPresentIn(kArgumentTypes)) return;
  fuseCallsIn(list, TokenType::functionName, context, 0);
}

void identifyJavascriptFunctionsIn(TokenList& list, const PassContext& context) {
  fuseCallsIn(list, TokenType::javascriptFunctionName, context, 0);
}

}  // namespace passes

}  // namespace tavrine
