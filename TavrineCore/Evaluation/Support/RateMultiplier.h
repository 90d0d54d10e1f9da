#pragma once

#include <optional>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// Products of rates, by what cancels between their units. Nothing where nothing does.
class RateMultiplier {
 public:
  /// "$20 / hour * 8 hours / day" is $160 / day.
  [[nodiscard]] static std::optional<EvaluationResult> multiplied(const UnitRate& rate1, const UnitRate& rate2);

  /// "$20 / hour * 90 min" is $30.
  [[nodiscard]] static std::optional<EvaluationResult> multiplied(const UnitRate& rate,
                                                                  const UnitExpression& expression);
};

}  // namespace tavrine
