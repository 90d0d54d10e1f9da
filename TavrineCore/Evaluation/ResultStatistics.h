#pragma once

#include <span>

#include "TavrineCore/Evaluation/EvaluationResult.h"

namespace tavrine {

/// What the results come to together: their total, average, least, ... `none` where they come to nothing. Results that
/// are `none` are passed over, and don't count. How two results add up is told by `ResultsPairResolver`.
///
/// Declared on this floor for the lists that a line holds; defined with the statistics of documents, which lists share.
[[nodiscard]] EvaluationResult reduceTo(std::span<const EvaluationResult> results, StatisticType statisticType);

}  // namespace tavrine
