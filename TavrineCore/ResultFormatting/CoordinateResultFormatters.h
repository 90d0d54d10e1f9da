#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;

/// The formatters of places on the earth and of angles. Each gives nothing for a result of another kind, and where one
/// of its parts isn't a number.

/// "48.8566°, 2.3522°".
struct GPSCoordinatesResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "48° 51′ 24″ N"; without the letter where the angle has no direction.
struct DegreesMinutesSecondsResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
