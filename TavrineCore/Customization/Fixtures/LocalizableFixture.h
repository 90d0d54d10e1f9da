#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A key under which a language lists words: each word means the key's fixture.
enum class LocalizableFixture : std::uint8_t {
#define LOCALIZABLE_FIXTURE(key, fixture) key,
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.def"
};

inline constexpr std::size_t kLocalizableFixtureCount = 0
#define LOCALIZABLE_FIXTURE(key, fixture) +1
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.def"
    ;
static_assert(kLocalizableFixtureCount == 79);

/// The key as it stands in the resource files.
std::string_view rawValue(LocalizableFixture key);
std::optional<LocalizableFixture> localizableFixtureNamed(std::string_view name);
Fixture equivalentFixtureType(LocalizableFixture key);

/// What one resource file says: the words of each key, in the order of the file.
struct LocalizableFixtureSet {
  std::array<std::vector<std::string>, kLocalizableFixtureCount> stringsForLocalizableFixture;

  const std::vector<std::string>& stringsFor(LocalizableFixture key) const {
    return stringsForLocalizableFixture[static_cast<std::size_t>(key)];
  }

  /// Each word with its fixture. Of a word under two keys the later key's meaning counts.
  StringMap<Fixture> fixtures() const;

  /// Adds the words of another file. A word that is in both keeps only the meaning that it has there.
  void layOver(const LocalizableFixtureSet& other);

  friend bool operator==(const LocalizableFixtureSet&, const LocalizableFixtureSet&) = default;
};

}  // namespace tavrine
