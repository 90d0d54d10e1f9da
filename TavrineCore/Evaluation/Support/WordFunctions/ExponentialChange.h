#pragma once

#include <optional>
#include <span>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// Quantities that grow or shrink by a percentage, again and again.
namespace tavrine {

/// "$5,000 growing 5% per month for 2 years".
struct ExponentialGrowthOrDecayFunctionParameters {
  Decimal initialQuantity;
  /// The change at each step, as a fraction.
  Decimal growthRate;
  /// In seconds, like the next.
  Decimal totalTime;
  Decimal changeEvery;

  /// Reads the initial quantity, then the percentage, and durations. The percentage of a rate tells its own interval;
  /// a bare percentage has it from a second duration ("5% every 3 months for 2 years") or counts once for each unit of
  /// the total time ("5% for 2 years"). A time that can't be told in seconds is 0. `rateInWords` is the rate of phrases
  /// without a percentage: 1 for "doubling every 3 hours".
  [[nodiscard]] static std::optional<ExponentialGrowthOrDecayFunctionParameters> parameters(
      std::span<const Token> arguments, const Decimal& rateInWords);

  /// initial × (1 + rate)^(total ÷ every).
  [[nodiscard]] Decimal quantityAfterGrowth() const;
  /// The same with the rate negated.
  [[nodiscard]] Decimal quantityAfterDecay() const;

  friend bool operator==(const ExponentialGrowthOrDecayFunctionParameters&,
                         const ExponentialGrowthOrDecayFunctionParameters&) = default;
};

/// "time to grow from 100 to 200 at 5% per year".
struct ExponentialTimeRequiredFunctionParameters {
  Decimal startQuantity;
  Decimal endQuantity;
  /// In seconds.
  Decimal changeEvery;
  /// A fraction.
  Decimal percentage;
  /// What the answer is told in.
  TCUnit inputTimeUnit;

  /// Reads start and end, then a rate, or a percentage and its interval. Without an end it is twice the start, without
  /// a start that is 1: "time to double $100 at 5% per year". A unit before them is what the answer is asked in.
  [[nodiscard]] static std::optional<ExponentialTimeRequiredFunctionParameters> parameters(
      std::span<const Token> arguments);

  /// How long the change takes, in seconds. What shrinks takes the percentage as a loss. Nothing where no time leads
  /// from the one to the other.
  [[nodiscard]] std::optional<Decimal> timeRequired() const;

  friend bool operator==(const ExponentialTimeRequiredFunctionParameters&,
                         const ExponentialTimeRequiredFunctionParameters&) = default;
};

struct ExponentialGrowthCalculator {
  /// The growth at each interval, as a fraction, that leads from the one quantity to the other:
  /// (final ÷ start)^(interval ÷ total) − 1, and 0 where there is none. Both times are in one unit.
  [[nodiscard]] static Decimal growthNeededFor(const Decimal& startQuantity, const Decimal& finalQuantity,
                                               Decimal interval, Decimal totalTime);
};

}  // namespace tavrine
