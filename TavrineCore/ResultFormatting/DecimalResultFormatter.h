#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Decimal;
class Locale;
}  // namespace tavrine::foundation

namespace tavrine {

class EvaluationResult;
struct FormattingPreferences;
struct NotationPreferences;
struct ResultFormatterContext;

/// Shows numbers: "1,234.5", "1.5M", "1.2345E20", "1 ½". The other formatters build on its parts.
class DecimalResultFormatter {
 public:
  enum class DecimalFormattingStyle : std::uint8_t { plain, fraction, si, scientific };

  /// How a number is shown. Unless the notation is off: beyond 10^14 and below 10^-6 scientific, from the threshold on
  /// abbreviated. With the notation off: plain up to 10^34. Never `fraction`, which only fractions ask for.
  [[nodiscard]] static DecimalFormattingStyle formattingStyleFor(const Decimal& decimal,
                                                                 const NotationPreferences& preferences);

  /// The text of a `decimal` or `scientificNotation`; the latter is shown in scientific style whatever its size.
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);

  /// The number in the style that suits it; what isn't a number reads as infinity.
  [[nodiscard]] static std::string formatted(const Decimal& decimal, const FormattingPreferences& preferences,
                                             const Locale& locale);
  /// "1,234.5"; nothing for what isn't a number, as in the two below.
  [[nodiscard]] static std::optional<std::string> formattedAsDecimal(const Decimal& decimal,
                                                                     const FormattingPreferences& preferences,
                                                                     const Locale& locale);
  /// "1.2345E20".
  [[nodiscard]] static std::optional<std::string> formattedWithScientificNotation(
      const Decimal& decimal, const FormattingPreferences& preferences, const Locale& locale);
  /// "½", "1 ½", "3/7"; nothing for negative numbers and those without a small denominator.
  [[nodiscard]] static std::optional<std::string> formattedAsFraction(const Decimal& decimal,
                                                                      const FormattingPreferences& preferences,
                                                                      const Locale& locale);
};

}  // namespace tavrine
