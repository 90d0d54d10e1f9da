// Quantities in the forms that people give them: feet and inches, degrees and minutes, notes.

#include <cstdint>
#include <optional>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/MidiNumber.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::conversions {

namespace {

/// The operand in the larger unit of a pair; a formatter writes the rest in the smaller one.
Token intoCompound(const Token& operand, UnitIdentifier largerUnit) {
  const std::optional<UnitExpression> expression = operand.unitExpressionValue();
  const TCUnit& unit = unitOf(largerUnit);
  if (!expression || expression->unit.unitType() != unit.unitType()) return Token();
  const std::optional<UnitExpression> converted = to(*expression, unit);
  if (!converted) return Token();
  return TokenFactory::unitExpressionWith(converted->value, unit, /*prefersCompoundFormatting=*/true);
}

/// The key nearest to a frequency, or to a duration of one swing.
std::optional<MidiNumber> keyOfFrequency(const Token& operand) {
  const std::optional<UnitExpression> expression = operand.unitExpressionValue();
  if (!expression) return std::nullopt;
  const std::optional<UnitExpression> frequency = to(*expression, unitOf(UnitIdentifier::hertz));
  return frequency ? MidiNumber::fromFrequency(frequency->value) : std::nullopt;
}

std::optional<MidiNumber> keyOfNumber(const Decimal& number) {
  const Decimal key = number.rounded(0, RoundingMode::plain);
  if (key < Decimal(MidiNumber::minimumMidiNumber) || Decimal(MidiNumber::maximumMidiNumber) < key) return std::nullopt;
  return MidiNumber{static_cast<int>(key.intValue())};
}

}  // namespace

Token intoFeetAndInches(const ConverterOperands& operands) {
  return intoCompound(operands.operand, UnitIdentifier::feet);
}

Token intoPoundsAndOunces(const ConverterOperands& operands) {
  return intoCompound(operands.operand, UnitIdentifier::pounds);
}

Token intoDMS(const ConverterOperands& operands) {
  if (operands.operand.is(TokenType::number)) {
    return TokenFactory::dmsWith(DegreesMinutesSeconds::fromDecimal(operands.operand.decimalValue()));
  }
  const std::optional<UnitExpression> expression = operands.operand.unitExpressionValue();
  const auto degrees = expression ? convertedTo(*expression, UnitIdentifier::degrees) : std::nullopt;
  return degrees ? TokenFactory::dmsWith(DegreesMinutesSeconds::fromDecimal(degrees->value)) : Token();
}

Token intoMidi(const ConverterOperands& operands) {
  const std::optional<Pitch> pitch = operands.operand.pitchValue();
  const std::optional<MidiNumber> key =
      pitch ? MidiNumber::fromFrequency(Pitch::frequencyFor(*pitch)) : keyOfFrequency(operands.operand);
  return key ? TokenFactory::numberWith(Decimal(key->number)) : Token();
}

Token intoPitch(const ConverterOperands& operands) {
  const bool isKey = operands.operand.is(TokenType::number);
  const std::optional<MidiNumber> key =
      isKey ? keyOfNumber(operands.operand.decimalValue()) : keyOfFrequency(operands.operand);
  const std::optional<std::string> notation = key ? key->notation() : std::nullopt;
  const std::optional<Pitch> pitch = notation ? Pitch::fromNotation(*notation) : std::nullopt;
  return pitch ? TokenFactory::pitchWith(*pitch) : Token();
}

}  // namespace tavrine::conversions
