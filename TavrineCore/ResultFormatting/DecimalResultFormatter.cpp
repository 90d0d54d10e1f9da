#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"

#include "Foundation/Decimal.h"
#include "Foundation/DecimalMath.h"
#include "Foundation/Locale.h"
#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"
#include "TavrineCore/ResultFormatting/SIAbbreviation.h"

namespace tavrine {
namespace {

// Three places short of what a decimal holds: the last digits of 1/3 × 3 and its like are rounding, not answer.
constexpr int kTrustedPlaces = 35;

std::string infinityText() { return std::string(stringValue(EvaluationError::Infinity)); }

const Decimal* numberIn(const EvaluationResult& result) {
  if (const Decimal* decimal = result.as<EvaluationResult::Case::decimal>()) return decimal;
  return result.as<EvaluationResult::Case::scientificNotation>();
}

}  // namespace

DecimalResultFormatter::DecimalFormattingStyle DecimalResultFormatter::formattingStyleFor(
    const Decimal& decimal, const NotationPreferences& preferences) {
  using enum DecimalFormattingStyle;
  const Decimal magnitude = decimal.magnitude();
  if (preferences.notationStyle != NotationPreferences::NotationStyle::off && !decimal.isZero()) {
    if (magnitude > largestSIDecimal || magnitude < smallestSIDecimal) return scientific;
    if (magnitude >= valueOf(preferences.upperNotationThreshold)) return si;
  }
  return magnitude > largestPreciseNonDarwinDecimal ? scientific : plain;
}

std::optional<std::string> DecimalResultFormatter::formattedResult(const EvaluationResult& result,
                                                                   const ResultFormatterContext& context) {
  const Decimal* decimal = numberIn(result);
  if (decimal == nullptr) return std::nullopt;
  if (decimal->isNaN()) return infinityText();
  if (result.is(EvaluationResult::Case::scientificNotation)) {
    return formattedWithScientificNotation(decimal->rounded(kTrustedPlaces, RoundingMode::plain),
                                           context.formattingPreferences, context.locale);
  }
  return formatted(*decimal, context.formattingPreferences, context.locale);
}

std::string DecimalResultFormatter::formatted(const Decimal& decimal, const FormattingPreferences& preferences,
                                              const Locale& locale) {
  if (decimal.isNaN()) return infinityText();
  const Decimal trusted = decimal.rounded(kTrustedPlaces, RoundingMode::plain);
  std::optional<std::string> text;
  switch (formattingStyleFor(trusted, preferences.notationPreferences)) {
    case DecimalFormattingStyle::scientific:
      text = formattedWithScientificNotation(trusted, preferences, locale);
      break;
    case DecimalFormattingStyle::si:
      text = siFormattedNumber(trusted, locale, preferences);
      break;
    case DecimalFormattingStyle::fraction:
    case DecimalFormattingStyle::plain:
      break;
  }
  if (text) return *std::move(text);
  return resultNumberFormatter(preferences, locale).string(trusted);
}

std::optional<std::string> DecimalResultFormatter::formattedAsDecimal(const Decimal& decimal,
                                                                      const FormattingPreferences& preferences,
                                                                      const Locale& locale) {
  if (decimal.isNaN()) return std::nullopt;
  return resultNumberFormatter(preferences, locale).string(decimal);
}

std::optional<std::string> DecimalResultFormatter::formattedWithScientificNotation(
    const Decimal& decimal, const FormattingPreferences& preferences, const Locale& locale) {
  if (decimal.isNaN()) return std::nullopt;
  NumberFormatter formatter = resultNumberFormatter(preferences, locale);
  formatter.numberStyle = NumberStyle::scientific;
  return formatter.string(decimal);
}

std::optional<std::string> DecimalResultFormatter::formattedAsFraction(const Decimal& decimal,
                                                                       const FormattingPreferences& preferences,
                                                                       const Locale& locale) {
  if (decimal.isNaN()) return std::nullopt;
  const std::optional<FractionDescription> fraction = fractionDescription(decimal);
  if (!fraction) return std::nullopt;
  std::string text;
  if (decimal >= Decimal(1)) {
    resultNumberFormatter(preferences, locale).append(decimal.rounded(0, RoundingMode::down), text);
    text += ' ';
  }
  text += fraction->vulgarFractionCharacter().value_or(fraction->formattedProperFraction());
  return text;
}

}  // namespace tavrine
