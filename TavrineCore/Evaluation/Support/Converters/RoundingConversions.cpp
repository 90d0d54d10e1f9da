#include <algorithm>

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Evaluation/Support/Converters/RoundingHelper.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

Decimal RoundingHelper::round(const Decimal& value, RoundingType with) {
  return value.rounded(with.places_, with.mode_);
}

Token RoundingHelper::round(const Token& token, RoundingType with) {
  if (token.is(TokenType::percentage)) {
    return TokenFactory::percentageWith(round(token.decimalValue() * Decimal(100), with) / Decimal(100));
  }
  std::optional<Token> rounded = TokenFactory::tokenWith(round(token.decimalValue(), with), token);
  return rounded ? std::move(*rounded) : errorToken(EvaluationError::Other);
}

namespace conversions {

namespace {

/// As many as a decimal can show behind a whole part of some length.
constexpr std::int64_t kMostDecimalPlaces = 35;

}  // namespace

Token intoDpRoundedNumber(const ConverterOperands& operands) {
  const Token* places = converterOperandOf(operands.converter, TokenType::number);
  if (places == nullptr) return errorToken(EvaluationError::Other);
  const std::int64_t requested = places->decimalValue().rounded(0, RoundingMode::plain).intValue();
  const auto dp = static_cast<int>(std::clamp<std::int64_t>(requested, 0, kMostDecimalPlaces));
  return RoundingHelper::round(operands.operand, RoundingHelper::RoundingType::decimalPlaces(dp));
}

Token rounding(const ConverterOperands& operands) {
  return RoundingHelper::round(operands.operand, RoundingHelper::RoundingType::nearest());
}

Token roundingUp(const ConverterOperands& operands) {
  return RoundingHelper::round(operands.operand, RoundingHelper::RoundingType::up());
}

Token roundingDown(const ConverterOperands& operands) {
  return RoundingHelper::round(operands.operand, RoundingHelper::RoundingType::down());
}

}  // namespace conversions
}  // namespace tavrine
