#include "TavrineCore/Evaluation/Support/DurationReadings.h"

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

UnitExpression inSeconds(const Decimal& seconds) { return with(UnitIdentifier::seconds, seconds); }

Token tokenOf(const UnitExpression& expression) {
  return TokenFactory::unitExpressionWith(expression.value, expression.unit, /*prefersCompoundFormatting=*/true);
}

bool measuresTime(const TCUnit& unit) { return baseUnitOf(unit) == unitOf(UnitIdentifier::seconds); }

Token asUnitExpressionToken(const Timespan& timespan) { return tokenOf(unitExpressionValue(timespan)); }

Timespan summed(const Timespan& left, const Timespan& right, UnitSum operation) {
  const UnitExpression first = unitExpressionValue(left);
  const UnitExpression second = unitExpressionValue(right);
  const auto sum = operation == UnitSum::addition ? first + second : first - second;
  return sum ? timespanOf(*sum).value_or(Timespan{}) : Timespan{};
}

std::optional<Laptime> laptimeReadingOf(const Timespan& timespan) { return laptimeOf(unitExpressionValue(timespan)); }

Laptime laptimeReadingOf(const Frametime& frametime) {
  const Decimal seconds = Decimal(frametime.second) + Decimal(frametime.frame) / frametime.fps;
  return laptimeFrom(dateComponentsFrom(frametime.hour, frametime.minute, seconds));
}

std::optional<Laptime> laptimeReadingOf(const Token& token) {
  switch (token.type) {
    case TokenType::laptime:
      return token.laptimeValue();
    case TokenType::frametime: {
      const auto frametime = token.frametimeValue();
      return frametime ? std::optional(laptimeReadingOf(*frametime)) : std::nullopt;
    }
    case TokenType::timespan: {
      const auto timespan = token.timespanValue();
      return timespan ? laptimeReadingOf(*timespan) : std::nullopt;
    }
    case TokenType::unitExpression: {
      const auto expression = token.unitExpressionValue();
      return expression ? laptimeOf(*expression) : std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

Token laptimeTokenOf(const Decimal& seconds) {
  const auto laptime = laptimeOf(inSeconds(seconds));
  return laptime ? TokenFactory::laptimeWith(*laptime) : errorToken(EvaluationError::Infinity);
}

Token frametimeTokenOf(const Decimal& totalFrames, const Decimal& fps) {
  if (!laptimeOf(inSeconds(totalFrames / fps))) return errorToken(EvaluationError::Infinity);
  return TokenFactory::frametimeWith(frametimeFrom(totalFrames, fps));
}

}  // namespace tavrine
