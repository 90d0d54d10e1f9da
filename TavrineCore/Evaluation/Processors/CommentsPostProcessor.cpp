#include "TavrineCore/Evaluation/Processors/TokenListProcessor.h"

namespace tavrine {

namespace {

/// Removes the tokens of the types at every depth, but for those in parents of the kept types. The copy is made only
/// where there is something to remove.
void filterOut(EditableTokenList& list, const TokenTypeSet& types, const TokenTypeSet& keptUnderParents = {}) {
  if (!list->typesEverPresentAtAnyDepth().containsTypesFrom(types)) return;
  list.edit().filterOutAllTokensOf(types, keptUnderParents);
}

}  // namespace

void CommentsPostProcessor::process(EditableTokenList& list) {
  if (!list->anyTypesHaveBeenPresentIn(TokenTypeSet::commentTypes)) return;
  filterOut(list, TokenType::slashComment);
  filterOut(list, TokenType::legacyQuotationComment, TokenTypeSet::listSet | TokenTypeSet::wordFunctionSet);
  filterOut(list, TokenType::bracketComment);
  filterOut(list, TokenType::labelExpression);
  filterOut(list, TokenType::label, TokenTypeSet::subExpressionAndConverterSet);
  filterOut(list, TokenType::hashtag, TokenTypeSet::wordFunctionSet);
}

void LabelsAndCommentsPostProcessor::process(EditableTokenList& list) {
  if (!list->anyTypesHaveBeenPresentIn(TokenTypeSet::commentTypes)) return;
  filterOut(list, TokenType::slashComment);
  filterOut(list, {TokenType::labelExpression, TokenType::label});
  filterOut(list, TokenType::hashtag, TokenTypeSet::wordFunctionSet);
}

}  // namespace tavrine
