#pragma once

#include <string_view>

namespace tavrine {

struct ResultFormatterContext;
struct UnitSymbolReplacement;

/// The first row in force for a currency code or another unit's symbol: of the host's list if it has set one, else of
/// those of the locale. Null where there is none. Stays good while the context does and no other locale is asked for.
[[nodiscard]] const UnitSymbolReplacement* signReplacing(std::string_view symbol,
                                                         const ResultFormatterContext& context);

/// The same, over rows that only keep a sign from being typed.
[[nodiscard]] const UnitSymbolReplacement* shownSignReplacing(std::string_view symbol,
                                                              const ResultFormatterContext& context);

}  // namespace tavrine
