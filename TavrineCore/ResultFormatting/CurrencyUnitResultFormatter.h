#pragma once

#include <optional>
#include <string>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Locale;
}

namespace tavrine {

class TCUnit;
class TokenList;
struct FormattingPreferences;
struct ResultFormatterContext;
struct UnitExpression;

/// Money: "$12.00", "-$5.00", "12.00 zł", "12.00 USD".
class CurrencyUnitResultFormatter {
 public:
  /// Whether amounts of the unit count as money: currencies, their fractions, and units of a user's own made of them.
  [[nodiscard]] static bool isMoney(const TCUnit& unit) noexcept;

  /// How many decimal places an amount of money is rounded to and shown with. The currency decides, but an abbreviated
  /// sum has 3 and fractions of a cent all; a value that is given a name, all too; and where people write a decimal
  /// comma, an amount that was typed with three places keeps them. `originalExpression` may be null.
  [[nodiscard]] static int decimalPointsToDisplayFor(const TokenList* originalExpression,
                                                     const UnitExpression& unitExpression,
                                                     const FormattingPreferences& preferences, const Locale& locale);

  /// Nothing for what isn't a number.
  [[nodiscard]] static std::optional<std::string> formatted(const UnitExpression& unitExpression,
                                                            const ResultFormatterContext& context);
};

}  // namespace tavrine
