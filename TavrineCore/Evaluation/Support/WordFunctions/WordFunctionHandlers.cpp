#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"

#include <array>
#include <cstddef>
#include <optional>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandler.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"

namespace tavrine {

namespace {

using HandlersForFunctionIdentifer = std::array<const WordFunctionHandler*, kFunctionIdentifierCount>;

HandlersForFunctionIdentifer handlersForFunctionIdentifer() {
  HandlersForFunctionIdentifer handlers{};
  for (const WordFunctionHandler* handler : allWordFunctionHandlers()) {
    handler->handledFunctionIdentifiers.forEach(
        [&](FunctionIdentifier identifier) { handlers[static_cast<std::size_t>(identifier)] = handler; });
  }
  return handlers;
}

}  // namespace

const WordFunctionHandler* WordFunctionHandlers::functionEvaluatorFor(FunctionIdentifier functionIdentifier) {
  static const HandlersForFunctionIdentifer handlers = handlersForFunctionIdentifer();
  return handlers[static_cast<std::size_t>(functionIdentifier)];
}

Token WordFunctionHandlers::evaluate(FunctionIdentifier identifier, std::span<const Token> arguments,
                                     const EngineCustomization& customization) {
  const WordFunctionHandler* handler = functionEvaluatorFor(identifier);
  if (handler == nullptr) return Token();
  const std::optional<EvaluationResult> result = handler->evaluate(identifier, arguments, customization);
  return result ? tokenOf(*result) : Token();
}

}  // namespace tavrine
