// "in km / h", "in % / year", "in hertz": conversions into rates, and of rates into units.

#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Evaluation/Support/UnitCalculator.h"
#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/RateType.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::conversions {

namespace {

Token unitMismatch() { return errorToken(EvaluationError::UnitMismatch); }

Token tokenOf(UnitRate rate) {
  return TokenFactory::rateWith(std::make_shared<const UnitRateTokenMetadata>(std::move(rate)));
}

Token tokenOrMismatch(const std::optional<UnitRate>& rate) { return rate ? tokenOf(*rate) : unitMismatch(); }

Token tokenOrMismatch(const std::optional<PercentageRate>& rate) {
  if (!rate) return unitMismatch();
  return TokenFactory::rateWith(std::make_shared<const PercentageRateTokenMetadata>(*rate));
}

bool haveTheSameUnits(const UnitRate& a, const UnitRate& b) { return a.ofUnit == b.ofUnit && a.perUnit == b.perUnit; }

/// What the converter names behind its symbol: a rate, or units around a stroke ("km / h", "/ h").
std::optional<UnitRate> targetRate(const Token& converter) {
  const TokenListRef& parts = converter.subtokens;
  const Token* last = parts ? parts->getLastToken(/*ignoringWhitespace=*/true) : nullptr;
  if (last == nullptr) return std::nullopt;
  if (last->is(TokenType::rate)) {
    const std::optional<RateType> rate = RateExtractor::from(*last);
    if (!rate) return std::nullopt;
    if (const auto* ofUnits = std::get_if<UnitRate>(&*rate)) return *ofUnits;
    if (const auto* ofNumbers = std::get_if<DecimalRate>(&*rate)) return asUnitRate(*ofNumbers);
    return UnitRate{Decimal(1), std::nullopt, std::get<PercentageRate>(*rate).perUnit};
  }
  const std::optional<TCUnit> perUnit = last->is(TokenType::unit) ? last->unitValue() : std::nullopt;
  if (!perUnit) return std::nullopt;
  UnitRate target{Decimal(1), std::nullopt, *perUnit};
  if (const Token* first = parts->firstTokenOfType(TokenType::unit); first != last) target.ofUnit = first->unitValue();
  return target;
}

Token rateInto(const UnitRate& target, const RateType& operand) {
  if (const auto* percentages = std::get_if<PercentageRate>(&operand)) {
    return tokenOrMismatch(to(*percentages, target.perUnit));
  }
  const auto* ofNumbers = std::get_if<DecimalRate>(&operand);
  const UnitRate rate = ofNumbers != nullptr ? asUnitRate(*ofNumbers) : std::get<UnitRate>(operand);
  return haveTheSameUnits(rate, target) ? tokenOf(rate) : tokenOrMismatch(to(rate, target));
}

Token intoRate(const Token& operand, const UnitRate& target) {
  if (const std::optional<RateType> rate = RateExtractor::from(operand)) return rateInto(target, *rate);
  const std::optional<UnitExpression> expression = operand.unitExpressionValue();
  if (!expression) return Token();
  const auto result =
      UnitCalculator::performUnitCalculation(UnitCalculation::unitToRateConversion(*expression, target));
  const UnitRate* rate = result ? result->rateValue() : nullptr;
  return rate != nullptr ? tokenOf(*rate) : unitMismatch();
}

/// So many per one unit, counted per another: 5 per day are 35 per week. Nothing for units of different kinds.
std::optional<Decimal> valuePer(const TCUnit& toUnit, const Decimal& value, const TCUnit& perUnit) {
  if (!haveEqualBaseUnits(perUnit, toUnit) || baseUnitValueOf(perUnit).isZero()) return std::nullopt;
  // Multiplied first: 7 days divide by a day without a rest.
  return value * baseUnitValueOf(toUnit) / baseUnitValueOf(perUnit);
}

/// "5 min / km in km/h": a pace is a speed upside down.
Token turnedOverInto(const UnitRate& rate, const TCUnit& toUnit) {
  const std::optional<UnitRate> turned = reciprocalOf(rate);
  const std::optional<UnitExpression> quantity = turned ? equivalentUnitExpressionOf(*turned) : std::nullopt;
  if (!quantity || !haveEqualBaseUnits(quantity->unit, toUnit)) return unitMismatch();
  std::optional<Token> converted = convertedQuantity(*quantity, toUnit);
  return converted ? *std::move(converted) : unitMismatch();
}

Token unitRateInto(const UnitRate& rate, const TCUnit& toUnit) {
  // "60 km / h in mph": the rate is a quantity by itself.
  if (const auto quantity = equivalentUnitExpressionOf(rate)) {
    if (auto converted = convertedQuantity(*quantity, toUnit)) return *std::move(converted);
  }
  // "$20 / hour in days"
  if (const std::optional<Decimal> value = valuePer(toUnit, rate.value, rate.perUnit)) {
    return tokenOf({*value, rate.ofUnit, toUnit});
  }
  // "5 / day in km" says what is counted.
  if (!rate.ofUnit) return tokenOf({rate.value, toUnit, rate.perUnit});
  // "$20 / hour in €"
  if (const auto counted = to(UnitExpression{rate.value, *rate.ofUnit}, toUnit)) {
    return tokenOf({counted->value, toUnit, rate.perUnit});
  }
  return turnedOverInto(rate, toUnit);
}

}  // namespace

Token rateIntoUnit(const RateType& rate, const TCUnit& toUnit) {
  if (const auto* percentages = std::get_if<PercentageRate>(&rate)) return tokenOrMismatch(to(*percentages, toUnit));
  const auto* ofNumbers = std::get_if<DecimalRate>(&rate);
  if (ofNumbers == nullptr) return unitRateInto(std::get<UnitRate>(rate), toUnit);
  // "5 / day in weeks" counts by the week: no period of 1/35 of it is meant.
  if (const std::optional<Decimal> value = valuePer(toUnit, ofNumbers->value, ofNumbers->perUnit)) {
    return TokenFactory::rateWith(std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{*value, toUnit}));
  }
  return unitRateInto(asUnitRate(*ofNumbers), toUnit);
}

std::optional<Token> convertedQuantity(const UnitExpression& expression, const TCUnit& toUnit) {
  const auto result = UnitCalculator::performUnitCalculation(UnitCalculation::conversion(expression, toUnit));
  if (!result) return std::nullopt;
  // Shown as one decimal number: "1 m in ft" is no "3 ft 3.37 in".
  if (const auto quantity = result->unitExpressionValue()) {
    return TokenFactory::unitExpressionWith(quantity->value, quantity->unit, /*prefersCompoundFormatting=*/false);
  }
  return result->tokenized();
}

Token intoRate(const ConverterOperands& operands) {
  const std::optional<UnitRate> target = targetRate(operands.converter);
  return target ? intoRate(operands.operand, *target) : Token();
}

Token intoFrequencyRate(const ConverterOperands& operands) {
  return intoRate(operands.operand, {Decimal(1), std::nullopt, unitOf(UnitIdentifier::seconds)});
}

}  // namespace tavrine::conversions
