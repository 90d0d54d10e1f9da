#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Evaluation/TokenListForm.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Table.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using Form = TokenListForm;

std::string text(const Datestamp& datestamp) {
  const DateComponents parts = Calendar::current().dateComponents(
      {Calendar::Component::year, Calendar::Component::month, Calendar::Component::day, Calendar::Component::hour,
       Calendar::Component::minute},
      datestamp.date);
  const auto two = [](std::optional<std::int64_t> value) {
    const std::string digits = std::to_string(*value);
    return digits.size() < 2 ? "0" + digits : digits;
  };
  return two(parts.year) + "-" + two(parts.month) + "-" + two(parts.day) + "T" + two(parts.hour) + ":" +
         two(parts.minute);
}
std::string text(const TCUnit& unit) { return std::string(toString(unit.identifier())); }
std::string text(const Timespan& timespan) {
  std::string result;
  const auto add = [&result](std::optional<std::int64_t> count, std::string_view unit) {
    if (count.value_or(0) != 0) result += std::to_string(*count) + std::string(unit);
  };
  add(timespan.dateComponents.year, "y");
  add(timespan.dateComponents.month, "mo");
  add(timespan.dateComponents.weekOfYear, "w");
  add(timespan.dateComponents.day, "d");
  add(timespan.dateComponents.hour, "h");
  return result;
}

struct Describe {
  std::string operator()(const Form::Other&) const { return "other"; }
  std::string operator()(const Form::SingleNumber& form) const { return "number " + form.value.description(); }
  std::string operator()(const Form::SingleUnitExpression& form) const {
    return "amount " + form.value.value.description() + " " + text(form.value.unit);
  }
  std::string operator()(const Form::SingleDatestamp& form) const { return "date " + text(form.value); }
  std::string operator()(const Form::Conversion& form) const {
    return "convert " + form.quantity.description() + " " + text(form.fromUnit) + " to " + text(form.toUnit);
  }
  std::string operator()(const Form::DateSeeking& form) const {
    const bool isForward = form.direction == Calendar::SearchDirection::forward;
    return text(form.startDate) + (isForward ? " plus " : " minus ") + text(form.timespan);
  }
  std::string operator()(const Form::UnitUntilDateSeeking& form) const {
    return text(form.unit) + " until " + text(form.toDate);
  }
  std::string operator()(const Form::IntervalBetweenDatesSeeking& form) const {
    return text(form.startDate) + " to " + text(form.endDate) + (form.unit ? " in " + text(*form.unit) : "");
  }
  std::string operator()(const Form::TimeAtPlaceSeeking& form) const { return "time in " + form.place.name; }
  std::string operator()(const Form::TimeDifferenceBetweenPlacesSeeking& form) const {
    return form.firstPlace.name + " against " + form.secondPlace.name;
  }
  std::string operator()(const Form::TimeConversionToPlace& form) const {
    return text(form.fromDate) + " in " + form.toPlace.name;
  }
  std::string operator()(const Form::CustomFunctionCall& form) const {
    std::string result = "call " + form.function.identifier().value_or("?");
    for (const CustomFunctionArgument& argument : form.parameters)
      result += " (" + argument.matchedToken.stringValue + ")";
    return result;
  }
};

class TokenListFormTest : public ::testing::Test {
 protected:
  static EngineCustomization customization() {
    EngineCustomization result = EngineCustomization::standardWith(Locale("en_US"));
    CustomFunction::Fields fields;
    fields.prototypeExpression = "move __length_expression to 10";
    fields.identifier = "move";
    fields.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::none(); };
    result.setCustomFunctions({CustomFunction(std::move(fields))});
    return result;
  }

  std::string formOf(std::string_view line) {
    const auto parsed = calculator_.calculate(line).parsedExpression;
    return std::visit(Describe(), metadataOf(parsed ? *parsed : TokenList()).form.value);
  }

  foundation::ScopedEnvironment world_{testing::worldAt("2026-06-10T09:30:00Z", "UTC", "en_US")};
  Calculator calculator_{customization()};
};

TEST_F(TokenListFormTest, TellsWhatALineAsks) {
  struct Row {
    std::string_view line;
    std::string_view form;
  };
  for (const Row& row : rowsOf<Row>("Engine/TokenListFormTests", "TellsWhatALineAsks")) {
    EXPECT_EQ(formOf(row.line), row.form) << row.line;
  }
}

}  // namespace
}  // namespace tavrine
