#include "TavrineCore/EvaluationController.h"

#include <utility>

#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/CommonFormattedResultsCache.h"
#include "TavrineCore/ResultFormatting/CurrencyUnitResultFormatter.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

EvaluationController::EvaluationController(EngineCustomization customization, std::shared_ptr<const UnitList> unitList)
    : customization_(customization),
      unitList_(std::move(unitList)),
      standardEvaluator_(customization),
      backgroundEvaluator_(customization) {}

const FormattingPreferences& EvaluationController::formattingPreferencesToUseWith(
    const std::optional<FormattingPreferences>& preferences) const {
  static const FormattingPreferences defaults;
  if (preferences) return *preferences;
  return defaultFormattingPreferences ? *defaultFormattingPreferences : defaults;
}

CalculationResult EvaluationController::resultFor(std::shared_ptr<const TokenList> originalList,
                                                  const std::optional<FormattingPreferences>& preferences) const {
  const EvaluationResult result = evaluationResultFor(*originalList, preferences);
  return formattedResultFor(result, std::move(originalList), preferences);
}

EvaluationResult EvaluationController::evaluationResultFor(
    const TokenList& originalList, const std::optional<FormattingPreferences>& preferences) const {
  const bool saysSomething =
      !originalList.isEmpty() && !originalList.onlyTypesHaveBeenPresentIn(TokenTypeSet::wordCommentAndWhitespace);
  if (!saysSomething) return EvaluationResult::none();
  const FormattingPreferences& inForce = formattingPreferencesToUseWith(preferences);
  return roundResultIfNecessary(originalList, standardEvaluator_.evaluate(originalList, &inForce), inForce,
                                customization_.locale());
}

CalculationResult EvaluationController::formattedResultFor(
    const EvaluationResult& result, std::shared_ptr<const TokenList> originalList,
    const std::optional<FormattingPreferences>& preferences) const {
  return handleEvaluationResult(result, std::move(originalList), formattingPreferencesToUseWith(preferences));
}

CalculationResult EvaluationController::evaluateInBackground(std::shared_ptr<const TokenList> originalList,
                                                             const std::optional<FormattingPreferences>& preferences,
                                                             std::stop_token stop) const {
  const FormattingPreferences& inForce = formattingPreferencesToUseWith(preferences);
  try {
    const EvaluationResult result = backgroundEvaluator_.evaluateInBackground(*originalList, stop);
    const EvaluationResult rounded = roundResultIfNecessary(*originalList, result, inForce, customization_.locale());
    return handleEvaluationResult(rounded, std::move(originalList), inForce);
  } catch (...) {
    // Only a host's provider throws; whatever it was, the line has no answer now.
    return {{}, EvaluationResult::failed(), std::move(originalList)};
  }
}

CalculationResult EvaluationController::handleEvaluationResult(const EvaluationResult& result,
                                                               std::shared_ptr<const TokenList> originalList,
                                                               const FormattingPreferences& preferences) const {
  if (const Decimal* number = result.as<EvaluationResult::Case::decimal>()) {
    if (const auto text = CommonFormattedResultsCache::find(*number)) {
      return {std::string(*text), result, std::move(originalList)};
    }
  }
  const ResultFormatterContext context{originalList,
                                       unitList_,
                                       customization_.calendar(),
                                       customization_.locale(),
                                       preferences,
                                       customization_.currencySymbolSettings()};
  if (auto formatted = ModernResultFactory::formattedResultFor(result, context)) return *std::move(formatted);
  return {{}, result, std::move(originalList)};
}

namespace {

/// The amount of money in the result, or on top of it; nothing for all other results.
std::optional<UnitExpression> moneyIn(const EvaluationResult& result) {
  if (const UnitExpression* amount = result.as<EvaluationResult::Case::unitExpression>()) {
    if (CurrencyUnitResultFormatter::isMoney(amount->unit)) return *amount;
  }
  if (const UnitRate* rate = result.rateValue()) {
    if (rate->ofUnit && CurrencyUnitResultFormatter::isMoney(*rate->ofUnit)) {
      return UnitExpression{rate->value, *rate->ofUnit};
    }
  }
  return std::nullopt;
}

}  // namespace

EvaluationResult roundResultIfNecessary(const TokenList& originalList, const EvaluationResult& result,
                                        const FormattingPreferences& preferences, const Locale& locale) {
  if (preferences.currencyFormattingPreferences.roundResults) {
    if (const std::optional<UnitExpression> money = moneyIn(result)) {
      const int places =
          CurrencyUnitResultFormatter::decimalPointsToDisplayFor(&originalList, *money, preferences, locale);
      return result.roundedTo(places).value_or(result);
    }
  }
  if (!preferences.referencesTakeFormattedValue) return result;
  return result.roundedTo(preferences.dp).value_or(result);
}

}  // namespace tavrine
