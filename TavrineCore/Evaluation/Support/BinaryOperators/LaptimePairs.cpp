#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/DurationReadings.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

/// Stopwatch readings and time codes among themselves, with numbers, and with durations that are read like them.
namespace tavrine::pairs {

namespace {

using Sub = TokenSubType;

/// What the operation makes of the seconds of two readings, or of the frames of two time codes.
template <class MakeToken>
Answer ofTotals(const Decimal& first, const Decimal& second, Sub operation, const MakeToken& tokenOfTotal) {
  switch (operation) {
    case Sub::additionOperator:
      return tokenOfTotal(first + second);
    case Sub::subtractionOperator:
      return tokenOfTotal(first - second);
    case Sub::reverseSubtractionOperator:
      return tokenOfTotal(second - first);
    case Sub::divisionOperator:
      if (second.isZero()) return errorToken(EvaluationError::DivideByZero);
      return TokenFactory::numberWith(first / second);
    default:
      return std::nullopt;
  }
}

/// The scaled total; nothing where the operation leaves the operand as it is.
std::optional<Decimal> scaled(const Decimal& total, const Decimal& number, Sub operation, bool isNumberFirst) {
  if (operation == Sub::multiplicationOperator) return total * number;
  if (operation == Sub::divisionOperator && !isNumberFirst) return total / number;
  return std::nullopt;
}

bool dividesWithZero(const PairOperands& operands, const Decimal& number) {
  return operands.operation() == Sub::divisionOperator && number.isZero();
}

Token framesCounted(const Frametime& frametime, const Decimal& frames) {
  return frametimeTokenOf(frames.rounded(0, RoundingMode::plain), frametime.fps);
}

/// "01:00:00:00 + 12 frames"
Answer frametimeAndFrames(const Frametime& frametime, const Decimal& frames, const PairOperands& operands) {
  const Decimal counted = frames.rounded(0, RoundingMode::plain);
  if (operands.operation() == Sub::additionOperator)
    return framesCounted(frametime, totalFramesOf(frametime) + counted);
  const bool isFrametimeFirst = operands.firstIs(TokenType::frametime);
  if (operands.operation() != Sub::subtractionOperator || !isFrametimeFirst) return Token();
  return framesCounted(frametime, totalFramesOf(frametime) - counted);
}

}  // namespace

Answer laptimesPair(const PairOperands& operands) {
  const auto first = operands.firstToken.laptimeValue();
  const auto second = operands.secondToken.laptimeValue();
  if (!first || !second) return std::nullopt;
  return ofTotals(totalSecondsOf(*first), totalSecondsOf(*second), operands.operation(), laptimeTokenOf);
}

Answer frametimesPair(const PairOperands& operands) {
  const auto first = operands.firstToken.frametimeValue();
  const auto second = operands.secondToken.frametimeValue();
  if (!first || !second) return std::nullopt;
  const auto both = standardizedByFPS({*first, *second});
  return ofTotals(totalFramesOf(both[0]), totalFramesOf(both[1]), operands.operation(),
                  [&](const Decimal& frames) { return frametimeTokenOf(frames, both[0].fps); });
}

Answer decimalAndLaptimePair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::laptime);
  const Decimal number = operands.operandOf(TokenType::number).decimalValue();
  const auto laptime = token.laptimeValue();
  if (!laptime) return std::nullopt;
  if (dividesWithZero(operands, number)) return errorToken(EvaluationError::DivideByZero);
  const auto seconds =
      scaled(totalSecondsOf(*laptime), number, operands.operation(), operands.firstIs(TokenType::number));
  return seconds ? laptimeTokenOf(*seconds) : token;
}

Answer decimalAndFrametimePair(const PairOperands& operands) {
  const Token& token = operands.operandOf(TokenType::frametime);
  const Decimal number = operands.operandOf(TokenType::number).decimalValue();
  const auto frametime = token.frametimeValue();
  if (!frametime) return std::nullopt;
  if (dividesWithZero(operands, number)) return errorToken(EvaluationError::DivideByZero);
  const auto frames =
      scaled(totalFramesOf(*frametime), number, operands.operation(), operands.firstIs(TokenType::number));
  return frames ? framesCounted(*frametime, *frames) : token;
}

Answer durationAndLaptimePair(const PairOperands& operands) {
  const Token& duration = operands.operandBesides(TokenType::laptime);
  const auto reading = laptimeReadingOf(duration);
  if (!reading) return Token();
  return handedOver(laptimesPair, operands, duration.type, TokenFactory::laptimeWith(*reading));
}

Answer durationAndFrametimePair(const PairOperands& operands) {
  const Token& duration = operands.operandBesides(TokenType::frametime);
  const auto frametime = operands.operandOf(TokenType::frametime).frametimeValue();
  const auto reading = laptimeReadingOf(duration);
  if (!frametime || !reading) return Token();
  const Token timeCode = TokenFactory::frametimeWith(frametimeValueAt(frametime->fps, *reading));
  return handedOver(frametimesPair, operands, duration.type, timeCode);
}

Answer unitExpressionAndFrametimesPair(const PairOperands& operands) {
  const UnitExpression expression = quantityOf(operands.operandOf(TokenType::unitExpression));
  const auto frametime = operands.operandOf(TokenType::frametime).frametimeValue();
  if (!frametime) return Token();
  if (expression.unit.unitType() == UnitType::frames) {
    return frametimeAndFrames(*frametime, expression.value, operands);
  }
  return measuresTime(expression.unit) ? durationAndFrametimePair(operands) : Token();
}

}  // namespace tavrine::pairs
