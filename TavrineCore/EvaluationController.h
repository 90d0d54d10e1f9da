#pragma once

#include <memory>
#include <optional>
#include <stop_token>

#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"
#include "TavrineCore/Evaluation/TokenListEvaluator.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

class TokenList;
class UnitList;

/// Takes a parsed line to its formatted answer. Immutable but for the default preferences, which a document sets
/// before it calculates.
class EvaluationController {
 public:
  EvaluationController(EngineCustomization customization, std::shared_ptr<const UnitList> unitList);

  /// Evaluates and formats. The list is frozen from here on: the answer keeps it.
  CalculationResult resultFor(std::shared_ptr<const TokenList> originalList,
                              const std::optional<FormattingPreferences>& preferences) const;

  // The two halves of `resultFor`, for those who need what stands between. A declaration comes to its variable, while
  // the answer holds that variable's value alone.

  /// What the list comes to, rounded where the preferences want it; `none` for a list of comment words.
  EvaluationResult evaluationResultFor(const TokenList& originalList,
                                       const std::optional<FormattingPreferences>& preferences) const;
  CalculationResult formattedResultFor(const EvaluationResult& result, std::shared_ptr<const TokenList> originalList,
                                       const std::optional<FormattingPreferences>& preferences) const;

  /// The same with live data, which may be waited for on the caller's thread. What a provider throws becomes `failed`.
  CalculationResult evaluateInBackground(std::shared_ptr<const TokenList> originalList,
                                         const std::optional<FormattingPreferences>& preferences,
                                         std::stop_token stop = {}) const;

  /// Used where no preferences are passed; absent: the defaults of `FormattingPreferences`.
  std::optional<FormattingPreferences> defaultFormattingPreferences;

 private:
  const FormattingPreferences& formattingPreferencesToUseWith(
      const std::optional<FormattingPreferences>& preferences) const;
  CalculationResult handleEvaluationResult(const EvaluationResult& result,
                                           std::shared_ptr<const TokenList> originalList,
                                           const FormattingPreferences& preferences) const;

  EngineCustomization customization_;
  std::shared_ptr<const UnitList> unitList_;
  TokenListEvaluator standardEvaluator_;
  BackgroundTokenListEvaluator backgroundEvaluator_;
};

/// The result as it is kept: money, also so much of it per something, rounded to the decimals it is shown with unless
/// the preferences turn that off; and with `referencesTakeFormattedValue` every other number rounded to `dp`. Where
/// rounding has no meaning the result stays as it is. `originalList` is the line that it came of.
EvaluationResult roundResultIfNecessary(const TokenList& originalList, const EvaluationResult& result,
                                        const FormattingPreferences& preferences, const Locale& locale);

}  // namespace tavrine
