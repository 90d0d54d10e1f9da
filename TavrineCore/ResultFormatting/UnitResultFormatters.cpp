#include "TavrineCore/ResultFormatting/UnitResultFormatters.h"

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/ResultFormatting/CompoundUnitFormatter.h"
#include "TavrineCore/ResultFormatting/CurrencyUnitResultFormatter.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/FormattedSymbol.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

constexpr UnitIdentifierSet kSymbolsThatTouchTheirNumber{UnitIdentifier::pixel,      UnitIdentifier::em,
                                                         UnitIdentifier::rem,        UnitIdentifier::degrees,
                                                         UnitIdentifier::arcMinutes, UnitIdentifier::arcSeconds};

// Sizes on a screen go into style sheets, which know no separator of thousands and no decimal comma.
constexpr UnitIdentifierSet kStyleSheetUnits{UnitIdentifier::pixel, UnitIdentifier::em, UnitIdentifier::rem};

constexpr std::string_view kStyleSheetSeparator = ".";

std::string formattedDecimal(const UnitExpression& amount, const ResultFormatterContext& context) {
  const UnitIdentifier identifier = amount.unit.identifier();
  const bool isForStyleSheets = kStyleSheetUnits.contains(identifier);
  if (!isForStyleSheets && identifier != UnitIdentifier::cycles) {
    return DecimalResultFormatter::formatted(amount.value, context.formattingPreferences, context.locale);
  }
  FormattingPreferences preferences = context.formattingPreferences;
  preferences.thousandsSeparatorDisabled = true;
  if (isForStyleSheets && context.locale.decimalSeparator() != kStyleSheetSeparator) {
    return DecimalResultFormatter::formatted(amount.value, preferences, Locale());
  }
  return DecimalResultFormatter::formatted(amount.value, preferences, context.locale);
}

/// The name of the unit that the line declares, where an amount of no other unit came of it.
std::optional<std::string> declaredUnitName(const UnitExpression& amount, const ResultFormatterContext& context) {
  if (amount.unit.identifier() != UnitIdentifier::undefined || context.originalTokenList == nullptr) {
    return std::nullopt;
  }
  const Token* first = context.originalTokenList->first();
  if (first == nullptr || !first->is(TokenType::unitDeclaration)) return std::nullopt;
  const auto* declaration = first->metadataAs<UnitDeclarationTokenMetadata>();
  if (declaration == nullptr) return std::nullopt;
  return declaration->name;
}

bool isCustomUnit(const TCUnit& unit) {
  return unit.unitDescription() != nullptr && unit.unitDescription()->representsCustomUnit;
}

}  // namespace

std::optional<std::string> UnitExpressionResultFormatter::formattedResult(const EvaluationResult& result,
                                                                          const ResultFormatterContext& context) {
  const UnitExpression* amount = result.as<Case::unitExpression>();
  if (amount == nullptr) return std::nullopt;
  return formatted(*amount, context);
}

std::optional<std::string> UnitExpressionResultFormatter::formatted(const UnitExpression& unitExpression,
                                                                    const ResultFormatterContext& context) {
  const Decimal& value = unitExpression.value;
  if (value.isNaN()) return std::string(stringValue(EvaluationError::Infinity));
  if (auto name = declaredUnitName(unitExpression, context)) return name;
  if (CurrencyUnitResultFormatter::isMoney(unitExpression.unit) && !isCustomUnit(unitExpression.unit)) {
    return CurrencyUnitResultFormatter::formatted(unitExpression, context);
  }
  if (auto pair = CompoundUnitFormatter::format(unitExpression, context.locale)) {
    return pair;
  }
  std::string text = formattedDecimal(unitExpression, context);
  if (!kSymbolsThatTouchTheirNumber.contains(unitExpression.unit.identifier())) text += ' ';
  text += formattedSymbol(unitExpression.unit, value);
  return text;
}

std::optional<std::string> UnitRangeResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext& context) {
  const UnitRange* range = result.as<Case::unitRange>();
  if (range == nullptr || range->lowerBound.isNaN() || range->upperBound.isNaN()) return std::nullopt;
  std::string text =
      DecimalResultFormatter::formatted(range->lowerBound, context.formattingPreferences, context.locale);
  const auto upper = UnitExpressionResultFormatter::formatted({range->upperBound, range->unit}, context);
  if (!upper) return std::nullopt;
  return text.append(" - ").append(*upper);
}

}  // namespace tavrine
