#pragma once

#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "Foundation/Calendar.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

class TokenList;

/// What kind of question a line is, with its pieces: for a host that shows "5 km in miles" otherwise than a sum.
struct TokenListForm {
  /// "5".
  struct SingleNumber {
    Decimal value;
  };
  /// "5 km".
  struct SingleUnitExpression {
    UnitExpression value;
  };
  /// "25 December", "5pm in London".
  struct SingleDatestamp {
    Datestamp value;
  };
  /// "5 km in miles".
  struct Conversion {
    TCUnit fromUnit;
    TCUnit toUnit;
    Decimal quantity;
  };
  /// "today + 3 weeks", "3 weeks before Friday".
  struct DateSeeking {
    Datestamp startDate;
    Timespan timespan;
    Calendar::SearchDirection direction = Calendar::SearchDirection::forward;
  };
  /// "days until Friday".
  struct UnitUntilDateSeeking {
    TCUnit unit;
    Datestamp toDate;
  };
  /// "days between 1 May and 9 June", "time until Friday"; without a unit where the line names none. In the order of
  /// the question: the start may be the later date.
  struct IntervalBetweenDatesSeeking {
    Datestamp startDate;
    Datestamp endDate;
    std::optional<TCUnit> unit;
  };
  /// "time in Paris". A zone without a place ("EST") is a place of its name.
  struct TimeAtPlaceSeeking {
    Place place;
  };
  /// "time difference between London and Paris".
  struct TimeDifferenceBetweenPlacesSeeking {
    Place firstPlace;
    Place secondPlace;
  };
  /// "5pm London in Paris".
  struct TimeConversionToPlace {
    Datestamp fromDate;
    Place toPlace;
  };
  /// A phrase of a host's own.
  struct CustomFunctionCall {
    CustomFunction function;
    std::vector<CustomFunctionArgument> parameters;
  };
  /// Anything else: sums, text, nothing.
  struct Other {};

  using Case = std::variant<Other, SingleNumber, SingleUnitExpression, SingleDatestamp, Conversion, DateSeeking,
                            UnitUntilDateSeeking, IntervalBetweenDatesSeeking, TimeAtPlaceSeeking,
                            TimeDifferenceBetweenPlacesSeeking, TimeConversionToPlace, CustomFunctionCall>;

  Case value;

  /// The pieces if the form is that one; null for others.
  template <class Form>
  [[nodiscard]] const Form* as() const {
    return std::get_if<Form>(&value);
  }
};

struct TokenListMetadata {
  TokenListForm form;
};

/// What a parsed line (`CalculationResult::parsedExpression`) is about. Words that mean nothing and comments don't
/// count. Values inside of the line are evaluated, the line itself is not.
[[nodiscard]] TokenListMetadata metadataOf(const TokenList& list);

}  // namespace tavrine
