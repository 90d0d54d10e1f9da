#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::string_view description;
};

constexpr std::array<Row, 4> kRows = {{
    {"before", "Before"},
    {"beforeWithSpace", "Before (with space)"},
    {"after", "After"},
    {"afterWithSpace", "After (with space)"},
}};

using enum UnitSymbolReplacementPosition;

void removeRowsOf(std::string_view code, std::vector<UnitSymbolReplacement>& rows) {
  std::erase_if(rows, [code](const UnitSymbolReplacement& row) { return row.originalSymbol == code; });
}

/// What "$" and "¥" are in the locale.
std::vector<UnitSymbolReplacement> localizedDollarAndYenFor(const Locale& locale) {
  return {{locale.currencyCodeForDollarSymbol(), "$", before}, {locale.currencyCodeForYenSymbol(), "¥", before}};
}

}  // namespace

const std::vector<UnitSymbolReplacement>& UnitSymbolReplacement::standardSymbols() {
  static const std::vector<UnitSymbolReplacement> rows = {
      {"USD", "US$", before},
      {"SGD", "S$", before},
      {"TWD", "NT$", before},
      {"NZD", "NZ$", before},
      {"CAD", "C$", before},
      {"AUD", "A$", before},
      {"HKD", "HK$", before},
      {"EUR", "€", before},
      {"GBP", "£", before},
      {"DKK", "kr", afterWithSpace},
      {"AED", "AED", beforeWithSpace},
      {"BGN", "лв", afterWithSpace},
      {"BRL", "R$", before},
      {"CHF", "CHF", beforeWithSpace},
      {"CZK", "Kč", afterWithSpace},
      {"HRK", "kn", afterWithSpace},
      {"HUF", "Ft", afterWithSpace},
      {"IDR", "Rp", beforeWithSpace},
      {"INR", "₹", beforeWithSpace},
      {"ILS", "₪", before},
      {"KRW", "₩", before},
      {"KZT", "₸", before},
      {"MYR", "RM", before},
      {"NGN", "₦", before},
      {"PHP", "₱", before},
      {"PKR", "Rs", before},
      {"PLN", "zł", afterWithSpace},
      {"QAR", "﷼", afterWithSpace},
      {"RON", "lei", afterWithSpace},
      {"RUB", "₽", before},
      {"UAH", "₴", before},
      {"SAR", "﷼", after},
      {"THB", "฿", before},
      {"TRY", "TL", afterWithSpace},
      {"TZS", "TSh", afterWithSpace},
      {"VND", "₫", before},
      {"BTC", "₿", before},
      {"Satoshi", "丰", before},
  };
  return rows;
}

std::vector<UnitSymbolReplacement> UnitSymbolReplacement::standardCustomSymbolsFor(const Locale& locale) {
  std::vector<UnitSymbolReplacement> rows = localizedDollarAndYenFor(locale);
  std::ranges::copy_if(standardSymbols(), std::back_inserter(rows), [&rows](const UnitSymbolReplacement& row) {
    return row.originalSymbol != rows[0].originalSymbol && row.originalSymbol != rows[1].originalSymbol;
  });

  const std::optional<std::string>& code = locale.currencyCode();
  const std::optional<std::string>& sign = locale.currencySymbol();
  if (code && sign && code != sign) {
    removeRowsOf(*code, rows);
    rows.push_back({*code, *sign, before});
  }
  std::ranges::stable_sort(rows, {}, &UnitSymbolReplacement::replacementSymbol);
  return rows;
}

std::vector<UnitSymbolReplacement> UnitSymbolReplacement::typedSymbolsFor(const Locale& locale) {
  std::vector<UnitSymbolReplacement> rows = standardSymbols();
  // Japan prints its yen with a sign of full width, and still types the narrow one.
  std::ranges::copy(localizedDollarAndYenFor(locale), std::back_inserter(rows));
  std::ranges::copy(standardCustomSymbolsFor(locale), std::back_inserter(rows));
  return rows;
}

std::string_view toString(UnitSymbolReplacementPosition position) {
  return kRows[static_cast<std::size_t>(position)].name;
}

std::string_view descriptionOf(UnitSymbolReplacementPosition position) {
  return kRows[static_cast<std::size_t>(position)].description;
}

std::optional<UnitSymbolReplacementPosition> unitSymbolReplacementPositionNamed(std::string_view name) {
  const auto found = std::find_if(kRows.begin(), kRows.end(), [name](const Row& row) { return row.name == name; });
  if (found == kRows.end()) return std::nullopt;
  return static_cast<UnitSymbolReplacementPosition>(found - kRows.begin());
}

}  // namespace tavrine
