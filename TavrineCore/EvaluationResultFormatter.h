#pragma once

#include <memory>
#include <optional>

#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

class Calculator;
class EngineCustomization;

/// Formats results that didn't come out of a line, such as a host's own
/// numbers. A result takes the road that a typed one takes: it is rounded,
/// converted and shown as a line with nothing else in it would be.
class EvaluationResultFormatter {
 public:
  explicit EvaluationResultFormatter(EngineCustomization customization,
                                     std::optional<FormattingPreferences> formattingPreferences = std::nullopt);
  ~EvaluationResultFormatter();
  EvaluationResultFormatter(EvaluationResultFormatter&&) noexcept;
  EvaluationResultFormatter& operator=(EvaluationResultFormatter&&) noexcept;

  /// The text and the value that it shows. Several threads may format at once.
  [[nodiscard]] CalculationResult format(const EvaluationResult& result) const;

 private:
  std::unique_ptr<Calculator> calculator_;
};

}  // namespace tavrine
