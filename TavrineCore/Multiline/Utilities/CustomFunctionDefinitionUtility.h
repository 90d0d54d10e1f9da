#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Multiline/Utilities/FunctionBodies.h"
#include "TavrineCore/Parsing/Primitives/Subsheet.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeExpressionGenerator.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

class VariableList;

/// A value in the text of a definition: the 5 m of "area of 5 m by 3 m".
struct CustomFunctionParameter {
  /// A sheet for the parameter, under the parameter's symbol.
  Subsheet subsheet;
  Token matchedToken;
};

/// Makes functions of what users write: of an example of the phrase, "area of 5 m by 3 m", and of a body of lines in
/// which "①" is the first value of a call, "②" the second, and so on to "㊿".
class CustomFunctionDefinitionUtility {
 public:
  /// How the text of a parameter's sheet begins.
  static constexpr std::string_view parameterSheetMarker = "# TV_FUNCTION_PARAMETER\n";

  /// Bodies are evaluated, and definitions read, under the customization.
  CustomFunctionDefinitionUtility(EngineCustomization customization, std::shared_ptr<const FunctionBodies> bodies);

  [[nodiscard]] const EngineCustomization& engineCustomization() const { return engineCustomization_; }

  /// Which pieces of a definition are gaps of its phrase: values are, with the kind of their unit; the words between
  /// them stay words.
  [[nodiscard]] static PrototypeExpressionMatchType prototypeExpressionMatchHandler(const Token& token);
  /// "area of __length_expression by __length_expression"; absent for a text without a gap or without a word.
  [[nodiscard]] static std::optional<std::string> prototypeOf(std::string_view customFunctionDefinition);

  /// The values in the definition, in the order in which a call passes them; absent for a text that defines nothing.
  [[nodiscard]] std::optional<std::vector<CustomFunctionParameter>> parametersIn(
      std::string_view customFunctionDefinition) const;

  /// The function that answers with the last result of the body. Values beyond the 50th don't reach it.
  [[nodiscard]] std::optional<CustomFunction> customFunctionFrom(
      std::string_view customFunctionDefinition, std::shared_ptr<const LineSheet> implementationBody) const;

  /// Makes the values known to a body, under their symbols.
  static void setParameters(std::span<const EvaluationResult> values, VariableList& variables);

 private:
  EngineCustomization engineCustomization_;
  std::shared_ptr<const FunctionBodies> bodies_;
};

}  // namespace tavrine
