#pragma once

#include <memory>
#include <optional>
#include <string>

#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Multiline/Utilities/CustomFunctionDefinitionUtility.h"
#include "TavrineCore/Parsing/Primitives/LineReference.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

class SubsheetList;
class VariableList;

/// What of a line its definition of a function is read from.
struct FunctionDefiningLine {
  /// An example of the phrase: "area of 5 m by 3 m".
  std::string expression;
  /// Names the subsheet that holds the body.
  std::optional<LineReference> lineReference;
  /// The variables that the line was parsed with; null for none.
  std::shared_ptr<const VariableList> variableEnvironment;
  /// Absent for those of the document.
  std::optional<FormattingPreferences> formattingPreferences;
};

/// A line that defines a function answers for its own example: the body's answer to the values in its text.
class LineFunctionDefinition {
 public:
  LineFunctionDefinition(FunctionDefiningLine line, CustomFunctionDefinitionUtility utility,
                         std::shared_ptr<SubsheetList> subsheetList);

  /// `EmptyResult` for a line that defines nothing, or whose body answers nothing.
  [[nodiscard]] CalculationResult getResult() const;

 private:
  [[nodiscard]] std::shared_ptr<const VariableList> variablesOfExample() const;

  FunctionDefiningLine line_;
  CustomFunctionDefinitionUtility utility_;
  std::shared_ptr<SubsheetList> subsheetList_;
};

}  // namespace tavrine
