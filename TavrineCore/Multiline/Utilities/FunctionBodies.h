#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "TavrineCore/CalculationResult.h"

namespace tavrine {

class EngineCustomization;
class LineSheet;
class VariableList;

/// What functions ask of the documents that hold their bodies. Called on the threads of evaluation, several at once.
class FunctionBodies {
 public:
  virtual ~FunctionBodies() = default;

  /// A new sheet with the lines of the text.
  [[nodiscard]] virtual std::shared_ptr<const LineSheet> sheetWith(std::string_view text) const = 0;

  /// Evaluates all lines of the body as a document of its own, which knows these variables alone, and gives the last
  /// result that a line has; absent where none has one. The body itself stays as it is.
  [[nodiscard]] virtual std::optional<CalculationResult> lastResultOf(
      const LineSheet& body, const EngineCustomization& customization,
      std::shared_ptr<const VariableList> variables) const = 0;
};

}  // namespace tavrine
