#pragma once

#include <optional>
#include <span>
#include <variant>
#include <vector>

#include "Foundation/Date.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// What a phrase about the calendar asked for, and between which dates: "weeks until christmas" wants weeks, "how long
/// until christmas" a duration of months, weeks, days and what is left.
struct CalendarFunctionOutputSpecifier {
  struct TimespanReturnType {};
  using ReturnType = std::variant<TCUnit, TimespanReturnType>;

  ReturnType returnType;
  /// Dates and stretches of days, in the order of the phrase.
  std::vector<Token> dateParameters;

  /// At most one unit, and at least one date; nothing for arguments that are anything else.
  [[nodiscard]] static std::optional<CalendarFunctionOutputSpecifier> parameters(std::span<const Token> arguments);

  /// What lies between the moments, as it was asked for. Nothing in a unit that counts no part of a date.
  [[nodiscard]] std::optional<EvaluationResult> intervalBetween(const CalendarEnvironment& environment, Date from,
                                                                Date to, bool roundToWholeUnit) const;
};

}  // namespace tavrine
