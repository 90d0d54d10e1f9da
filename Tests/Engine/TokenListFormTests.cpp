#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Evaluation/TokenListForm.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/World.h"

namespace tavrine {
namespace {

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
  for (const Row& row : std::vector<Row>{
           // lone values
           {"5", "number 5"},
           {"about 5k, they say", "number 5000"},
           {"5 km", "amount 5 kilometers"},
           {"lunch: $12.50", "amount 12.5 currencyUSD"},
           {"25 December 2026 at 8am", "date 2026-12-25T08:00"},
           {"5pm in London", "date 2026-06-10T16:00"},
           {"20%", "other"},
           // conversions
           {"5 km in miles", "convert 5 kilometers to miles"},
           {"please convert 5km to miles", "convert 5 kilometers to miles"},
           {"how many miles in 5 km", "convert 5 kilometers to miles"},
           {"how many feet in a mile", "convert 1 miles to feet"},
           {"5 km is how many miles", "convert 5 kilometers to miles"},
           {"5 ft 3 in in cm", "convert 5.25 feet to centimeters"},
           {"3 hours in seconds", "convert 3 hours to seconds"},
           {"half of 10 km in miles", "convert 5 kilometers to miles"},
           {"5 km + 3 km in miles", "other"},
           {"5 km in hex", "other"},
           // from a date to another
           {"today at 8am + 3 weeks", "2026-06-10T08:00 plus 3w"},
           {"1 May 2026 8am - 2 months", "2026-05-01T08:00 minus 2mo"},
           {"3 weeks + 1 May 2026 8am", "2026-05-01T08:00 plus 3w"},
           {"3 weeks after 1 May 2026 8am", "2026-05-01T08:00 plus 3w"},
           {"a week before 1 May 2026 8am", "2026-05-01T08:00 minus 1w"},
           {"2 months ago", "2026-06-10T09:30 minus 2mo"},
           {"1 May 2026 8am + 3 weeks + 2 days", "other"},
           {"1 May 2026 8am + 3 km", "other"},
           // between dates
           {"days until 25 December 2026 8am", "days until 2026-12-25T08:00"},
           {"how many weeks until 25 December 2026 8am?", "weeks until 2026-12-25T08:00"},
           {"time until 25 December 2026 8am", "2026-06-10T09:30 to 2026-12-25T08:00"},
           {"days since 1 May 2026 8am", "2026-05-01T08:00 to 2026-06-10T09:30 in days"},
           {"days between 1 May 2026 8am and 9 May 2026 7am", "2026-05-01T08:00 to 2026-05-09T07:00 in days"},
           {"time between 1 May 2026 8am and 9 May 2026 7am", "2026-05-01T08:00 to 2026-05-09T07:00"},
           {"9 May 2026 7am - 1 May 2026 8am", "2026-05-01T08:00 to 2026-05-09T07:00"},
           {"9 May 2026 7am - 1 May 2026 8am in days", "2026-05-01T08:00 to 2026-05-09T07:00 in days"},
           {"days between 1 May 2026 and 9 May 2026 inclusive", "other"},
           // zones
           {"time in London", "time in London"},
           {"what time is it in Tokyo?", "time in Tokyo"},
           {"time in EST", "time in EST"},
           {"time difference between London and Paris", "London against Paris"},
           {"5pm London in Paris", "2026-06-10T16:00 in Paris"},
           {"5pm to EST", "2026-06-10T17:00 in EST"},
           {"date in London", "other"},
           {"what time is it", "other"},
           // a host's phrase
           {"move 5 km to 7", "call move (5 km) (7)"},
           {"please move 5 km to (3 + 4)", "call move (5 km) (7)"},
           {"move 5 km to 7 + 1", "other"},
           // the rest
           {"1 + 2", "other"},
           {"half of 10", "other"},
           {"5, 6 and 7", "other"},
           {"hello there", "other"},
           {"", "other"},
       }) {
    EXPECT_EQ(formOf(row.line), row.form) << row.line;
  }
}

}  // namespace
}  // namespace tavrine
