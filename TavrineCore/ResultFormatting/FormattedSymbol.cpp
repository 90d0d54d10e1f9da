#include "TavrineCore/ResultFormatting/FormattedSymbol.h"

#include <algorithm>
#include <array>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine {
namespace {

// An alias of a minute or a mile is another word, not another sign; and their own may be a word with forms.
constexpr UnitTypeSet kTypesWithTheirOwnSymbol{UnitType::duration, UnitType::length};

struct PluralWord {
  std::string_view symbol;
  std::string_view one;
  std::string_view other;
};

// The symbols that are words, in the language of the vocabulary whatever the locale of the numbers is: an answer can be
// typed again. Found by symbol rather than by unit, so that a unit of the user's own keeps the name it was given.
constexpr auto kEnglishWords = std::to_array<PluralWord>({
    {"day", "day", "days"},
    {"week", "week", "weeks"},
    {"month", "month", "months"},
    {"year", "year", "years"},
    {"workday", "workday", "workdays"},
    {"night", "night", "nights"},
    {"picosecond", "picosecond", "picoseconds"},
    {"cents", "cent", "cents"},
    {"euro cents", "euro cent", "euro cents"},
    {"pence", "penny", "pence"},
});

// By the double, so that a quotient that fell short of 1 in its last digits still reads "1 week".
bool isOne(const Decimal& value) { return value.magnitude().doubleValue() == 1.0; }

}  // namespace

std::string_view pluralForm(std::string_view symbol, const Decimal& value) {
  const auto word = std::ranges::find(kEnglishWords, symbol, &PluralWord::symbol);
  if (word == kEnglishWords.end()) return symbol;
  return isOne(value) ? word->one : word->other;
}

std::string_view formattedSymbol(const TCUnit& unit, const Decimal& value) {
  if (unit.identifier() == UnitIdentifier::cycles) return {};
  if (kTypesWithTheirOwnSymbol.contains(unit.unitType())) return pluralForm(unit.symbol(), value);
  return unit.unitDescription() == nullptr ? unit.symbol() : unit.unitDescription()->symbol;
}

}  // namespace tavrine
