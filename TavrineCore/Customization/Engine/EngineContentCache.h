#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "Foundation/SerialQueue.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// Remembers the contents of customizations, so that a vocabulary is made as seldom as possible.
class EngineContentCache {
 public:
  /// When the cache holds this many contents, it is emptied before the next one comes in.
  static constexpr std::size_t maximumCacheCount = 30;

  EngineContentCache() = default;

  /// The content of the customization, from the cache of the process.
  static std::shared_ptr<const EngineContent> engineContentFor(const EngineCustomization& customization);

  /// The content of the customization under the current locale. A customization with custom functions never hits,
  /// since two functions that look alike may act differently, but reuses the other lists of the content made last.
  std::shared_ptr<const EngineContent> contentFor(const EngineCustomization& customization);

  std::size_t count() const;

 private:
  // Some lists speak the current locale besides the customization's own.
  struct Key {
    EngineCustomization customization;
    std::string currentLocale;

    friend bool operator==(const Key&, const Key&) = default;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };
  struct CustomizationAndContent {
    Key key;
    std::shared_ptr<const EngineContent> content;
  };

  SerialQueue accessQueue_{"Cached Engine Content Cache"};
  std::unordered_map<Key, std::shared_ptr<const EngineContent>, KeyHash> contentCache_;
  std::optional<CustomizationAndContent> recent_;
};

}  // namespace tavrine
