#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;
struct UnitExpression;

/// "20 km", "5 ft 3 in", "90°", "$12.00".
class UnitExpressionResultFormatter {
 public:
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);

  /// The same for an amount that is part of another result. What isn't a number reads as infinity.
  [[nodiscard]] static std::optional<std::string> formatted(const UnitExpression& unitExpression,
                                                            const ResultFormatterContext& context);
};

/// "10 - 20 km".
struct UnitRangeResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
