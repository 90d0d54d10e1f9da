// "1, 2 and 3" behind a word that works on lists.

#include <memory>
#include <optional>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

class ListFinder {
 public:
  ListFinder(TokenList& list, const PassContext& context) : list_(list), context_(context) {}

  /// From the end to the start. What follows each token is remembered on the way, so that words which may stand
  /// between a token and its list ("with with with …") are stepped over once.
  void fuseLists() {
    std::optional<std::size_t> next;
    for (std::size_t i = list_.count(); i-- > 0;) {
      if (next && supportsList(list_[i])) fuseListBehind(i, *next);
      if (!list_[i].is(TokenType::whitespace) && !TokenTypeSet::typesToIgnoreBeforeListStart.contains(list_[i].type)) {
        next = i;
      }
    }
  }

 private:
  static bool supportsList(const Token& token) {
    if (token.is(TokenType::prepositionWord)) return token.subType == TokenSubType::prepositionWordWith;
    return Parser::listSupportingTypes.contains(token.type);
  }

  void fuseListBehind(std::size_t index, std::size_t first) {
    if (!TokenTypeSet::typesInsideLists.contains(list_[first].type)) return;
    std::size_t last = first;
    for (auto next = list_.indexAfter(last, /*ignoreWhitespace=*/true);
         next && TokenTypeSet::typesInsideLists.contains(list_[*next].type);
         next = list_.indexAfter(last, /*ignoreWhitespace=*/true)) {
      last = *next;
    }
    if (!list_[index].is(TokenType::javascriptFunctionName)) {
      if (first == last && isListInBrackets(first)) turnIntoStatistic(index);
      if (first == last) return;
      if (list_[index].is(TokenType::unit) && !isTargetOfConverter(index) && !turnIntoStatistic(index)) return;
    }
    list_.replaceRun(first, last, list_.slice(first, last).embedInContainerToken(TokenType::list));
  }

  /// "(3, 5)".
  bool isListInBrackets(std::size_t index) const {
    const TokenListRef& inside = list_[index].subtokens;
    return list_[index].is(TokenType::subexpression) && inside && inside->firstTokenOfType(TokenType::comma) != nullptr;
  }

  bool isTargetOfConverter(std::size_t index) const {
    return list_.tokenBeforeMustBe(index, TokenType::converterSymbol, /*ignoreWhitespace=*/true) != nullptr;
  }

  /// "count" is a unit and a statistic, "min" another: a list behind it decides.
  bool turnIntoStatistic(std::size_t index) {
    const Token& word = list_[index];
    if (!word.is(TokenType::unit)) return false;
    const std::optional<Fixture> fixture = context_.content.fixturesList->find(word.stringValue);
    if (!fixture || !fixtureSets::statisticWordTypes.contains(*fixture)) return false;
    const TokenSubType subType = relatedTokenSubType(*fixture);
    const std::optional<StatisticType> statistic = statisticTypeOf(subType);
    if (!statistic) return false;
    list_.replaceAt(index, Token(TokenType::statisticType, subType, word.stringValue, word.range, nullptr,
                                 std::make_shared<const StatisticTypeTokenMetadata>(*statistic)));
    return true;
  }

  TokenList& list_;
  const PassContext& context_;
};

constexpr TokenTypeSet kContainers{TokenType::subexpression, TokenType::functionExpression};

TokenListRef withListsFused(const TokenList& list, const PassContext& context);

/// Those inside of brackets first.
void fuseListsIn(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const Token& token = list[i];
    if (!token.subtokens || !kContainers.contains(token.type)) continue;
    if (TokenListRef edited = withListsFused(*token.subtokens, context)) {
      Token outer = token;
      outer.subtokens = std::move(edited);
      list.replaceAt(i, std::move(outer));
    }
  }
  ListFinder(list, context).fuseLists();
}

TokenListRef withListsFused(const TokenList& list, const PassContext& context) {
  if (!list.typesEverPresentAtAnyDepth().containsTypesFrom(Parser::listSupportingTypes)) return nullptr;
  TokenList edited(list);
  fuseListsIn(edited, context);
  return edited.modificationCount() == 0 ? nullptr : TokenList::frozen(std::move(edited));
}

}  // namespace

void identifyLists(TokenList& list, const PassContext& context) { fuseListsIn(list, context); }

}  // namespace tavrine::passes
