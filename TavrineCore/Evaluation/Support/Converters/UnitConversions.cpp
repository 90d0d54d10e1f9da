// "in km", "in $ at 1.3", "in 5 km": conversions into a unit.

#include <memory>
#include <optional>
#include <utility>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Evaluation/TextEvaluation.h"
#include "TavrineCore/Parsing/Helpers/RateExtractor.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::conversions {

namespace {

Token unitMismatch() { return errorToken(EvaluationError::UnitMismatch); }

Token orMismatch(std::optional<Token> token) { return token ? *std::move(token) : unitMismatch(); }

Token tokenOf(const UnitExpression& expression) {
  return TokenFactory::unitExpressionWith(expression.value, expression.unit);
}

std::optional<Token> secondsInto(const TCUnit& toUnit, const Decimal& seconds) {
  return convertedQuantity({seconds, unitOf(UnitIdentifier::seconds)}, toUnit);
}

/// Of currencies and other units that are made anew for a query, the name tells.
bool isSameUnit(const TCUnit& a, const TCUnit& b) {
  return a == b || (a.identifier() == b.identifier() && a.identifier() != UnitIdentifier::undefined);
}

Token unixTimestampInto(const TCUnit& toUnit, const Token& operand) {
  if (toUnit.unitType() != UnitType::duration) return unitMismatch();
  return orMismatch(secondsInto(toUnit, operand.decimalValue()));
}

Token laptimeInto(const TCUnit& toUnit, const Laptime& laptime) {
  const Decimal seconds = Decimal(laptime.hour.value_or(0)) * Decimal(3600) + Decimal(laptime.minute) * Decimal(60) +
                          laptime.seconds.value_or(Decimal(0));
  return orMismatch(secondsInto(toUnit, seconds));
}

Token pitchInto(const TCUnit& toUnit, const Pitch& pitch) {
  const TCUnit& hertz = unitOf(UnitIdentifier::hertz);
  const auto frequency =
      haveEqualBaseUnits(toUnit, hertz) ? to({Pitch::frequencyFor(pitch), hertz}, toUnit) : std::nullopt;
  return frequency ? tokenOf(*frequency) : unitMismatch();
}

Token frametimeInto(const TCUnit& toUnit, const Frametime& time) {
  const Decimal wholeSeconds =
      Decimal(time.hour) * Decimal(3600) + Decimal(time.minute) * Decimal(60) + Decimal(time.second);
  if (toUnit.identifier() == UnitIdentifier::frames) {
    const Decimal frames = (wholeSeconds * time.fps).rounded(0, RoundingMode::plain) + Decimal(time.frame);
    return tokenOf({frames, toUnit});
  }
  return orMismatch(secondsInto(toUnit, wholeSeconds + Decimal(time.frame) / time.fps));
}

Token literalInto(const TCUnit& toUnit, const Token& operand) {
  const Token value = resultOfText(operand.stringValue).tokenized();
  return value.is(TokenType::literal) ? Token() : intoUnit(value, toUnit);
}

}  // namespace

Token intoUnit(const Token& operand, const TCUnit& toUnit) {
  if (operand.is(TokenType::error)) return operand;
  if (const std::optional<RateType> rate = RateExtractor::from(operand)) return rateIntoUnit(*rate, toUnit);
  if (const auto dms = operand.dmsValue()) {
    return orMismatch(convertedQuantity({dms->decimalDegrees(), unitOf(UnitIdentifier::degrees)}, toUnit));
  }
  if (operand.is(TokenType::unixTimestamp)) return unixTimestampInto(toUnit, operand);
  if (const auto laptime = operand.laptimeValue()) return laptimeInto(toUnit, *laptime);
  if (const auto pitch = operand.pitchValue()) return pitchInto(toUnit, *pitch);
  if (const auto frametime = operand.frametimeValue()) return frametimeInto(toUnit, *frametime);
  // "USD in EUR" asks for one of it.
  if (operand.is(TokenType::unit)) return orMismatch(convertedQuantity({Decimal(1), *operand.unitValue()}, toUnit));
  if (operand.is(TokenType::literal)) return literalInto(toUnit, operand);
  const std::optional<UnitExpression> expression = operand.unitExpressionValue();
  // "5 in km" names the unit that the number has meant all along.
  if (!expression) return tokenOf({operand.decimalValue(), toUnit});
  if (expression->unit == toUnit) return operand;
  return orMismatch(convertedQuantity(*expression, toUnit));
}

namespace {

/// A unit as large as the expression, so that something can be counted in it: in "200 m".
TCUnit unitAsLargeAs(const UnitExpression& expression) {
  TCUnit::Record record;
  record.unitType = expression.unit.unitType();
  record.symbol = expression.unit.symbol();
  record.converter = {valueInBaseUnit(expression), Decimal(0)};
  return TCUnit::counted(std::move(record));
}

/// How many of `target` one of `unit` costs, from the value behind "at"; nothing for a rate between other units.
std::optional<Decimal> specifiedRate(const Token& rate, const TCUnit& unit, const TCUnit& target) {
  const auto inverse = [](const Decimal& value) {
    return value.isZero() ? std::optional<Decimal>() : std::optional(Decimal(1) / value);
  };
  if (rate.is(TokenType::number)) return rate.decimalValue();
  if (const std::optional<UnitRate> unitRate = rate.unitRateValue()) {
    if (!unitRate->ofUnit) return std::nullopt;
    if (isSameUnit(*unitRate->ofUnit, target) && isSameUnit(unitRate->perUnit, unit)) return unitRate->value;
    if (isSameUnit(*unitRate->ofUnit, unit) && isSameUnit(unitRate->perUnit, target)) return inverse(unitRate->value);
    return std::nullopt;
  }
  const std::optional<UnitExpression> price = rate.unitExpressionValue();
  if (!price) return std::nullopt;
  if (isSameUnit(price->unit, target)) return price->value;
  return isSameUnit(price->unit, unit) ? inverse(price->value) : std::nullopt;
}

}  // namespace

Token intoUnit(const ConverterOperands& operands) {
  const std::optional<TCUnit> toUnit = operands.converter.unitValue();
  return toUnit ? intoUnit(operands.operand, *toUnit) : Token();
}

Token intoUnitExpression(const ConverterOperands& operands) {
  const Token* target = converterOperandOf(operands.converter, TokenType::unitExpression);
  const std::optional<UnitExpression> toExpression = target != nullptr ? target->unitExpressionValue() : std::nullopt;
  if (!toExpression) return Token();
  const Token& operand = operands.operand;
  const std::optional<UnitExpression> expression = operand.unitExpressionValue();
  if (operand.is(TokenType::number) || (expression && expression->unit == toExpression->unit)) {
    return tokenOf({operand.decimalValue(), toExpression->unit});
  }
  Token counted = intoUnit(operand, unitAsLargeAs(*toExpression));
  if (!counted.hasDecimalValue()) return counted;
  return tokenOf({counted.decimalValue(), toExpression->unit});
}

Token intoUnitWithSpecifiedRate(const ConverterOperands& operands) {
  const std::optional<UnitExpression> expression = operands.operand.unitExpressionValue();
  const TokenListRef& parts = operands.converter.subtokens;
  const Token* target = parts ? parts->firstTokenOfType(TokenType::unit) : nullptr;
  const Token* rate = parts ? parts->getLastToken(/*ignoringWhitespace=*/true) : nullptr;
  const std::optional<TCUnit> toUnit = target != nullptr ? target->unitValue() : std::nullopt;
  if (!expression || !toUnit || rate == nullptr) return Token();
  if (!areConvertible(expression->unit, *toUnit)) return unitMismatch();
  const std::optional<Decimal> factor = specifiedRate(*rate, expression->unit, *toUnit);
  if (!factor) return errorToken(EvaluationError::UnsupportedRate);
  return tokenOf({expression->value * *factor, *toUnit});
}

}  // namespace tavrine::conversions
