#include "TavrineCore/Evaluation/Support/WordFunctions/CalendarFunctionOutputSpecifier.h"

#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"

namespace tavrine {

std::optional<CalendarFunctionOutputSpecifier> CalendarFunctionOutputSpecifier::parameters(
    std::span<const Token> arguments) {
  CalendarFunctionOutputSpecifier specifier{TimespanReturnType{}, {}};
  for (const Token& argument : arguments) {
    if (argument.is(TokenType::unit)) {
      const auto unit = argument.unitValue();
      if (!unit || std::holds_alternative<TCUnit>(specifier.returnType)) return std::nullopt;
      specifier.returnType = *unit;
    } else if (argument.datestampValue() || argument.datespanValue()) {
      specifier.dateParameters.push_back(argument);
    } else {
      return std::nullopt;
    }
  }
  if (specifier.dateParameters.empty()) return std::nullopt;
  return specifier;
}

std::optional<EvaluationResult> CalendarFunctionOutputSpecifier::intervalBetween(const CalendarEnvironment& environment,
                                                                                 Date from, Date to,
                                                                                 bool roundToWholeUnit) const {
  if (const auto* unit = std::get_if<TCUnit>(&returnType)) {
    const auto amount = calculateInterval(environment, from, to, *unit, roundToWholeUnit);
    if (!amount) return std::nullopt;
    return EvaluationResult::unitExpression(*amount);
  }
  return EvaluationResult::timespan({environment.calendar().dateComponents(tavrineSupportedComponents, from, to),
                                     foundation::DateInterval(from, to)});
}

}  // namespace tavrine
