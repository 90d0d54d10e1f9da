#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;

/// The formatters of kinds whose text doesn't depend on preferences or locale. Each gives nothing for a result of
/// another kind.

/// "true" or "false".
struct BooleanResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// The error's message: "Error: divide by zero"; empty for the silent ones.
struct ErrorResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// The text itself, of a string or the name of a place that is looked up.
struct RawStringResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "C#4".
struct PitchResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "pending…".
struct PendingResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "⚠️".
struct FailedResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
