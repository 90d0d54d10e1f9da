#include "TavrineCore/ResultFormatting/RateResultFormatters.h"

#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/ResultFormatting/CurrencySigns.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/FormattedSymbol.h"
#include "TavrineCore/ResultFormatting/NumberResultFormatters.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"
#include "TavrineCore/ResultFormatting/UnitResultFormatters.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

std::string_view formattedBottomUnit(const TCUnit& unit, const ResultFormatterContext& context) {
  if (const UnitSymbolReplacement* sign = signReplacing(unit.symbol(), context)) return sign->replacementSymbol;
  return pluralForm(unit.symbol(), Decimal(1));
}

std::optional<std::string> formattedDecimalRate(const Decimal& value, const TCUnit& perUnit,
                                                const ResultFormatterContext& context) {
  if (value.isNaN()) return std::nullopt;
  std::string text = DecimalResultFormatter::formatted(value, context.formattingPreferences, context.locale);
  return text.append("/").append(formattedBottomUnit(perUnit, context));
}

}  // namespace

std::optional<std::string> UnitRateResultFormatter::formattedResult(const EvaluationResult& result,
                                                                    const ResultFormatterContext& context) {
  const UnitRate* rate = result.as<Case::unitRate>();
  if (rate == nullptr || rate->value.isNaN()) return std::nullopt;
  if (!rate->ofUnit) return formattedDecimalRate(rate->value, rate->perUnit, context);
  auto text = UnitExpressionResultFormatter::formatted(
      {rate->value, *rate->ofUnit, rate->prefersCompoundUnitFormatting}, context);
  if (text) text->append("/").append(formattedBottomUnit(rate->perUnit, context));
  return text;
}

std::optional<std::string> DecimalRateResultFormatter::formattedResult(const EvaluationResult& result,
                                                                       const ResultFormatterContext& context) {
  const DecimalRate* rate = result.as<Case::decimalRate>();
  if (rate == nullptr) return std::nullopt;
  return formattedDecimalRate(rate->value, rate->perUnit, context);
}

std::optional<std::string> PercentageRateResultFormatter::formattedResult(const EvaluationResult& result,
                                                                          const ResultFormatterContext& context) {
  const PercentageRate* rate = result.as<Case::percentageRate>();
  if (rate == nullptr) return std::nullopt;
  auto text = PercentageResultFormatter::formatted(rate->percentage.decimalValue, context);
  if (text) text->append(" / ").append(formattedBottomUnit(rate->perUnit, context));
  return text;
}

}  // namespace tavrine
