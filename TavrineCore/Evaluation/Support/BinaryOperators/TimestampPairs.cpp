#include "Foundation/Calendar.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

/// Moments that are told as seconds since 1970.
namespace tavrine::pairs {

namespace {

CalendarEnvironment environmentOf(const Token& timestamp) {
  const auto* metadata = timestamp.metadataAs<TimestampTokenMetadata>();
  return metadata != nullptr ? metadata->environment : CalendarEnvironment(Calendar::current());
}

Token asSeconds(const Token& timestamp) { return tokenOf(inSeconds(timestamp.decimalValue())); }

}  // namespace

Answer timestampsPair(const PairOperands& operands) {
  return unitExpressionsPair({asSeconds(operands.firstToken), asSeconds(operands.secondToken), operands.operatorToken});
}

Answer decimalAndTimestampPair(const PairOperands& operands) {
  Answer result =
      calculated(operands.firstToken.decimalValue(), operands.secondToken.decimalValue(), operands.operatorToken);
  if (!result || !result->is(TokenType::number) || result->errorValue()) return result;
  return TokenFactory::timestampWith(result->decimalValue(),
                                     environmentOf(operands.operandOf(TokenType::unixTimestamp)));
}

Answer unitExpressionAndTimestampPair(const PairOperands& operands) {
  const Token& timestamp = operands.operandOf(TokenType::unixTimestamp);
  // In seconds from the start: a moment counted in hours has no exact value.
  const auto seconds = convertedTo(quantityOf(operands.operandOf(TokenType::unitExpression)), UnitIdentifier::seconds);
  if (!seconds) return errorToken(EvaluationError::UnitMismatch);
  const Token moment = asSeconds(timestamp);
  const Token duration = tokenOf(*seconds);
  const bool isMomentFirst = operands.firstIs(TokenType::unixTimestamp);
  Answer result = unitExpressionsPair(
      {isMomentFirst ? moment : duration, isMomentFirst ? duration : moment, operands.operatorToken});
  if (!result || !result->is(TokenType::unitExpression)) return result;
  return TokenFactory::timestampWith(result->decimalValue(), environmentOf(timestamp));
}

Answer timespanAndTimestampPair(const PairOperands& operands) {
  const Token& timestamp = operands.operandOf(TokenType::unixTimestamp);
  const CalendarEnvironment environment = environmentOf(timestamp);
  const Datestamp moment{Date(timestamp.decimalValue().doubleValue()), DatestampType::unixTimestamp,
                         environment.calendar().timeZone()};
  const Answer result = datestampAndTimespanPair({TokenFactory::datestampWith(moment, environment),
                                                  operands.operandOf(TokenType::timespan), operands.operatorToken});
  const auto date = result ? result->datestampValue() : std::nullopt;
  if (!date) return result;
  return TokenFactory::timestampWith(Decimal::fromDouble(date->date.timeIntervalSince1970()), environment);
}

}  // namespace tavrine::pairs
