#pragma once

#include "TavrineCore/Evaluation/EvaluationResult.h"

namespace tavrine {

/// Adds two results of different lines. A running total starts at `none`, takes the first result that counts, and goes
/// on past results that don't: of two that can't be added the later one stays.
class ResultsPairResolver {
 public:
  [[nodiscard]] static EvaluationResult resultFor(const EvaluationResult& left, const EvaluationResult& right);
};

}  // namespace tavrine
