#pragma once

#include <optional>
#include <stop_token>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/LineReference.h"
#include "TavrineCore/Parsing/Primitives/Subsheet.h"

namespace tavrine {

/// Answers for the subsheets of a document while a parser works on one of its lines. The document keeps the results,
/// so that a subsheet that is used on twenty lines runs once. The parser knows this interface alone.
class SubsheetList {
 public:
  virtual ~SubsheetList() = default;

  /// Whether the text is the name of a subsheet.
  [[nodiscard]] virtual bool knows(std::string_view identifier) const = 0;

  /// The subsheet with its result and what else evaluation finds, evaluated under the variables unless an answer for
  /// them is kept; absent when the name is unknown.
  [[nodiscard]] virtual std::optional<Subsheet> evaluatedSubsheetWith(const LineReference& identifier,
                                                                      const VariableList& variables) = 0;

  /// The same for a subsheet that has to wait for live data: evaluated afresh, the answer replacing the one kept.
  /// Blocks; to be called from a background thread. Absent also when stopped.
  [[nodiscard]] virtual std::optional<Subsheet> evaluateSubsheetInBackground(const LineReference& identifier,
                                                                             const VariableList& variables,
                                                                             std::stop_token stop) = 0;
};

}  // namespace tavrine
