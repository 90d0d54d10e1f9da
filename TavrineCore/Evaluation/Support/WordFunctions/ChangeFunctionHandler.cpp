// Growth and decay of anything: how much it comes to, how fast it must be, how long it takes.

#include <optional>
#include <span>
#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ExponentialChange.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/LinearGrowth.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{exponentialGrowth, exponentialDecay, timeRequiredForExponentialChange,
                                         growthOverExponentialChange, timeRequiredForLinearChange};

Answer quantityAfter(Arguments arguments, bool decays) {
  // "doubling" and "halving" need no percentage.
  const Decimal rateInWords = decays ? Decimal(1) / Decimal(2) : Decimal(1);
  const auto told = ExponentialGrowthOrDecayFunctionParameters::parameters(arguments, rateInWords);
  if (!told) return std::nullopt;
  return resultWith(decays ? told->quantityAfterDecay() : told->quantityAfterGrowth(), arguments[0]);
}

Answer timeOfExponentialChange(Arguments arguments) {
  const auto told = ExponentialTimeRequiredFunctionParameters::parameters(arguments);
  const std::optional<Decimal> seconds = told ? told->timeRequired() : std::nullopt;
  if (!seconds) return std::nullopt;
  const auto time = convertedTo(UnitExpression{*seconds, unitOf(UnitIdentifier::seconds)}, told->inputTimeUnit);
  if (!time) return std::nullopt;
  return EvaluationResult::unitExpression(*time);
}

/// Two quantities, and behind them the interval and the total time; a unit or a word alone ("per month", "monthly") is
/// the interval wherever it stands. Without an interval the growth is asked for one unit of the total time.
Answer growthNeeded(Arguments arguments) {
  std::vector<Token> others;
  std::optional<UnitExpression> interval;
  for (const Token& argument : arguments) {
    if (isIntervalInWords(argument)) {
      interval = durationOf(argument);
    } else {
      others.push_back(argument);
    }
  }
  if (others.size() < 3) return std::nullopt;
  const std::optional<Decimal> start = decimalOf(others[0]);
  const std::optional<Decimal> end = valueInUnitOf(others[0], others[1]);
  const std::optional<UnitExpression> total = durationOf(others.back());
  if (!interval && others.size() > 3) interval = durationOf(others[2]);
  if (!start || !end || !total) return std::nullopt;
  const auto step = convertedTo(interval.value_or(UnitExpression{Decimal(1), total->unit}), total->unit);
  if (!step) return std::nullopt;
  return EvaluationResult::percentage(
      {ExponentialGrowthCalculator::growthNeededFor(*start, *end, step->value, total->value)});
}

Answer timeOfLinearChange(Arguments arguments) {
  const auto told = LinearGrowthParameterPack::parameters(arguments);
  const std::optional<UnitExpression> time = told ? LinearGrowthCalculator{*told}.timeRequired() : std::nullopt;
  if (!time) return std::nullopt;
  return EvaluationResult::unitExpression(*time);
}

Answer evaluateChangeFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  switch (identifier) {
    case exponentialGrowth:
    case exponentialDecay:
      return quantityAfter(arguments, identifier == exponentialDecay);
    case timeRequiredForExponentialChange:
      return timeOfExponentialChange(arguments);
    case growthOverExponentialChange:
      return growthNeeded(arguments);
    case timeRequiredForLinearChange:
      return timeOfLinearChange(arguments);
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kChangeFunctionHandler{kHandled, evaluateChangeFunction};

}  // namespace tavrine
