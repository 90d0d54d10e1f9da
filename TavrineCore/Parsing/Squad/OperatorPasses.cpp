// Operators of several characters, and words that become operators.

#include <optional>
#include <string>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

constexpr std::string_view kAsterisk = "*";

/// One operator over the run, if the joined text is a word of the vocabulary.
bool fuseIntoOperator(TokenList& list, std::size_t first, std::size_t last, const PassContext& context) {
  std::string text;
  for (std::size_t i = first; i <= last; ++i) text += list[i].stringValue;
  const std::optional<Fixture> fixture = context.content.fixturesList->find(text);
  if (!fixture) return false;
  const NSRange range{list[first].range.location, list[last].range.upperBound() - list[first].range.location};
  list.replaceRun(first, last, Token(TokenType::operator_, relatedTokenSubType(*fixture), std::move(text), range));
  return true;
}

TokenSubTypeSet subTypesOf(const TokenList& list) {
  TokenSubTypeSet subTypes;
  for (const Token& token : list) {
    const std::optional<Token> value = token.isVariable() ? token.expandedVariable() : std::nullopt;
    subTypes.insert(value ? value->subType : token.subType);
  }
  return subTypes;
}

std::optional<TokenSubType> logicalOperatorFor(const Token& token) {
  if (token.is(TokenType::conjunctionWord, TokenSubType::conjunctionWordAnd)) return TokenSubType::logicalAndOperator;
  if (token.is(TokenType::conjunctionWord, TokenSubType::conjunctionWordOr)) return TokenSubType::logicalOrOperator;
  return std::nullopt;
}

void turnConjunctionsIntoOperators(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const std::optional<TokenSubType> subType = logicalOperatorFor(list[i]);
    if (!subType) continue;
    list.replaceAt(i, Token(TokenType::operator_, *subType, list[i].stringValue, list[i].range));
  }
}

}  // namespace

void identifyMultiCharacterOperatorsInAsterisks(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::operator_) || list[i].stringValue != kAsterisk) continue;
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (!before || list[*before].stringValue != kAsterisk) continue;
    if (fuseIntoOperator(list, *before, i, context)) i = *before;
  }
}

void identifyMultiCharacterOperatorsAtEquals(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::equals)) continue;
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (before && fuseIntoOperator(list, *before, i, context)) {
      i = *before;
      continue;
    }
    if (const auto after = list.indexAfter(i, /*ignoreWhitespace=*/true)) fuseIntoOperator(list, i, *after, context);
  }
}

void identifyConjunctionsAsLogicalOperatorsIn(TokenList& list, const PassContext& context) {
  if (list.typePrecheck(TokenType::conjunctionWord) && subTypesOf(list).containsTypesFrom(Parser::logicalOperators)) {
    turnConjunctionsIntoOperators(list);
  }
  if (!list.typePrecheck(TokenType::operator_)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::operator_)) continue;
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (!before || !list[*before].is(TokenType::operator_)) continue;
    if (list[*before].stringValue != list[i].stringValue) continue;
    if (fuseIntoOperator(list, *before, i, context)) i = *before;
  }
}

void identifyLogicalNotOperatorIn(TokenList& list, const PassContext&) {
  const auto isNot = [](const Token& token, const Token*) {
    return token.is(TokenType::wordComment) && token.stringValue == Parser::logicalNotOperator;
  };
  list.applyModificationsToAllListsWithTokensPassingTest(
      isNot, nullptr, /*reversed=*/true, /*topLevelOnly=*/false,
      [](const Token& token, TokenList& inner, const Token*) {
        const auto index = inner.indexOf(token);
        if (!index || !inner.tokenAfterMustBe(*index, Parser::operandsOfLogicalNot, /*ignoreWhitespace=*/true)) return;
        inner.replaceAt(*index,
                        Token(TokenType::operator_, TokenSubType::logicalNotOperator, token.stringValue, token.range));
      });
}

}  // namespace tavrine::passes
