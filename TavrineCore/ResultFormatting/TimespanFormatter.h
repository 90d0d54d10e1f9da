#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;
struct Timespan;

/// Writes a duration as a run of amounts: "2 months 4 weeks 1 day".
class TimespanFormatter {
 public:
  /// The largest amount first, without those of 0; the only one of a duration is written even then. What overflows is
  /// carried on, up to weeks, unless the line asks for a pair of units: 90 minutes are "1 hr 30 min". Nanoseconds are a
  /// fraction of the seconds. A duration below 0 has one "-" in front. Several amounts that are all 0 give an empty
  /// text.
  [[nodiscard]] static std::string format(const Timespan& timespan, const ResultFormatterContext& context);
};

/// "1 hr 30 min".
struct TimespanResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// How long the span is, by the calendar of the context; nothing where it ends before it starts.
struct DatespanResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
