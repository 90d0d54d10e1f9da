#include "TavrineCore/ResultFormatting/CoordinateResultFormatters.h"

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

std::string textOf(const Decimal& part, const ResultFormatterContext& context) {
  return DecimalResultFormatter::formatted(part, context.formattingPreferences, context.locale);
}

}  // namespace

std::optional<std::string> GPSCoordinatesResultFormatter::formattedResult(const EvaluationResult& result,
                                                                          const ResultFormatterContext& context) {
  const GPSCoordinates* point = result.as<Case::gpsCoordinates>();
  if (point == nullptr || point->latitude().isNaN() || point->longitude().isNaN()) return std::nullopt;
  return textOf(point->latitude(), context) + "°, " + textOf(point->longitude(), context) + "°";
}

std::optional<std::string> DegreesMinutesSecondsResultFormatter::formattedResult(
    const EvaluationResult& result, const ResultFormatterContext& context) {
  const DegreesMinutesSeconds* angle = result.as<Case::degreesMinutesSeconds>();
  if (angle == nullptr || angle->degrees.isNaN() || angle->minutes.isNaN() || angle->seconds.isNaN()) {
    return std::nullopt;
  }
  std::string text = textOf(angle->degrees, context) + "° " + textOf(angle->minutes, context) + "′ " +
                     textOf(angle->seconds, context) + "″";
  if (angle->cardinalDirection) text.append(" ").append(toString(*angle->cardinalDirection));
  return text;
}

}  // namespace tavrine
