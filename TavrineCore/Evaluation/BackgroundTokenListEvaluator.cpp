#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"

#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Customization/Places/WeatherDataProvider.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WeatherRequests.h"
#include "TavrineCore/Evaluation/TokenEvaluation.h"
#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// Names that only the host knows become places, or nothing where it doesn't know them either.
Token fetchDynamicPlacesIn(const Token& wordFunction, PlaceDataProvider& provider, const std::stop_token& stop) {
  if (!wordFunction.subtokens) return Token();
  TokenList inside = *wordFunction.subtokens;
  for (std::size_t i = inside.count(); i-- > 0;) {
    if (!inside[i].is(TokenType::dynamicPlace)) continue;
    const std::optional<PlaceData> data = provider.placeDataFor(inside[i].stringValue, stop);
    const std::optional<Place> place = data ? data->place() : std::nullopt;
    inside.replaceAt(i, place ? TokenFactory::placeWith(*place) : Token());
  }
  Token result = wordFunction;
  result.subtokens = TokenList::frozen(std::move(inside));
  return result;
}

/// A function of the host's, by its block for the background where the other one leaves that to it.
Token workedOutByHost(const Token& wordFunction, const std::stop_token& stop) {
  const auto* call = wordFunction.metadataAs<CustomFunctionTokenMetadata>();
  if (call == nullptr || !call->customFunction.backgroundHandler()) return wordFunction;
  const CustomFunction& function = call->customFunction;
  const std::vector<EvaluationResult> arguments = customArgumentsOf(wordFunction);
  if (const EvaluationResult* held = pendingOrFailureResult(arguments)) return held->tokenized();
  const EvaluationResult atOnce = function.handler() ? function.handler()(arguments) : EvaluationResult::pending();
  if (!atOnce.is(EvaluationResultCase::pending)) return atOnce.tokenized();
  return function.backgroundHandler()(arguments, stop).tokenized();
}

Token weatherFor(const Token& wordFunction, FunctionIdentifier identifier, WeatherDataProvider& provider,
                 const std::stop_token& stop) {
  const std::vector<Token> arguments = builtInArgumentsOf(wordFunction);
  if (const Token* held = pendingOrFailureToken(arguments)) return *held;
  const std::optional<WeatherDataRequest> request = weatherRequestFor(identifier, arguments);
  const std::optional<EvaluationResult> result = request ? provider.resultFor(*request, stop) : std::nullopt;
  return result ? result->tokenized() : Token();
}

Token workedOut(const Token& wordFunction, const EngineCustomization& customization, const std::stop_token& stop) {
  if (wordFunction.subType == TokenSubType::customWordFunction) return workedOutByHost(wordFunction, stop);
  const std::optional<FunctionIdentifier> identifier = wordFunction.functionIdentifier();
  if (!identifier) return wordFunction;
  const bool isWeather = weatherFunctionIdentifiers.contains(*identifier);
  const bool takesPlaces = isWeather || additonalDynamicPlaceSupportedFunctions.contains(*identifier);

  Token function = wordFunction;
  if (takesPlaces && customization.placeDataProvider() && wordFunction.subtokens &&
      wordFunction.subtokens->typePrecheck(TokenType::dynamicPlace)) {
    function = fetchDynamicPlacesIn(function, *customization.placeDataProvider(), stop);
  }
  if (!isWeather) return function;
  if (!customization.weatherDataProvider()) return Token();
  return weatherFor(function, *identifier, *customization.weatherDataProvider(), stop);
}

}  // namespace

EvaluationResult BackgroundTokenListEvaluator::evaluateInBackground(const TokenList& list, std::stop_token stop) const {
  EditableTokenList rewritten(list);
  preprocess(rewritten, customization());
  forEachToken(rewritten, TokenType::wordFunction, [&](EditableTokenList& tokens, std::size_t index, const Token*) {
    if (stop.stop_requested()) return index;
    return tokens.replace(index, index, workedOut(tokens[index], customization(), stop));
  });
  return tavrine::evaluate(rewritten.list()).evaluationResult();
}

}  // namespace tavrine
