#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;

/// The formatters of so much for each of a unit. Each gives nothing for a result of another kind, and for what isn't a
/// number.

/// "$5.00/hr", "20 km/day"; "60/min" for a frequency, which is of no unit.
struct UnitRateResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "5/day".
struct DecimalRateResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "5% / year".
struct PercentageRateResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
