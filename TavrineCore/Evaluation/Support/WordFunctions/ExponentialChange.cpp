#include "TavrineCore/Evaluation/Support/WordFunctions/ExponentialChange.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "Foundation/DecimalMath.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"

namespace tavrine {

namespace {

/// Total times above it are divided, and the interval with them.
constexpr int kLargestPlainTotalTime = 80;
constexpr int kDivisorOfLongTimes = 1000000;

Decimal secondsOrZero(const UnitExpression& duration) { return secondsOf(duration).value_or(Decimal()); }

/// One of the unit: the interval of "per month".
UnitExpression oneOf(const TCUnit& unit) { return {Decimal(1), unit}; }

/// What stands behind the quantities of a phrase.
struct Change {
  std::optional<Decimal> percentage;
  std::optional<UnitExpression> interval;
  std::optional<UnitExpression> totalTime;
};

/// A rate, a bare unit and a word ("monthly") tell the interval by themselves. Of two durations the one next to the
/// percentage and behind it is the interval: "for 2 years by 5% every 3 months", "5% every 3 months for 2 years";
/// without a percentage it is the first: "doubling every 3 hours for 2 days".
Change changeIn(std::span<const Token> arguments) {
  Change change;
  std::vector<UnitExpression> before;
  std::vector<UnitExpression> behind;
  for (const Token& argument : arguments) {
    const std::optional<UnitExpression> duration = durationOf(argument);
    if (isPercentageLike(argument) && !change.percentage) {
      change.percentage = decimalOf(argument);
      if (const auto rate = argument.percentageRateValue()) change.interval = oneOf(rate->perUnit);
    } else if (duration && isIntervalInWords(argument)) {
      change.interval = duration;
    } else if (duration) {
      (change.percentage ? behind : before).push_back(*duration);
    }
  }
  if (!change.percentage) std::swap(before, behind);
  const bool hasTwo = before.size() + behind.size() > 1;
  if (!change.interval && hasTwo && !behind.empty()) change.interval = behind.front();
  if (!before.empty()) {
    change.totalTime = before.front();
  } else if (!behind.empty()) {
    change.totalTime = behind.back();
  }
  return change;
}

}  // namespace

std::optional<ExponentialGrowthOrDecayFunctionParameters> ExponentialGrowthOrDecayFunctionParameters::parameters(
    std::span<const Token> arguments, const Decimal& rateInWords) {
  if (arguments.size() < 3) return std::nullopt;
  const std::optional<Decimal> initial = decimalOf(arguments[0]);
  Change change = changeIn(arguments.subspan(1));
  if (!initial || !change.totalTime) return std::nullopt;
  const UnitExpression& total = *change.totalTime;
  return ExponentialGrowthOrDecayFunctionParameters{*initial, change.percentage.value_or(rateInWords),
                                                    secondsOrZero(total),
                                                    secondsOrZero(change.interval.value_or(oneOf(total.unit)))};
}

Decimal ExponentialGrowthOrDecayFunctionParameters::quantityAfterGrowth() const {
  return initialQuantity * TCDecimalPower(Decimal(1) + growthRate, totalTime / changeEvery);
}

Decimal ExponentialGrowthOrDecayFunctionParameters::quantityAfterDecay() const {
  return initialQuantity * TCDecimalPower(Decimal(1) - growthRate, totalTime / changeEvery);
}

std::optional<ExponentialTimeRequiredFunctionParameters> ExponentialTimeRequiredFunctionParameters::parameters(
    std::span<const Token> arguments) {
  std::optional<TCUnit> asked;
  if (!arguments.empty() && arguments[0].is(TokenType::unit)) {
    asked = arguments[0].unitValue();
    arguments = arguments.subspan(1);
  }
  const auto percentage = std::find_if(arguments.begin(), arguments.end(), isPercentageLike);
  const auto quantities = static_cast<std::size_t>(percentage - arguments.begin());
  if (percentage == arguments.end() || quantities > 2) return std::nullopt;
  const std::optional<Decimal> start = quantities > 0 ? decimalOf(arguments[0]) : Decimal(1);
  if (!start) return std::nullopt;
  const std::optional<Decimal> end =
      quantities > 1 ? valueInUnitOf(arguments[0], arguments[1]) : std::optional(*start * Decimal(2));
  const Change change = changeIn(arguments.subspan(quantities));
  const std::optional<UnitExpression> interval = change.interval ? change.interval : change.totalTime;
  const std::optional<Decimal> every = interval ? secondsOf(*interval) : std::nullopt;
  if (!end || !change.percentage || !every) return std::nullopt;
  return ExponentialTimeRequiredFunctionParameters{*start, *end, *every, *change.percentage,
                                                   asked.value_or(interval->unit)};
}

std::optional<Decimal> ExponentialTimeRequiredFunctionParameters::timeRequired() const {
  const Decimal zero;
  const Decimal one(1);
  const Decimal base = one + (endQuantity < startQuantity ? -percentage : percentage);
  const Decimal ratio = endQuantity / startQuantity;
  if (ratio == one) return zero;
  // Only positive numbers have logarithms, and nothing grows by 0%.
  if (ratio.isNaN() || ratio <= zero || base <= zero || base == one) return std::nullopt;
  const Decimal time = DDDecimalNthLog(ratio, base) * changeEvery;
  return time < zero ? std::nullopt : std::optional(time);
}

Decimal ExponentialGrowthCalculator::growthNeededFor(const Decimal& startQuantity, const Decimal& finalQuantity,
                                                     Decimal interval, Decimal totalTime) {
  if (totalTime > Decimal(kLargestPlainTotalTime)) {
    interval = interval / Decimal(kDivisorOfLongTimes);
    totalTime = totalTime / Decimal(kDivisorOfLongTimes);
  }
  const Decimal growth = TCDecimalPower(finalQuantity / startQuantity, interval / totalTime) - Decimal(1);
  return growth.isNaN() ? Decimal() : growth;
}

}  // namespace tavrine
