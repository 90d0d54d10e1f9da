#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"

#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// Works out a word function with what a host provides; blocks.
using BackgroundFunction = Token (*)(const Token& wordFunction, const TokenList& list,
                                     const EngineCustomization& customization, std::stop_token stop);

/// The functions that have a background stage. One that is null can't be called yet: its token stays, and is evaluated
/// as in the foreground.
struct BackgroundFunctions {
  BackgroundFunction custom = nullptr;
  BackgroundFunction builtIn = nullptr;
};
constexpr BackgroundFunctions kBackgroundFunctions;

}  // namespace

EvaluationResult BackgroundTokenListEvaluator::evaluateInBackground(const TokenList& list, std::stop_token stop) const {
  EditableTokenList rewritten(list);
  preprocess(rewritten, customization());
  forEachToken(rewritten, TokenType::wordFunction, [&](EditableTokenList& tokens, std::size_t index, const Token*) {
    const bool isCustom = tokens[index].subType == TokenSubType::customWordFunction;
    const BackgroundFunction work = isCustom ? kBackgroundFunctions.custom : kBackgroundFunctions.builtIn;
    if (work == nullptr || stop.stop_requested()) return index;
    return tokens.replace(index, index, work(tokens[index], tokens.list(), customization(), stop));
  });
  return tavrine::evaluate(rewritten.list()).evaluationResult();
}

}  // namespace tavrine
