#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

struct ResultFormatterContext;

/// Gives the text of a result, or nothing when there is none to show. A pure function: each formatter offers one as its
/// `formattedResult`.
using ResultFormatterFunction = std::optional<std::string> (*)(const EvaluationResult&, const ResultFormatterContext&);

inline constexpr std::size_t kEvaluationResultCaseCount = static_cast<std::size_t>(EvaluationResultCase::none) + 1;
using EvaluationResultCaseSet = EnumSet<EvaluationResultCase, kEvaluationResultCaseCount>;

/// The one place that knows which formatter shows which result.
class ModernResultFactory {
 public:
  struct Row {
    /// What the row takes: the payload's type, or the case where there is no payload.
    std::string_view payload;
    /// The formatter's name, for dumps and failure messages.
    std::string_view formatter;
    /// Null where results of this kind have no text.
    ResultFormatterFunction function;
    /// The cases that carry the payload.
    EvaluationResultCaseSet cases;
  };

  /// The rows in their order: a result is shown by the first row that takes it.
  [[nodiscard]] static std::span<const Row> rows() noexcept;
  /// The row for results of this case; null for cases that are never shown. Constant time.
  [[nodiscard]] static const Row* rowFor(EvaluationResult::Case resultCase) noexcept;

  /// The result with its text and the context's line. A variable with a value is shown, and given back, as that value.
  /// The text is empty where the formatter gives none; nothing at all where there is no formatter.
  [[nodiscard]] static std::optional<CalculationResult> formattedResultFor(const EvaluationResult& evaluationResult,
                                                                           const ResultFormatterContext& context);
};

}  // namespace tavrine
