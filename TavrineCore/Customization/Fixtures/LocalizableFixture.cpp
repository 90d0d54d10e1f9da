#include "TavrineCore/Customization/Fixtures/LocalizableFixture.h"

#include <algorithm>

namespace tavrine {

namespace {

constexpr std::array<std::string_view, kLocalizableFixtureCount> kKeys = {
#define LOCALIZABLE_FIXTURE(key, fixture) #key,
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.def"
};

constexpr std::array<Fixture, kLocalizableFixtureCount> kFixtures = {
#define LOCALIZABLE_FIXTURE(key, fixture) Fixture::fixture,
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.def"
};

}  // namespace

std::string_view rawValue(LocalizableFixture key) { return kKeys[static_cast<std::size_t>(key)]; }

std::optional<LocalizableFixture> localizableFixtureNamed(std::string_view name) {
  const auto found = std::find(kKeys.begin(), kKeys.end(), name);
  if (found == kKeys.end()) return std::nullopt;
  return static_cast<LocalizableFixture>(found - kKeys.begin());
}

Fixture equivalentFixtureType(LocalizableFixture key) { return kFixtures[static_cast<std::size_t>(key)]; }

StringMap<Fixture> LocalizableFixtureSet::fixtures() const {
  StringMap<Fixture> result;
  for (std::size_t i = 0; i < kLocalizableFixtureCount; ++i) {
    for (const std::string& word : stringsForLocalizableFixture[i]) result[word] = kFixtures[i];
  }
  return result;
}

void LocalizableFixtureSet::layOver(const LocalizableFixtureSet& other) {
  StringSet taken;
  for (const auto& words : other.stringsForLocalizableFixture) taken.insert(words.begin(), words.end());
  for (std::size_t i = 0; i < kLocalizableFixtureCount; ++i) {
    auto& mine = stringsForLocalizableFixture[i];
    std::erase_if(mine, [&taken](const std::string& word) { return taken.contains(word); });
    const auto& words = other.stringsForLocalizableFixture[i];
    mine.insert(mine.end(), words.begin(), words.end());
  }
}

}  // namespace tavrine
