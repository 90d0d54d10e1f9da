// Where places lie, and how far they are from each other.

#include <exception>
#include <optional>
#include <span>
#include <string>

#include "Foundation/Diagnostics.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{gpsCoordinatesOfPlace, longitudeOfPlace, latitudeOfPlace,
                                         distanceBetweenPlaces};

PlaceData::Coordinates inBinary(const GPSCoordinates& coordinates) {
  return {coordinates.latitude().doubleValue(), coordinates.longitude().doubleValue()};
}

Answer distance(const GPSCoordinates& from, const GPSCoordinates& to, PlaceDataProvider& provider) {
  try {
    const std::optional<UnitExpression> found = provider.distanceBetween(inBinary(from), inBinary(to));
    return found ? Answer(EvaluationResult::unitExpression(*found)) : std::nullopt;
  } catch (const std::exception& error) {
    diagnose(std::string("A distance could not be calculated: ").append(error.what()));
  } catch (...) {
    diagnose("A distance could not be calculated");
  }
  return EvaluationResult::failed();
}

/// Between the last two arguments. A unit in front of them is the one that is asked for: "how many miles from …".
Answer distanceBetween(Arguments arguments, const EngineCustomization& customization) {
  const bool asksForUnit = arguments.size() == 3 && arguments[0].is(TokenType::unit);
  if (arguments.size() != 2 && !asksForUnit) return std::nullopt;
  const std::optional<GPSCoordinates> from = arguments[arguments.size() - 2].gpsCoordinatesValue();
  const std::optional<GPSCoordinates> to = arguments.back().gpsCoordinatesValue();
  const auto& provider = customization.placeDataProvider();
  if (!provider) diagnose("Warning: no parameters for a distance calculation");
  if (!from || !to || !provider) return std::nullopt;
  const Answer answer = distance(*from, *to, *provider);
  return answer && asksForUnit ? resultOf(convertedInto(answer->tokenized(), arguments[0])) : answer;
}

Answer evaluateGeographicFunction(FunctionIdentifier identifier, Arguments arguments,
                                  const EngineCustomization& customization) {
  if (identifier == distanceBetweenPlaces) return distanceBetween(arguments, customization);
  if (arguments.size() != 1) return std::nullopt;
  const std::optional<GPSCoordinates> coordinates = arguments[0].gpsCoordinatesValue();
  if (!coordinates) return std::nullopt;
  switch (identifier) {
    case gpsCoordinatesOfPlace:
      return EvaluationResult::gpsCoordinates(*coordinates);
    case longitudeOfPlace:
      return EvaluationResult::decimal(coordinates->longitude());
    case latitudeOfPlace:
      return EvaluationResult::decimal(coordinates->latitude());
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kGeographicFunctionHandler{kHandled, evaluateGeographicFunction};

}  // namespace tavrine
