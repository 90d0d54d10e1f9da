#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Units/UnitListCache.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// Answers which unit a text means, under one customization. Immutable and read from any thread.
class UnitList {
 public:
  explicit UnitList(const EngineCustomization& engineCustomization);
  /// The vocabulary of `base` with the custom units of the customization, which has them in addition.
  UnitList(const UnitList& base, const EngineCustomization& engineCustomization);

  /// The unit that the text means: as typed, as the sign of a currency, or in lower case, whichever comes first. Costs
  /// three probes at most, however many units there are.
  [[nodiscard]] std::optional<TCUnit> quickLookup(const HashedWord& query) const;

  /// The unit as this customization has it: its size, its currency's rate, or none where it is disabled or has no rate.
  [[nodiscard]] std::optional<TCUnit> preparedUnitFor(const std::shared_ptr<const UnitDescription>& description) const;

  /// The unit of the customization's system that goes by the same name: the imperial pint for the pint. All others are
  /// their own.
  [[nodiscard]] const TCUnit& preferredUnitFor(const TCUnit& unit) const;

  /// The alias with the most characters; nothing for an identifier without words.
  [[nodiscard]] std::optional<std::string> longestUnitNameFor(UnitIdentifier identifier) const;
  /// The symbol that the vocabulary shows for the identifier.
  [[nodiscard]] std::optional<std::string> symbolFor(UnitIdentifier identifier) const;

  /// US dollars for one of the currency; nothing where nobody knows a rate.
  [[nodiscard]] std::optional<Decimal> currencyRateFor(UnitIdentifier identifier) const;

  /// Whether the text is a sign that stands for a currency: "$".
  [[nodiscard]] bool isCurrencySubstitution(std::string_view text) const;
  /// Whether a name of several lexemes may begin with this one, as it stands or in lower case.
  [[nodiscard]] bool beginsMultiWordUnit(const HashedWord& firstLexeme) const;
  [[nodiscard]] const StringSet& firstWordsInMultiWordUnitsCache() const {
    return cache_.firstWordsInMultiWordUnitsCache();
  }

  [[nodiscard]] const EngineCustomization& engineCustomization() const { return engineCustomization_; }
  [[nodiscard]] const UnitListCache& cache() const { return cache_; }

 private:
  [[nodiscard]] std::optional<TCUnit> preparedUnitForWord(std::string_view word) const;

  EngineCustomization engineCustomization_;
  UnitListCache cache_;
};

}  // namespace tavrine
