#include "TavrineCore/ResultFormatting/CompoundUnitFormatter.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"

namespace tavrine {
namespace {

constexpr int kPlaces = 3;

struct CompoundUnitFormatting {
  UnitIdentifier larger;
  UnitIdentifier smaller;
  std::string_view largerSymbol;
  std::string_view smallerSymbol;
  std::int64_t smallerPerLarger;
};

constexpr auto kPairs = std::to_array<CompoundUnitFormatting>({
    {UnitIdentifier::feet, UnitIdentifier::inches, " ft", " in", 12},
    {UnitIdentifier::pounds, UnitIdentifier::ounces, " lb", " oz", 16},
});

const CompoundUnitFormatting* pairWith(UnitIdentifier unit) {
  for (const CompoundUnitFormatting& pair : kPairs) {
    if (unit == pair.larger || unit == pair.smaller) return &pair;
  }
  return nullptr;
}

Decimal truncated(const Decimal& value) {
  return value.rounded(0, value.isSignMinus() ? RoundingMode::up : RoundingMode::down);
}

}  // namespace

std::optional<std::string> CompoundUnitFormatter::format(const UnitExpression& unitExpression, const Locale& locale) {
  if (!unitExpression.prefersCompoundUnitFormatting || unitExpression.value.isZero()) return std::nullopt;
  const CompoundUnitFormatting* pair = pairWith(unitExpression.unit.identifier());
  if (pair == nullptr) return std::nullopt;
  const std::optional<UnitExpression> converted = convertedTo(unitExpression, pair->larger);
  if (!converted || converted->value.isNaN()) return std::nullopt;

  const Decimal perLarger(pair->smallerPerLarger);
  Decimal whole = truncated(converted->value);
  Decimal rest = (converted->value - whole) * perLarger;
  // Twelve inches are shown as a foot, also where it takes rounding to make them twelve.
  if (rest.rounded(kPlaces, RoundingMode::plain).magnitude() == perLarger) {
    whole = whole + (rest.isSignMinus() ? Decimal(-1) : Decimal(1));
    rest = Decimal(0);
  }

  NumberFormatter formatter(numberSymbolsFor(locale));
  formatter.maximumFractionDigits = kPlaces;
  std::string text;
  if (!whole.isZero() || rest.isZero()) {
    formatter.append(whole, text);
    text += pair->largerSymbol;
  }
  if (!rest.isZero()) {
    if (!text.empty()) text += ' ';
    formatter.append(rest, text);
    text += pair->smallerSymbol;
  }
  return text;
}

}  // namespace tavrine
