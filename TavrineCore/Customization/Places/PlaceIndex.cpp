#include "TavrineCore/Customization/Places/PlaceIndex.h"

#include <algorithm>
#include <bit>
#include <unordered_map>
#include <utility>

#include "Foundation/Hashing.h"
#include "Foundation/SerialQueue.h"
#include "Foundation/StringMap.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Places/NameLexemes.h"

namespace tavrine {

namespace {

std::uint64_t hashOfName(std::string_view lowercasedName) { return StringHash{}(lowercasedName); }

std::uint64_t hashOfBeginning(std::string_view firstLexeme, std::string_view secondLexeme) {
  return hashCombine(StringHash{}(firstLexeme), StringHash{}(secondLexeme));
}

/// The part of a hash that tells apart what shares a slot.
std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

/// Calls with the lower-case form of the text; a copy is made only where there is a capital, and rarely one that costs
/// an allocation, since all names pass through here when the index is made.
template <class Use>
auto withLowercase(std::string_view text, Use use) {
  if (isLowercased(text)) return use(text);
  std::array<char, 64> copy;
  if (text.size() <= copy.size() && isAscii(text)) {
    std::transform(text.begin(), text.end(), copy.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return use(std::string_view(copy.data(), text.size()));
  }
  const std::string lower = lowercased(text);
  return use(std::string_view(lower));
}

}  // namespace

/// The places that were asked for last: people write of the same few, and a row is a text that has to be read.
class PlaceIndex::ReadPlaces {
 public:
  /// What `read` gives the first time.
  std::optional<Place> placeFor(std::uint32_t globalName, FunctionRef<std::optional<Place>()> read) {
    using Known = std::shared_ptr<const std::optional<Place>>;
    Known known = accessQueue_.sync([&]() -> Known {
      const auto found = places_.find(globalName);
      return found == places_.end() ? nullptr : found->second;
    });
    if (known == nullptr) {
      known = std::make_shared<const std::optional<Place>>(read());
      accessQueue_.async([&] {
        if (places_.size() >= kMaximumCount) places_.clear();
        places_.insert_or_assign(globalName, known);
      });
    }
    return *known;
  }

 private:
  static constexpr std::size_t kMaximumCount = 64;

  SerialQueue accessQueue_{"Read Places Access Queue"};
  std::unordered_map<std::uint32_t, std::shared_ptr<const std::optional<Place>>> places_;
};

PlaceIndex::PlaceIndex(std::shared_ptr<const PlaceRows> cities, std::shared_ptr<const PlaceRows> countries,
                       std::shared_ptr<const PlaceRows> states)
    : readPlaces_(std::make_shared<ReadPlaces>()), tables_{std::move(cities), std::move(countries), std::move(states)} {
  std::size_t nameCount = 0;
  for (std::size_t table = 0; table < kTables; ++table) {
    firstNames_[table] = static_cast<std::uint32_t>(nameCount);
    if (tables_[table] != nullptr) nameCount += tables_[table]->names().size();
  }
  slots_.resize(std::bit_ceil(nameCount * 3 / 2 + 1));
  heads_.assign(std::bit_ceil(nameCount / 2 + 1), kNone);
  for (std::size_t table = 0; table < kTables; ++table) {
    if (tables_[table] == nullptr) continue;
    const std::vector<PlaceRows::Name>& names = tables_[table]->names();
    for (std::size_t first = 0; first < names.size();) {
      std::size_t end = first + 1;
      while (end < names.size() && names[end].row == names[first].row) ++end;
      enterPhrasesOfRow(table, first, end);
      first = end;
    }
  }
  phrases_.shrink_to_fit();
  // A chain begins at its first phrase when the last one is hung in first.
  for (std::size_t i = phrases_.size(); i-- > 0;) {
    std::uint32_t& head = heads_[phrases_[i].next];
    phrases_[i].next = std::exchange(head, static_cast<std::uint32_t>(i));
  }
}

void PlaceIndex::enterPhrasesOfRow(std::size_t table, std::size_t firstName, std::size_t endName) {
  const std::vector<PlaceRows::Name>& names = tables_[table]->names();
  const auto enterPhrase = [&](std::size_t name, const NameLexemes& lexemes) {
    const std::uint64_t hash = withLowercase(lexemes.first, [&](std::string_view first) {
      return withLowercase(lexemes.second, [&](std::string_view second) { return hashOfBeginning(first, second); });
    });
    const auto bucket = static_cast<std::uint32_t>(hash & (heads_.size() - 1));
    // `next` holds the bucket until the chains are made.
    phrases_.push_back({tagOf(hash), static_cast<std::uint32_t>(firstNames_[table] + name), bucket});
  };

  bool hasPhraseAmongAliases = false;
  std::optional<std::pair<std::size_t, NameLexemes>> ownName;
  for (std::size_t name = firstName; name < endName; ++name) {
    const std::string_view text = tables_[table]->textOf(names[name]);
    withLowercase(text, [&](std::string_view lower) {
      enterName(hashOfName(lower), static_cast<std::uint32_t>(firstNames_[table] + name));
    });
    const NameLexemes lexemes = leadingLexemesOf(text);
    if (!lexemes.areSeveral()) continue;
    if (!names[name].isAlias) {
      ownName = {name, lexemes};
    } else if (containsLowercaseLetter(text)) {
      hasPhraseAmongAliases = true;
      enterPhrase(name, lexemes);
    }
  }
  if (ownName && !hasPhraseAmongAliases) enterPhrase(ownName->first, ownName->second);
}

void PlaceIndex::enterName(std::uint64_t hash, std::uint32_t globalName) {
  const std::size_t mask = slots_.size() - 1;
  const std::uint32_t tag = tagOf(hash);
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    Slot& slot = slots_[at];
    if (slot.value != kNone && slot.tag != tag) continue;
    slot = {tag, globalName};
    return;
  }
}

std::optional<Place> PlaceIndex::placeNamed(std::string_view lowercasedName) const {
  const std::uint64_t hash = hashOfName(lowercasedName);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask; slots_[at].value != kNone; at = (at + 1) & mask) {
    if (slots_[at].tag != tagOf(hash)) continue;
    if (!equalsIgnoringCase(textOf(slots_[at].value), lowercasedName)) return std::nullopt;
    return placeOfName(slots_[at].value);
  }
  return std::nullopt;
}

std::optional<PlaceIndex::Match> PlaceIndex::longestPhrase(
    std::string_view firstLexeme, std::string_view secondLexeme,
    FunctionRef<std::size_t(std::string_view phrase)> extentOf) const {
  const std::uint64_t hash = hashOfBeginning(firstLexeme, secondLexeme);
  std::size_t longest = 0;
  std::uint32_t longestName = kNone;
  for (std::uint32_t at = heads_[hash & (heads_.size() - 1)]; at != kNone; at = phrases_[at].next) {
    if (phrases_[at].tag != tagOf(hash)) continue;
    const std::size_t extent = extentOf(textOf(phrases_[at].name));
    if (extent <= longest) continue;
    longest = extent;
    longestName = phrases_[at].name;
  }
  if (longestName == kNone) return std::nullopt;
  std::optional<Place> place = placeOfName(longestName);
  if (!place) return std::nullopt;
  return Match{*std::move(place), longest};
}

std::vector<Place> PlaceIndex::placesBeginningWith(std::string_view firstLexeme) const {
  std::vector<Place> result;
  for (std::size_t table = 0; table < kTables; ++table) {
    if (tables_[table] == nullptr) continue;
    const std::vector<PlaceRows::Name>& names = tables_[table]->names();
    std::uint32_t lastRow = kNone;
    for (std::size_t name = 0; name < names.size(); ++name) {
      if (names[name].row == lastRow) continue;
      const NameLexemes lexemes = leadingLexemesOf(tables_[table]->textOf(names[name]));
      if (!lexemes.areSeveral() || !equalsIgnoringCase(lexemes.first, firstLexeme)) continue;
      lastRow = names[name].row;
      if (std::optional<Place> place = placeOfName(static_cast<std::uint32_t>(firstNames_[table] + name))) {
        result.push_back(*std::move(place));
      }
    }
  }
  return result;
}

PlaceIndex::NameReference PlaceIndex::referenceOf(std::uint32_t globalName) const {
  std::uint8_t table = kTables - 1;
  while (globalName < firstNames_[table]) --table;
  return {table, globalName - firstNames_[table]};
}

std::string_view PlaceIndex::textOf(std::uint32_t globalName) const {
  const NameReference reference = referenceOf(globalName);
  const PlaceRows& table = *tables_[reference.table];
  return table.textOf(table.names()[reference.name]);
}

std::optional<Place> PlaceIndex::placeOfName(std::uint32_t globalName) const {
  return readPlaces_->placeFor(globalName, [&] { return placeReadFor(globalName); });
}

std::optional<Place> PlaceIndex::placeReadFor(std::uint32_t globalName) const {
  const NameReference reference = referenceOf(globalName);
  const PlaceRows& table = *tables_[reference.table];
  const std::size_t row = table.names()[reference.name].row;
  if (reference.table == 0) {
    const std::optional<City> city = table.city(row);
    return city ? city->place() : std::nullopt;
  }
  const std::optional<Country> country = table.country(row);
  return country ? country->place() : std::nullopt;
}

}  // namespace tavrine
