// "if 1 > 0 then 2 else 3".

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

constexpr TokenTypeSet kBetweenDeclarationAndCondition{TokenType::variableAssignmentOperator};
constexpr TokenTypeSet kDeclarations{TokenType::variableDeclaration, TokenType::declaredVariable};

bool opensCondition(const Token& keyword) {
  return keyword.subType == TokenSubType::conditionalKeywordIf ||
         keyword.subType == TokenSubType::conditionalKeywordUnless;
}

TokenMetadataRef metadataOf(const Token& declaration) {
  const bool isWhole = declaration.is(TokenType::variableDeclaration);
  return std::make_shared<const ConditionalVariableDeclarationTokenMetadata>(
      isWhole ? std::optional(declaration) : std::nullopt, isWhole ? std::nullopt : std::optional(declaration));
}

}  // namespace

void identifyConditionalExpressionsIn(TokenList& list, const PassContext&) {
  if (!list.ifClause()) return;
  const Token* keyword = list.firstTokenOfType(TokenType::conditionalKeyword);
  if (keyword == nullptr || !opensCondition(*keyword)) return;
  const Token* lastToken = list.lastMeaningfulToken();
  if (lastToken == nullptr) return;
  const std::size_t first = *list.indexOf(*keyword);
  const std::size_t last = *list.indexOf(*lastToken);
  if (last < first) return;

  TokenSlice clauses = list.slice(first, last);
  const TokenList inner(clauses.tokens);
  const bool isComplete = inner.thenClause() || inner.elseClause();
  const auto before = list.indexBefore(first, /*ignoreWhitespace=*/true, kBetweenDeclarationAndCondition);
  const bool isDeclared = before && kDeclarations.contains(list[*before].type);
  if (!isComplete && !isDeclared) {
    // "5 if x" is no condition. Types that have gone meanwhile needn't open gates any more.
    list.replaceTypesCache(TokenList(list).typesEverPresent());
    return;
  }
  list.replaceRun(first, last, std::move(clauses).embedInContainerToken(TokenType::conditionalExpression));
  if (!isDeclared) return;
  TokenMetadataRef metadata = metadataOf(list[*before]);
  list.replaceRun(*before, first,
                  list.slice(*before, first)
                      .embedInContainerToken(TokenType::conditionalVariableDeclaration, TokenSubType::notSpecified,
                                             std::move(metadata)));
}

}  // namespace tavrine::passes
