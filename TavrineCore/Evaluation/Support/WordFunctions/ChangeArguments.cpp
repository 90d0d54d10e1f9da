#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"

#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

bool isPercentageLike(const Token& token) {
  return token.is(TokenType::percentage) || token.is(TokenType::fraction) || token.percentageRateValue().has_value();
}

std::optional<UnitExpression> durationOf(const Token& token) {
  std::optional<UnitExpression> duration = token.unitExpressionValue();
  if (token.is(TokenType::unit)) {
    if (const std::optional<TCUnit> unit = token.unitValue()) duration = UnitExpression{Decimal(1), *unit};
  }
  if (!duration || duration->unit.unitType() != UnitType::duration) return std::nullopt;
  return duration;
}

std::optional<Decimal> secondsOf(const UnitExpression& duration) {
  const std::optional<UnitExpression> seconds = convertedTo(duration, UnitIdentifier::seconds);
  return seconds ? std::optional(seconds->value) : std::nullopt;
}

std::optional<Decimal> valueInUnitOf(const Token& model, const Token& token) {
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  const std::optional<UnitExpression> modelExpression = model.unitExpressionValue();
  if (!expression || !modelExpression) return decimalOf(token);
  const std::optional<UnitExpression> converted = convertedTo(*expression, modelExpression->unit);
  return converted ? std::optional(converted->value) : std::nullopt;
}

}  // namespace tavrine
