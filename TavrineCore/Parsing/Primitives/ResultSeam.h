#pragma once

#include <cstddef>
#include <memory>

namespace tavrine {

class EvaluationResult;

// What values that hold results ask of them. Values stand on a lower floor than results and don't know the type; the
// functions are defined beside it.

/// Whether the two results are equal.
[[nodiscard]] bool areEqualResults(const EvaluationResult& left, const EvaluationResult& right);

[[nodiscard]] std::size_t hashOfResult(const EvaluationResult& result);

/// The same by handle: nothing equals nothing, and differs from every result.
[[nodiscard]] inline bool areEqualResults(const std::shared_ptr<const EvaluationResult>& left,
                                          const std::shared_ptr<const EvaluationResult>& right) {
  if (left == right) return true;
  return left != nullptr && right != nullptr && areEqualResults(*left, *right);
}

}  // namespace tavrine
