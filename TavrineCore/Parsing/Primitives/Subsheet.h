#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "TavrineCore/Parsing/Primitives/LineReference.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

class LineSheet;
class TokenTypeSet;
class VariableList;
struct CalculationResult;

/// A sheet inside a document that stands in an expression as one token; its value is the answer of the whole sheet.
class Subsheet {
 public:
  enum class SubsheetEvaluatorType : std::uint8_t { tavrineCore, javascript };

  /// The body.
  std::shared_ptr<const LineSheet> lineSheet;
  LineReference identifier;
  SubsheetEvaluatorType evaluator = SubsheetEvaluatorType::tavrineCore;
  /// Whether the body sees the variables of the line that uses it.
  bool canReferenceVariablesOutsideBody = true;

  // What evaluation found; null until then. No part of equality.
  std::shared_ptr<const CalculationResult> result;
  /// The variables that the body used.
  std::shared_ptr<const VariableList> dependencies;
  /// The variables that the body was given.
  std::shared_ptr<const VariableList> variableStateAtParseTime;
  std::shared_ptr<const TokenTypeSet> presentTokenTypes;

  [[nodiscard]] std::size_t hash() const {
    return hashOf(lineSheet, identifier, evaluator, canReferenceVariablesOutsideBody);
  }
  /// The same body under the same name, evaluated in the same way. Bodies are compared by identity.
  friend bool operator==(const Subsheet& left, const Subsheet& right) {
    return left.lineSheet == right.lineSheet && left.identifier == right.identifier &&
           left.evaluator == right.evaluator &&
           left.canReferenceVariablesOutsideBody == right.canReferenceVariablesOutsideBody;
  }
};

/// "tavrineCore" or "javascript".
constexpr std::string_view toString(Subsheet::SubsheetEvaluatorType type) {
  return type == Subsheet::SubsheetEvaluatorType::tavrineCore ? "tavrineCore" : "javascript";
}

}  // namespace tavrine
