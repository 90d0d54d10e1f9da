#pragma once

#include <optional>
#include <string>

namespace tavrine {

class EvaluationResult;
struct Datestamp;
struct ResultFormatterContext;

/// "1 July", "Tomorrow", "5:45 PM", "March 2024": a date as it was written, by its `DatestampType`.
class DatestampResultFormatter {
 public:
  /// In the format that the line asked for; else in the one of its kind of date; else in the style of the locale:
  /// yesterday to tomorrow by their words, other dates without the year while the whole line is about this one.
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);

 private:
  [[nodiscard]] static std::optional<std::string> userProvidedTemplateFormattedDate(
      const Datestamp& datestamp, const ResultFormatterContext& context);
  [[nodiscard]] static std::optional<std::string> modernFormattedResult(const Datestamp& datestamp,
                                                                        const ResultFormatterContext& context);
  [[nodiscard]] static std::string localeFormattedDate(const Datestamp& datestamp,
                                                       const ResultFormatterContext& context);
};

/// "2024-03-05T14:30:00Z".
struct iso8601ResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "1700000000": whole seconds without separators. Nothing for what isn't a number.
struct TimestampResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
