#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"

#include <algorithm>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Evaluation/TokenEvaluation.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

Token evaluateCustom(const Token& token) {
  const auto* call = token.metadataAs<CustomFunctionTokenMetadata>();
  const auto found = CustomFunctionSubstitutionUtility::functionArgumentsFor(token);
  if (call == nullptr || !found || !call->customFunction.handler()) return Token();
  std::vector<EvaluationResult> arguments;
  arguments.reserve(found->size());
  for (const CustomFunctionArgument& argument : *found) arguments.push_back(argument.functionArgument);
  if (const EvaluationResult* held = pendingOrFailureResult(arguments)) return held->tokenized();
  try {
    return call->customFunction.handler()(arguments).tokenized();
  } catch (const std::exception& error) {
    diagnose(std::string("A custom function failed: ").append(error.what()));
  } catch (...) {
    diagnose("A custom function failed");
  }
  return failedToken();
}

Token evaluateBuiltIn(const Token& token) {
  const auto* call = token.metadataAs<WordFunctionTokenMetadata>();
  if (call == nullptr || call->sequence == nullptr || !token.subtokens) return Token();
  std::vector<Token> arguments;
  for (CustomFunctionArgument& argument :
       CustomFunctionSubstitutionUtility::functionArgumentsFor(*token.subtokens, *call->sequence)) {
    arguments.push_back(std::move(argument.matchedToken));
  }
  if (const Token* held = pendingOrFailureToken(arguments)) return *held;
  const bool asksForPlace = std::any_of(arguments.begin(), arguments.end(),
                                        [](const Token& argument) { return argument.is(TokenType::dynamicPlace); });
  if (asksForPlace) return pendingToken();
  return WordFunctionHandlers::evaluate(call->function.identifier, arguments, call->customization);
}

}  // namespace

Token evaluateWordFunction(const Token& token) {
  return token.subType == TokenSubType::customWordFunction ? evaluateCustom(token) : evaluateBuiltIn(token);
}

}  // namespace tavrine
