// The weather is the host's to know, and to be waited for: here the questions are only made.

#include <optional>
#include <span>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WeatherRequests.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

namespace {

std::optional<Place> placeToldBy(const Token& argument) {
  if (argument.is(TokenType::timezone)) return argument.placeValue();
  const auto* day = argument.metadataAs<DatestampTokenMetadata>();
  return day != nullptr && day->place ? std::optional(*day->place) : std::nullopt;
}

/// The moment that a day or hour means at the place: "3pm" is told by the clocks there, unless another zone is named.
Date momentAt(const Place& place, const Token& day) {
  const auto& told = *day.metadataAs<DatestampTokenMetadata>();
  const Datestamp& datestamp = told.datestamp;
  if (datestamp.hasExplicitTimeZone || datestamp.type == Datestamp::DatestampType::now) return datestamp.date;
  using Component = Calendar::Component;
  const Calendar& calendar = told.environment.calendar();
  const DateComponents clock = calendar.in(datestamp.timezone)
                                   .dateComponents({Component::year, Component::month, Component::day, Component::hour,
                                                    Component::minute, Component::second},
                                                   datestamp.date);
  return calendar.in(place.timeZone).dateFrom(clock).value_or(datestamp.date);
}

std::optional<EvaluationResult> evaluateWeatherFunction(FunctionIdentifier identifier, std::span<const Token> arguments,
                                                        const EngineCustomization& customization) {
  if (!customization.weatherDataProvider() || !weatherRequestFor(identifier, arguments)) return std::nullopt;
  return EvaluationResult::pending();
}

}  // namespace

std::optional<WeatherDataRequest> weatherRequestFor(FunctionIdentifier function, std::span<const Token> arguments) {
  std::optional<Place> place;
  const Token* day = nullptr;
  for (const Token& argument : arguments) {
    if (!place) place = placeToldBy(argument);
    if (day == nullptr && argument.metadataAs<DatestampTokenMetadata>() != nullptr) day = &argument;
  }
  if (!place) return std::nullopt;
  const std::optional<Date> date = day != nullptr ? std::optional(momentAt(*place, *day)) : std::nullopt;
  return WeatherDataRequest{function, *std::move(place), date};
}

constinit const WordFunctionHandler kWeatherFunctionHandler{weatherFunctionIdentifiers, evaluateWeatherFunction};

}  // namespace tavrine
