#include "TavrineCore/Evaluation/Support/Functions/FunctionExpressionEvaluator.h"

#include <string>
#include <string_view>
#include <utility>

#include "Foundation/DecimalMath.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Parsing/Helpers/Scalars.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

namespace {

using foundation::MathFunction;
using foundation::MathFunctionsCalculator;

using MathFunctionSet = EnumSet<MathFunction, foundation::kMathFunctionCount>;

/// "arcsin" is another spelling of "asin".
constexpr std::string_view kArcPrefix = "arc";

constexpr MathFunctionSet kNormalTrigonometryFunctions{MathFunction::sin,   MathFunction::sinh,  MathFunction::cos,
                                                       MathFunction::cosh,  MathFunction::tan,   MathFunction::tanh,
                                                       MathFunction::asinh, MathFunction::acosh, MathFunction::atanh};
constexpr MathFunctionSet kRoundingFunctions{MathFunction::ceil, MathFunction::floor, MathFunction::round,
                                             MathFunction::bankersRound};
constexpr MathFunctionSet kInverseTrigonometryFunctions{MathFunction::asin, MathFunction::acos, MathFunction::atan};
constexpr MathFunctionSet kLogarithms{MathFunction::log, MathFunction::ln, MathFunction::log10, MathFunction::log2};

/// Hides the noise of floating point: sin(π) is 0.
constexpr int kAngleDecimalPlaces = 15;

Decimal radiansFromDegrees(const Decimal& degrees) { return degrees * foundation::kPi / Decimal(180); }
Decimal degreesFromRadians(const Decimal& radians) { return radians * Decimal(180) / foundation::kPi; }
Decimal withoutNoise(const Decimal& value) { return value.rounded(kAngleDecimalPlaces, RoundingMode::plain); }

/// The unit whose square or cube is the unit; absent where there is none.
using RootUnit = std::optional<TCUnit> (*)(const TCUnit& unit);

std::string canonicalName(std::string_view typed) {
  const bool isArc = typed.starts_with(kArcPrefix);
  std::string name = lowercased(isArc ? typed.substr(kArcPrefix.size()) : typed);
  if (isArc) name.insert(name.begin(), 'a');
  return name;
}

/// "12 k", where the host has a function "k" that the engine doesn't know: the value in thousands.
std::optional<Token> scaled(std::string_view name, const Token& argument) {
  if (name.empty()) return std::nullopt;
  const std::string_view scalar = name.substr(name.size() - 1);
  if (!Scalars::isValid(scalar)) return std::nullopt;
  return evaluatedPair(TokenFactory::numberWith(Decimal(1), std::string(scalar)), argument,
                       operatorToken(TokenSubType::multiplicationOperator, "*"));
}

/// Whether the function has no value there, and why.
std::optional<EvaluationError> domainError(MathFunction function, const Decimal& value) {
  if (function == MathFunction::sqrt && value < Decimal(0)) return EvaluationError::ImaginaryNumber;
  if (kLogarithms.contains(function) && !(Decimal(0) < value)) return EvaluationError::Infinity;
  return std::nullopt;
}

Token root(const Decimal& value, const Token& argument, RootUnit rootUnit) {
  if (!argument.is(TokenType::unitExpression)) return TokenFactory::numberWith(value);
  const std::optional<TCUnit> unit = argument.unitValue();
  const std::optional<TCUnit> ofResult = unit ? rootUnit(*unit) : std::nullopt;
  if (!ofResult) return errorToken(EvaluationError::UnsupportedUnitMultiplication);
  return TokenFactory::unitExpressionWith(value, *ofResult);
}

/// Rounding keeps the unit, and what the value is counted per.
Token rounded(const Decimal& value, const Token& argument) {
  if (argument.is(TokenType::rate) || argument.is(TokenType::unitExpression)) {
    if (std::optional<Token> token = TokenFactory::tokenWith(value, argument)) return *std::move(token);
  }
  return TokenFactory::numberWith(value);
}

std::optional<Token> applied(MathFunction function, Decimal value, const Token& argument) {
  const std::optional<TCUnit> unit =
      argument.is(TokenType::unitExpression) ? argument.unitValue() : std::optional<TCUnit>();
  bool isInDegrees = unit && unit->identifier() == UnitIdentifier::degrees;
  if (isInDegrees) {
    if (kNormalTrigonometryFunctions.contains(function)) value = radiansFromDegrees(value);
  } else if (function == MathFunction::sind || function == MathFunction::cosd) {
    value = radiansFromDegrees(value);
    isInDegrees = true;
  }

  const std::optional<Decimal> result = MathFunctionsCalculator::evaluate(function, value);
  if (!result) return errorToken(EvaluationError::Other);

  if (kRoundingFunctions.contains(function)) return rounded(*result, argument);
  if (function == MathFunction::sqrt) return root(*result, argument, UnitRelations::squareRootUnitFor);
  if (function == MathFunction::cbrt) return root(*result, argument, UnitRelations::cubeRootUnitFor);
  if (kInverseTrigonometryFunctions.contains(function)) {
    if (!isInDegrees) return TokenFactory::unitExpressionWith(*result, unitOf(UnitIdentifier::radians));
    return TokenFactory::unitExpressionWith(withoutNoise(degreesFromRadians(*result)), unitOf(UnitIdentifier::degrees));
  }
  if (kNormalTrigonometryFunctions.contains(function)) return TokenFactory::numberWith(withoutNoise(*result));
  return TokenFactory::numberWith(*result);
}

}  // namespace

std::optional<Token> FunctionExpressionEvaluator::evaluateFunction(const Token& functionExpressionToken) {
  if (!functionExpressionToken.is(TokenType::functionExpression) || !functionExpressionToken.subtokens) {
    return std::nullopt;
  }
  const TokenList& parts = *functionExpressionToken.subtokens;
  const Token* name = parts.first();
  if (name == nullptr || !name->is(TokenType::functionName)) return std::nullopt;
  const Token* argument = parts.lastValidAnswerToken();
  if (argument == nullptr) return std::nullopt;
  if (argument->is(TokenType::error)) return *argument;

  const std::optional<MathFunction> function = foundation::mathFunctionFromRawValue(canonicalName(name->stringValue));
  if (!function) return scaled(name->stringValue, *argument);

  if (*function == MathFunction::assert_) {
    return argument->is(TokenType::boolean) ? *argument : errorToken(EvaluationError::Other);
  }
  const Decimal value = argument->hasDecimalValue() ? argument->decimalValue() : Decimal(0);
  if (*function == MathFunction::fromunix) return conversions::dateOfUnixTime(value);
  if (const std::optional<EvaluationError> error = domainError(*function, value)) return errorToken(*error);
  return applied(*function, value, *argument);
}

}  // namespace tavrine
