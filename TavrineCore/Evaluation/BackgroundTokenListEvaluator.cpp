#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"

#include <optional>
#include <utility>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

/// Works out a word function with what a host provides; blocks.
using BackgroundFunction = Token (*)(const Token& wordFunction, const EngineCustomization& customization,
                                     std::stop_token stop);

/// One that is null can't be called yet: its token stays, and is evaluated as in the foreground.
struct BackgroundFunctions {
  /// A function of the host's with a block for the background.
  BackgroundFunction custom = nullptr;
  /// Only called where the host has a source of weather.
  BackgroundFunction weather = nullptr;
};
constexpr BackgroundFunctions kBackgroundFunctions;

bool isWithin(double degrees, double limit) { return degrees >= -limit && degrees <= limit; }

Place placeFrom(const PlaceData& data) {
  CustomPlace custom{data.name, data.timeZone, std::nullopt};
  if (data.coordinates && isWithin(data.coordinates->latitude, 90) && isWithin(data.coordinates->longitude, 180)) {
    custom.gpsCoordinates = GPSCoordinates{Decimal::fromDouble(data.coordinates->latitude),
                                           Decimal::fromDouble(data.coordinates->longitude)};
  }
  return Place{data.name, std::nullopt, data.timeZone, std::move(custom)};
}

/// Names that only the host knows become places, or nothing where it doesn't know them either.
Token fetchDynamicPlacesIn(const Token& wordFunction, PlaceDataProvider& provider, const std::stop_token& stop) {
  if (!wordFunction.subtokens) return Token();
  TokenList inside = *wordFunction.subtokens;
  for (std::size_t i = inside.count(); i-- > 0;) {
    if (!inside[i].is(TokenType::dynamicPlace)) continue;
    const std::optional<PlaceData> data = provider.placeDataFor(inside[i].stringValue, stop);
    inside.replaceAt(i, data ? TokenFactory::placeWith(placeFrom(*data)) : Token());
  }
  Token result = wordFunction;
  result.subtokens = TokenList::frozen(std::move(inside));
  return result;
}

Token workedOut(const Token& wordFunction, const EngineCustomization& customization, const std::stop_token& stop) {
  if (wordFunction.subType == TokenSubType::customWordFunction) {
    return kBackgroundFunctions.custom != nullptr ? kBackgroundFunctions.custom(wordFunction, customization, stop)
                                                  : wordFunction;
  }
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
  return kBackgroundFunctions.weather != nullptr ? kBackgroundFunctions.weather(function, customization, stop)
                                                 : function;
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
