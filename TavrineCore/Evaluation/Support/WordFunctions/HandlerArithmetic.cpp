#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine {

namespace {

/// Fractions calculate with plain numbers only: beside anything else, another fraction too, a third is 0.333...
bool mustBeNumber(const Token& fraction, const Token& other) {
  return fraction.is(TokenType::fraction) && !other.is(TokenType::number);
}

}  // namespace

Token operated(const Token& left, TokenSubType operatorSubType, const Token& right, std::string_view operatorText) {
  if (left.is(TokenType::error)) return left;
  if (right.is(TokenType::error)) return right;
  if (mustBeNumber(left, right)) return operated(asNumber(left), operatorSubType, right, operatorText);
  if (mustBeNumber(right, left)) return operated(left, operatorSubType, asNumber(right), operatorText);
  return evaluatedPair(left, right, operatorToken(operatorSubType, operatorText));
}

Token sum(const Token& left, const Token& right) { return operated(left, TokenSubType::additionOperator, right); }
Token difference(const Token& left, const Token& right) {
  return operated(left, TokenSubType::subtractionOperator, right);
}
Token product(const Token& left, const Token& right) {
  return operated(left, TokenSubType::multiplicationOperator, right);
}
Token quotient(const Token& left, const Token& right) { return operated(left, TokenSubType::divisionOperator, right); }

Token converted(const Token& token, const Token& converter) {
  if (token.is(TokenType::error)) return token;
  return TokenConverterFactory::converted(token, converter).value_or(token);
}

Token asNumber(const Token& token) { return converted(token, TokenFactory::converterToNumber()); }
Token asPercentage(const Token& token) { return converted(token, TokenFactory::converterToPercentage()); }
Token asMultiplier(const Token& token) { return converted(token, TokenFactory::converterToMultiplier()); }

Token convertedInto(const Token& token, const Token& target) {
  if (target.is(TokenType::unit)) return converted(token, TokenFactory::converterToUnitWith(target.metadata));
  const EvaluationResult result = target.evaluationResult();
  if (const UnitRate* rate = result.rateValue()) return converted(token, TokenFactory::converterToRate(*rate));
  return token;
}

std::optional<EvaluationResult> resultOf(const Token& token) {
  EvaluationResult result = token.evaluationResult();
  if (result.is(EvaluationResultCase::none)) return std::nullopt;
  return result;
}

EvaluationResult resultWith(const Decimal& value, const Token& matchingTypeOf) {
  const EvaluationResult model = matchingTypeOf.evaluationResult();
  switch (model.kind()) {
    case EvaluationResultCase::percentage:
      return EvaluationResult::percentage(Percentage{value});
    case EvaluationResultCase::unitExpression: {
      const UnitExpression& expression = *model.as<EvaluationResultCase::unitExpression>();
      return EvaluationResult::unitExpression({value, expression.unit, expression.prefersCompoundUnitFormatting});
    }
    case EvaluationResultCase::timespan: {
      const UnitExpression seconds{value, unitOf(UnitIdentifier::seconds), true};
      if (const std::optional<Timespan> span = timespanOf(seconds)) return EvaluationResult::timespan(*span);

      return EvaluationResult::unitExpression(seconds);
    }
    default:
      return EvaluationResult::decimal(value);
  }
}

std::optional<Decimal> decimalOf(const Token& token) {
  if (!token.hasDecimalValue()) return std::nullopt;
  return token.decimalValue();
}

}  // namespace tavrine
