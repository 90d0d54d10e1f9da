#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;

/// A stopwatch reading: "01:20:35.5"; "00:05" without seconds. One below 0 has a "-" in front.
struct LaptimeResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// A time code of a film: "01:30:16:00", without its rate.
struct FrametimeResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
