#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

class EvaluationResult;

/// Several results in a row: "10, 20 and 30 km".
struct List {
  /// Shared, since lists travel with tokens and results. Null stands for an empty list.
  std::shared_ptr<const std::vector<EvaluationResult>> members;

  // The operations that look at the members stand beside the result type, which this header doesn't know.
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t hash() const;
  friend bool operator==(const List& left, const List& right);
};

}  // namespace tavrine
