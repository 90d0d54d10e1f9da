#include "TavrineCore/Customization/Units/UnitList.h"

#include <array>
#include <cstddef>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"

namespace tavrine {

namespace {

using enum UnitIdentifier;

/// How many points an em is for each point of the font's size: fonts are measured in pixels.
const Decimal& pointsPerPixel() {
  static const Decimal value = *Decimal::parse("0.75");
  return value;
}

TCUnit unitOfDescription(const std::shared_ptr<const UnitDescription>& description, TCUnitConverterLinear converter) {
  const UnitIdentifier identifier = description->associatedUnitIdentifier;
  return TCUnit::counted({.identifier = identifier,
                          .unitType = unitTypeOf(identifier),
                          .symbol = description->symbol,
                          .converter = converter,
                          .unitDescription = description});
}

constexpr auto kImperialUnits = std::to_array<std::pair<UnitIdentifier, UnitIdentifier>>({
    {pints, imperialPints},
    {teaspoons, imperialTeaspoons},
    {tablespoons, imperialTablespoons},
    {quarts, imperialQuarts},
    {fluidOunces, imperialFluidOunces},
    {gallons, imperialGallons},
    {milesPerGallon, milesPerImperialGallon},
});

UnitIdentifier imperialIdentifierFor(UnitIdentifier identifier) {
  for (const auto& [customary, imperial] : kImperialUnits) {
    if (customary == identifier) return imperial;
  }
  return identifier;
}

UnitIdentifier metricIdentifierFor(UnitIdentifier identifier, const Locale& locale) {
  switch (identifier) {
    case teaspoons:
      return metricTeaspoons;
    case tablespoons:
      return locale.hasPrefix("en_AU") || locale.hasPrefix("en_NZ") ? metricAUTablespoons : metricTablespoons;
    case cups:
      return metricCups;
    default:
      return identifier;
  }
}

}  // namespace

UnitList::UnitList(const EngineCustomization& engineCustomization)
    : engineCustomization_(engineCustomization), cache_(engineCustomization) {}

UnitList::UnitList(const UnitList& base, const EngineCustomization& engineCustomization)
    : engineCustomization_(engineCustomization), cache_(base.cache_, engineCustomization.customUnits()) {}

std::optional<TCUnit> UnitList::quickLookup(const HashedWord& word) const {
  if (!cache_.mayMeanSomething(word)) return std::nullopt;
  const std::string_view query = word.text;
  if (auto unit = preparedUnitForWord(query)) return unit;
  if (const std::string* const substitution = cache_.querySubstitutionFor(query)) {
    if (auto unit = preparedUnitForWord(*substitution)) return unit;
  }
  if (isLowercased(query)) return std::nullopt;
  return preparedUnitForWord(lowercased(query));
}

std::optional<TCUnit> UnitList::preparedUnitForWord(std::string_view word) const {
  const auto* const description = cache_.unitDescriptionForQuery(word);
  return description == nullptr ? std::nullopt : preparedUnitFor(*description);
}

std::optional<TCUnit> UnitList::preparedUnitFor(const std::shared_ptr<const UnitDescription>& description) const {
  const UnitIdentifier identifier = description->associatedUnitIdentifier;
  if (engineCustomization_.featureFlags().disables(identifier)) return std::nullopt;

  const Decimal equivalence = description->equivalenceOrOne();
  const TCUnitConverterLinear& builtIn = unitOf(identifier).converter();
  switch (unitTypeOf(identifier)) {
    case UnitType::currency: {
      const std::optional<Decimal> rate = currencyRateFor(identifier);
      if (!rate) return std::nullopt;
      return unitOfDescription(description, {*rate * equivalence, Decimal()});
    }
    case UnitType::other:
      return unitOfDescription(description, {});
    case UnitType::temperature:
      return unitOfDescription(description, {builtIn.coefficient * equivalence, builtIn.constant});
    default:
      break;
  }
  if (identifier == em || identifier == rem) {
    const Decimal size = unitOf(point).coefficient() * pointsPerPixel() * engineCustomization_.baseFontSize();
    return unitOfDescription(description, {size * equivalence, Decimal()});
  }
  const std::optional<TCUnit> associated = description->associatedUnit();
  if (associated && associated->symbol() == description->symbol) return preferredUnitFor(*associated);
  return unitOfDescription(description, {(builtIn.coefficient + builtIn.constant) * equivalence, Decimal()});
}

const TCUnit& UnitList::preferredUnitFor(const TCUnit& unit) const {
  const UnitIdentifier identifier = unit.identifier();
  UnitIdentifier preferred = identifier;
  switch (engineCustomization_.unitSystem()) {
    case UnitMeasurementSystem::customaryUS:
      break;
    case UnitMeasurementSystem::imperial:
      preferred = imperialIdentifierFor(identifier);
      break;
    case UnitMeasurementSystem::metric:
      preferred = metricIdentifierFor(identifier, engineCustomization_.locale());
      break;
  }
  // A unit of the user's own that is so many pints is no pint.
  if (preferred == identifier || unit != unitOf(identifier)) return unit;
  return unitOf(preferred);
}

std::optional<std::string> UnitList::longestUnitNameFor(UnitIdentifier identifier) const {
  const auto* const description = cache_.unitDescriptionFor(identifier);
  if (description == nullptr) return std::nullopt;
  const std::string* longest = nullptr;
  std::size_t longestCount = 0;
  for (const std::string& alias : (*description)->aliases) {
    const std::size_t count = clusterCount(alias);
    if (longest != nullptr && count <= longestCount) continue;
    longest = &alias;
    longestCount = count;
  }
  return longest == nullptr ? std::nullopt : std::optional<std::string>(*longest);
}

std::optional<std::string> UnitList::symbolFor(UnitIdentifier identifier) const {
  const auto* const description = cache_.unitDescriptionFor(identifier);
  return description == nullptr ? std::nullopt : std::optional<std::string>((*description)->symbol);
}

std::optional<Decimal> UnitList::currencyRateFor(UnitIdentifier identifier) const {
  return CurrencyList::shared().worthInDollars(identifier, engineCustomization_.currencyRateProvider().get());
}

bool UnitList::isCurrencySubstitution(std::string_view text) const {
  return cache_.querySubstitutionFor(text) != nullptr;
}

bool UnitList::beginsMultiWordUnit(const HashedWord& firstLexeme) const {
  return cache_.beginsMultiWordUnit(firstLexeme);
}

}  // namespace tavrine
