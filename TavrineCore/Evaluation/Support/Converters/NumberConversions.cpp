#include <optional>

#include "Foundation/Calendar.h"
#include "Foundation/DateComponents.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::conversions {

namespace {

/// "3 weeks" is 3; nothing where the span has several components or none.
Token numberOfTimespan(const Token& token) {
  const std::optional<DateComponents> parts = token.dateComponentsValue();
  if (!parts) return Token();
  std::optional<std::int64_t> only;
  for (const auto& amount : {parts->year, parts->month, parts->weekOfYear, parts->day, parts->weekday, parts->hour,
                             parts->minute, parts->second, parts->nanosecond}) {
    if (!amount) continue;
    if (only) return Token();
    only = amount;
  }
  return only ? TokenFactory::numberWith(Decimal(*only)) : Token();
}

/// A date that was written as a year alone is that number; any other is worth none.
Token numberOfDate(const Token& token) {
  const auto datestamp = token.datestampValue();
  const CalendarComponentSet yearAlone{Calendar::Component::year};
  if (!datestamp || calendarComponentsRepresentedBy(datestamp->type) != yearAlone) return Token();
  const Calendar calendar = Calendar::current().in(datestamp->timezone);
  return TokenFactory::numberWith(Decimal(calendar.component(Calendar::Component::year, datestamp->date)));
}

Token inBase(const ConverterOperands& operands, TokenType base) {
  return *tokenInBase(base, unsignedWhole(operands.operand.decimalValue()));
}

}  // namespace

Token intoNumber(const ConverterOperands& operands) {
  if (operands.operand.is(TokenType::datestamp)) return numberOfDate(operands.operand);
  if (operands.operand.is(TokenType::timespan)) return numberOfTimespan(operands.operand);
  return TokenFactory::numberWith(operands.operand.decimalValue());
}

Token intoFraction(const ConverterOperands& operands) {
  Fraction fraction{operands.operand.decimalValue(), std::nullopt};
  if (operands.operand.is(TokenType::unitExpression)) fraction.unitValue = operands.operand.unitValue();
  return TokenFactory::fractionWith(fraction);
}

Token intoScientificNotation(const ConverterOperands& operands) {
  return TokenFactory::scientificNotationWith(operands.operand.decimalValue());
}

Token intoPercent(const ConverterOperands& operands) {
  return TokenFactory::percentageWith(operands.operand.decimalValue());
}

Token applyingPercent(const ConverterOperands& operands) {
  return TokenFactory::percentageWith(operands.operand.decimalValue() / Decimal(100));
}

Token intoMultiplier(const ConverterOperands& operands) {
  return TokenFactory::multiplierWith(operands.operand.decimalValue());
}

Token intoBinary(const ConverterOperands& operands) { return inBase(operands, TokenType::binaryNumber); }

Token intoOctal(const ConverterOperands& operands) { return inBase(operands, TokenType::octalNumber); }

Token intoHex(const ConverterOperands& operands) { return inBase(operands, TokenType::hexadecimalNumber); }

}  // namespace tavrine::conversions
