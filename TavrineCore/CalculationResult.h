#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "TavrineCore/Evaluation/EvaluationResult.h"

namespace tavrine {

class TokenList;

/// The answer to a line: its text, its typed value and what was evaluated.
struct CalculationResult {
  /// The formatted answer; empty where there is nothing to show.
  std::string stringValue;
  EvaluationResult evaluationResult;
  /// The line as it was parsed; null in `EmptyResult`. Frozen, and shared between copies.
  std::shared_ptr<const TokenList> parsedExpression;

  /// Waits for data from outside; also for a variable whose value does.
  [[nodiscard]] bool isPendingResult() const;
  /// Data from outside didn't come; also for a variable whose value failed.
  [[nodiscard]] bool isFailedResult() const;
  /// Nothing to show: no result and no text, or an error that is to stay silent, whatever the text.
  [[nodiscard]] bool isEmptyResult() const;

  [[nodiscard]] std::size_t hash() const;
  /// Lists are compared by their tokens.
  friend bool operator==(const CalculationResult& left, const CalculationResult& right);
};

/// The answer to a line that says nothing.
[[nodiscard]] const CalculationResult& EmptyResult();

}  // namespace tavrine

template <>
struct std::hash<tavrine::CalculationResult> {
  std::size_t operator()(const tavrine::CalculationResult& result) const { return result.hash(); }
};
