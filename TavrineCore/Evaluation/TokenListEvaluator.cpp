#include "TavrineCore/Evaluation/TokenListEvaluator.h"

#include <algorithm>
#include <utility>

#include "TavrineCore/Evaluation/EvaluationNode.h"
#include "TavrineCore/Evaluation/PostEvaluation/AmbiguousAnswerDeterminer.h"
#include "TavrineCore/Evaluation/PostEvaluation/AutomaticResultConverter.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

bool isPlainComment(const Token& token) {
  return (token.is(TokenType::wordComment) || token.is(TokenType::whitespace)) && !token.subtokens;
}

}  // namespace

TokenListEvaluator::TokenListEvaluator(EngineCustomization customization) : customization_(std::move(customization)) {}

EvaluationResult TokenListEvaluator::evaluate(const TokenList& list,
                                              const FormattingPreferences* formattingPreferences) const {
  if (std::all_of(list.begin(), list.end(), isPlainComment)) return EvaluationResult::none();

  EditableTokenList rewritten(list);
  preprocess(rewritten, customization_);
  const TokenList& tokens = rewritten.list();

  // What was asked for by an operation is answered as it comes out; only a lone value is converted or chosen.
  if (const auto tree = EvaluationTree::headNode(tokens)) return tree->evaluate().evaluationResult();

  const Token answer = tavrine::evaluate(tokens);
  if (formattingPreferences != nullptr) {
    const AutomaticResultConverter converter(formattingPreferences->resultConversionBehavior, answer, customization_);
    if (const std::optional<Token> converted = converter.finalValue()) return converted->evaluationResult();
  }
  if (customization_.featureFlags().inAmbiguityPreferSomethingToNothing) {
    return AmbiguousAnswerDeterminer(tokens).finalValue().evaluationResult();
  }
  if (answer.is(TokenType::datestamp) || answer.is(TokenType::datespan)) return answer.evaluationResult();
  return EvaluationResult::none();
}

}  // namespace tavrine
