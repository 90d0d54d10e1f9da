#pragma once

#include <stop_token>

#include "TavrineCore/Evaluation/TokenListEvaluator.h"

namespace tavrine {

/// Finishes what stayed `pending`, with the data that a host's blocks and providers give.
class BackgroundTokenListEvaluator : public TokenListEvaluator {
 public:
  using TokenListEvaluator::TokenListEvaluator;

  /// The result of the line. Blocks while the host's blocks and providers work, one after the other; to be called from
  /// a background thread. What they throw passes to the caller, for whom the line has failed.
  [[nodiscard]] EvaluationResult evaluateInBackground(const TokenList& list, std::stop_token stop = {}) const;
};

}  // namespace tavrine
