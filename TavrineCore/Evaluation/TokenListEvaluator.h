#pragma once

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"

namespace tavrine {

class TokenList;
struct FormattingPreferences;

/// Reduces the token list of a line to one result: rewrites the list, nests its operations by precedence, and
/// calculates. Holds nothing but its customization, so one evaluator serves several threads.
class TokenListEvaluator {
 public:
  explicit TokenListEvaluator(EngineCustomization customization);

  [[nodiscard]] const EngineCustomization& customization() const { return customization_; }

  /// The result of the line; never fails, `none` where it comes to nothing. The list stays as it is. With
  /// preferences (null for none) a lone value is converted to what they ask for.
  [[nodiscard]] EvaluationResult evaluate(const TokenList& list,
                                          const FormattingPreferences* formattingPreferences = nullptr) const;

 private:
  EngineCustomization customization_;
};

}  // namespace tavrine
