#include "TavrineCore/Customization/Units/UnitListCache.h"

#include <algorithm>
#include <utility>

#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Units/UnitClashes.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Parsing/Lexing/StringLexing.h"

namespace tavrine {

namespace {

using Descriptions = std::vector<UnitDescription>;

/// The currencies of a customization that has none of the real ones.
const std::shared_ptr<const Descriptions>& debugUnitDescriptions() {
  using enum UnitIdentifier;
  static const auto all = std::make_shared<const Descriptions>(Descriptions{
      {.symbol = "USD", .aliases = {"usd"}, .associatedUnitIdentifier = currencyUSD},
      {.symbol = "GBP", .aliases = {"gbp"}, .associatedUnitIdentifier = currencyGBP},
      {.symbol = "EUR", .aliases = {"eur", "euro", "euros"}, .associatedUnitIdentifier = currencyEUR},
      {.symbol = "AUD", .aliases = {"aud"}, .associatedUnitIdentifier = currencyAUD},
  });
  return all;
}

bool hasRealCurrencies(const EngineCustomization& customization) {
  return customization.currencySet() == CurrencySet::realWorldPlusCrypto;
}

bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isNothingButAsciiLetters(std::string_view text) { return std::all_of(text.begin(), text.end(), isAsciiLetter); }

}  // namespace

UnitListCache::UnitListCache(const EngineCustomization& customization)
    : generateDiacriticFreeVariants_(customization.locale().isSpanish()) {
  unitDescriptionsByIdentifier_.fill(kNone);
  cacheAll(StaticResouces::localizedUnitDescriptions());
  if (customization.featureFlags().seeksFutureDate) cacheShorthands();
  cacheAll(hasRealCurrencies(customization) ? CurrencyList::localizedUnitDescriptions() : debugUnitDescriptions());
  const auto* const ownSigns = customization.currencySymbolSettings().symbols();
  cacheSigns(ownSigns != nullptr ? *ownSigns : UnitSymbolReplacement::typedSymbolsFor(customization.locale()));
  cacheCustomUnits(customization.customUnits());
  makeFilters();
}

UnitListCache::UnitListCache(const UnitListCache& base, const std::vector<CustomUnit>& customUnits)
    : UnitListCache(base) {
  cacheCustomUnits(customUnits);
  makeFilters();
}

auto UnitListCache::unitDescriptionForQuery(std::string_view word) const -> const DescriptionPointer* {
  const Index* const found = unitDescriptionsForQueries_.find(word);
  return found == nullptr ? nullptr : &descriptions_[*found];
}

auto UnitListCache::unitDescriptionFor(UnitIdentifier identifier) const -> const DescriptionPointer* {
  const Index index = unitDescriptionsByIdentifier_[static_cast<std::size_t>(identifier)];
  return index == kNone ? nullptr : &descriptions_[index];
}

const std::string* UnitListCache::querySubstitutionFor(std::string_view sign) const {
  const auto found = querySubstitutions_.find(sign);
  return found == querySubstitutions_.end() ? nullptr : &found->second;
}

void UnitListCache::cacheSigns(const std::vector<UnitSymbolReplacement>& signs) {
  for (const UnitSymbolReplacement& sign : signs) {
    querySubstitutions_.insert_or_assign(sign.replacementSymbol, wordFor(sign.originalSymbol));
    cacheFirstWord(sign.replacementSymbol);
  }
}

std::string UnitListCache::wordFor(const std::string& code) const {
  std::string word = lowercased(code);
  const std::optional<UnitIdentifier> currency = CurrencyList::unitIdentifierFor(code);
  if (!currency) return word;
  const DescriptionPointer* const meaning = unitDescriptionForQuery(word);
  return meaning != nullptr && (*meaning)->associatedUnitIdentifier == *currency ? word : code;
}

void UnitListCache::cacheAll(const std::shared_ptr<const Descriptions>& descriptions) {
  std::size_t words = unitDescriptionsForQueries_.size();
  for (const UnitDescription& description : *descriptions) words += 1 + description.aliases.size();
  unitDescriptionsForQueries_.reserve(words);
  descriptions_.reserve(descriptions_.size() + descriptions->size());
  for (const UnitDescription& description : *descriptions) cache(DescriptionPointer(descriptions, &description));
}

void UnitListCache::cache(DescriptionPointer pointer) {
  // Beyond what an index can count the words of a user are left out.
  if (descriptions_.size() >= kNone) return;
  const auto index = static_cast<Index>(descriptions_.size());
  descriptions_.push_back(std::move(pointer));
  const UnitDescription& description = *descriptions_.back();

  Index& first = unitDescriptionsByIdentifier_[static_cast<std::size_t>(description.associatedUnitIdentifier)];
  if (first == kNone) first = index;

  const auto owner = UnitClashes::unitIdentifierFor(description.symbol);
  const bool belongsToAnother =
      owner && *owner != description.associatedUnitIdentifier && unitDescriptionForQuery(description.symbol) != nullptr;
  if (!belongsToAnother) cacheWord(description.symbol, index);
  for (const std::string& alias : description.aliases) cacheWord(alias, index);

  cacheFirstWord(description.symbol);
  for (const std::string& alias : description.aliases) cacheFirstWord(alias);
}

void UnitListCache::cacheShorthands() {
  const auto shorthands = StaticResouces::localizedUnitShorthands();
  for (const UnitShorthand& shorthand : *shorthands) {
    const auto identifier = unitIdentifierNamed(shorthand.identifier);
    if (!identifier) continue;
    const Index index = unitDescriptionsByIdentifier_[static_cast<std::size_t>(*identifier)];
    if (index == kNone) continue;
    for (const std::string& alias : shorthand.aliases) cacheWord(keep(alias), index);
  }
}

void UnitListCache::cacheCustomUnits(const std::vector<CustomUnit>& customUnits) {
  if (customUnits.empty()) return;
  Descriptions descriptions;
  descriptions.reserve(customUnits.size());
  for (const CustomUnit& unit : customUnits) descriptions.push_back(unit.unitDescription());
  cacheAll(std::make_shared<const Descriptions>(std::move(descriptions)));
}

void UnitListCache::cacheWord(std::string_view word, Index index) {
  unitDescriptionsForQueries_.insertOrAssign(word, index);
  if (!generateDiacriticFreeVariants_ || isNothingButAsciiLetters(word)) return;
  std::string plain = strippingDiacritics(word);
  if (plain != word) unitDescriptionsForQueries_.insertOrAssign(keep(std::move(plain)), index);
}

void UnitListCache::cacheFirstWord(std::string_view name) {
  // Most names are plain words, or several with blanks between them: those need no lexer.
  const auto end = std::find_if_not(name.begin(), name.end(), isAsciiLetter);
  if (end == name.end()) return;
  const bool isPlain = end != name.begin() && *end == ' ';
  const auto first = isPlain ? std::optional(std::string_view(name.begin(), end)) : firstWord(name);
  // Asked first, since an attempt to insert makes a string.
  if (first && !firstWordsInMultiWordUnitsCache_.contains(*first)) firstWordsInMultiWordUnitsCache_.emplace(*first);
}

bool UnitListCache::beginsMultiWordUnit(const HashedWord& firstLexeme) const {
  if (!firstWords_.mayContain(firstLexeme)) return false;
  const StringSet& firstWords = firstWordsInMultiWordUnitsCache_;
  const std::string_view text = firstLexeme.text;
  return firstWords.contains(text) || (!isLowercased(text) && firstWords.contains(lowercased(text)));
}

void UnitListCache::makeFilters() {
  words_ = WordFilter(unitDescriptionsForQueries_.size() + querySubstitutions_.size() +
                      firstWordsInMultiWordUnitsCache_.size());
  for (const auto& [word, index] : unitDescriptionsForQueries_) words_.insert(word);
  for (const auto& [sign, word] : querySubstitutions_) words_.insert(sign);
  for (const std::string& word : firstWordsInMultiWordUnitsCache_) words_.insert(word);
  firstWords_ = WordFilter::ofKeys(firstWordsInMultiWordUnitsCache_);
}

std::string_view UnitListCache::keep(std::string word) {
  return *ownWords_.emplace_back(std::make_shared<const std::string>(std::move(word)));
}

}  // namespace tavrine
