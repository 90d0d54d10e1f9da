#include "TavrineCore/Customization/Units/SubstanceList.h"

#include <array>
#include <string>

#include "Foundation/Decimal.h"
#include "Foundation/StringMap.h"
#include "Foundation/Text.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::string_view value;
};

constexpr auto kSubstances = std::to_array<Row>({
#define SUBSTANCE(name, value) {name, value},
#include "TavrineCore/Customization/Units/Substances.def"
#undef SUBSTANCE
});
static_assert(kSubstances.size() == 223);

Substance substanceFrom(const Row& row) {
  return {.name = std::string(row.name), .value = Decimal::parse(row.value).value_or(Decimal())};
}

using RowsByName = StringViewMap<const Row*>;
using SubstancesByFirstWord = StringViewMap<std::vector<Substance>>;

const RowsByName& substanceMap() {
  static const RowsByName all = [] {
    RowsByName made;
    made.reserve(kSubstances.size());
    for (const Row& row : kSubstances) made.emplace(row.name, &row);
    return made;
  }();
  return all;
}

const SubstancesByFirstWord& multiWordSubstancesByPrefixCache() {
  static const SubstancesByFirstWord all = [] {
    SubstancesByFirstWord made;
    for (const Row& row : kSubstances) {
      const std::size_t end = row.name.find_first_of(" -");
      if (end != std::string_view::npos) made[row.name.substr(0, end)].push_back(substanceFrom(row));
    }
    return made;
  }();
  return all;
}

}  // namespace

bool SubstanceList::mayKnow(const HashedWord& word) {
  static const WordFilter words = [] {
    WordFilter made(2 * kSubstances.size());
    for (const auto& [name, row] : substanceMap()) made.insert(name);
    for (const auto& [firstWord, substances] : multiWordSubstancesByPrefixCache()) made.insert(firstWord);
    return made;
  }();
  return words.mayContain(word);
}

std::optional<Substance> SubstanceList::runQuery(const HashedWord& fragment) {
  if (!mayKnow(fragment)) return std::nullopt;
  const auto found = substanceMap().find(lowercased(fragment.text));
  return found == substanceMap().end() ? std::nullopt : std::optional(substanceFrom(*found->second));
}

const std::vector<Substance>* SubstanceList::multiWordSubstancesBeginningWith(const HashedWord& firstWordOfSubstance) {
  if (!mayKnow(firstWordOfSubstance)) return nullptr;
  const SubstancesByFirstWord& all = multiWordSubstancesByPrefixCache();
  const auto found = all.find(lowercased(firstWordOfSubstance.text));
  return found == all.end() ? nullptr : &found->second;
}

}  // namespace tavrine
