#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "Foundation/WordTable.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

class EngineCustomization;
struct UnitSymbolReplacement;

/// The words of a customization's units. Later words overwrite earlier ones, so that what a user adds wins. Read-only
/// once made. The words are views into the descriptions, which are shared with the resources.
class UnitListCache {
 public:
  explicit UnitListCache(const EngineCustomization& customization);
  /// The words of `base`, and custom units on top.
  UnitListCache(const UnitListCache& base, const std::vector<CustomUnit>& customUnits);

  using DescriptionPointer = std::shared_ptr<const UnitDescription>;

  /// What the word means, exactly as written; null when it means nothing.
  [[nodiscard]] const DescriptionPointer* unitDescriptionForQuery(std::string_view word) const;
  /// The first description of the identifier; null when there is none.
  [[nodiscard]] const DescriptionPointer* unitDescriptionFor(UnitIdentifier identifier) const;
  /// The word that a currency's sign stands for: "usd" for "$"; null for all other texts.
  [[nodiscard]] const std::string* querySubstitutionFor(std::string_view sign) const;

  /// The first lexeme of each name that has several.
  [[nodiscard]] const StringSet& firstWordsInMultiWordUnitsCache() const { return firstWordsInMultiWordUnitsCache_; }
  /// False only for a text that means nothing in any case of its letters, is no currency's sign, and begins no name of
  /// several lexemes.
  [[nodiscard]] bool mayMeanSomething(const HashedWord& word) const { return words_.mayContain(word); }
  /// Whether a name of several lexemes begins with this one, in this or in lower case.
  [[nodiscard]] bool beginsMultiWordUnit(const HashedWord& firstLexeme) const;

  /// Calls `visit(word, description)` for each word; in no order.
  template <class Visit>
  void forEachQuery(Visit&& visit) const {
    for (const auto& [word, index] : unitDescriptionsForQueries_) visit(word, *descriptions_[index]);
  }

 private:
  using Index = std::uint16_t;
  static constexpr Index kNone = 0xffff;

  /// After the words, which tell what a code means in lower case.
  void cacheSigns(const std::vector<UnitSymbolReplacement>& signs);
  /// The code in lower case, or as it is where that is another word: "usd", but "TOP", and "KGS" since "kgs" are
  /// kilograms.
  [[nodiscard]] std::string wordFor(const std::string& code) const;
  void cacheAll(const std::shared_ptr<const std::vector<UnitDescription>>& descriptions);
  void cache(DescriptionPointer description);
  void cacheShorthands();
  void cacheCustomUnits(const std::vector<CustomUnit>& customUnits);
  /// The word, and the way that people write it who leave accents out.
  void cacheWord(std::string_view word, Index index);
  void cacheFirstWord(std::string_view name);
  std::string_view keep(std::string word);
  /// When all is cached.
  void makeFilters();

  bool generateDiacriticFreeVariants_;
  StringMap<std::string> querySubstitutions_;
  StringSet firstWordsInMultiWordUnitsCache_;
  WordFilter words_;
  WordFilter firstWords_;
  std::vector<DescriptionPointer> descriptions_;
  WordTable<Index> unitDescriptionsForQueries_;
  std::array<Index, kUnitIdentifierCount> unitDescriptionsByIdentifier_;
  // Words that stand in no description: what the views of the map look at must not move.
  std::vector<std::shared_ptr<const std::string>> ownWords_;
};

}  // namespace tavrine
