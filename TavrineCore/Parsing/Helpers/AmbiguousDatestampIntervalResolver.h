#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "Foundation/Date.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// The time of day that a date gets which was written without one.
struct DatestampTimeConstrait {
  enum class Kind : std::uint8_t { none, matchTimeOf, pushToDayEnd, pullToDayStart };

  Kind kind = Kind::none;
  /// Whose time of day, for `matchTimeOf`.
  Date date = {};
};

/// The side of another moment on which a date has to lie that was written without a year.
struct RelativeDatestampConstraint {
  enum class Kind : std::uint8_t { none, after, before };

  Kind kind = Kind::none;
  Date date = {};
};

/// Which of two dates moves until they make an interval.
enum class DatestampResolutionDirection : std::uint8_t { first, second, none };

/// The date with the time of day, moved by the period that its words leave open ("Friday" by a week, "5 March" by a
/// year) if it lies on the wrong side. Dates that tell their year stay.
Datestamp resolve(const Datestamp& datestamp, const DatestampTimeConstrait& timeConstraint,
                  const RelativeDatestampConstraint& relativeConstraint);

/// The same for the date of a token. Absent where it has none.
std::optional<Datestamp> resolveDatestampWith(const Token& token, const DatestampTimeConstrait& timeConstraint,
                                              const RelativeDatestampConstraint& relativeConstraint);

/// Two dates of which one may lack its year, as an interval: from "25 December" to "3 January" it is nine days.
class AmbiguousDatestampIntervalResolver {
 public:
  AmbiguousDatestampIntervalResolver(Datestamp firstDatestamp, Datestamp secondDatestamp,
                                     DatestampTimeConstrait timeConstraint)
      : firstDatestamp_(std::move(firstDatestamp)),
        secondDatestamp_(std::move(secondDatestamp)),
        timeConstraint_(timeConstraint) {}

  struct Interval {
    Datestamp from;
    Datestamp to;
  };
  /// Absent where nothing is open about the two.
  [[nodiscard]] std::optional<Interval> resolvedDatestamps() const;

 private:
  [[nodiscard]] DatestampResolutionDirection resolutionDirection() const;

  Datestamp firstDatestamp_;
  Datestamp secondDatestamp_;
  DatestampTimeConstrait timeConstraint_;
};

}  // namespace tavrine
