#include "TavrineCore/Customization/Engine/EngineContentCache.h"

#include <utility>

#include "Foundation/Hashing.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Places/Place.h"

namespace tavrine {

namespace {

std::shared_ptr<const EngineContent> newContentFor(const EngineCustomization& newCustomization,
                                                   const EngineCustomization& oldCustomization,
                                                   const EngineContent& oldContent) {
  const ContentReuse reuse = contentReuse(newCustomization, oldCustomization);
  if (reuse.fromScratch) return std::make_shared<const EngineContent>(newCustomization);
  auto content = std::make_shared<EngineContent>(oldContent);
  switch (reuse.unitList) {
    case ListReuse::keep:
      break;
    case ListReuse::extend:
      content->unitList =
          Lazy<UnitList>([base = oldContent.unitList, newCustomization] { return UnitList(*base, newCustomization); });
      break;
    case ListReuse::rebuild:
      content->unitList = Lazy<UnitList>([newCustomization] { return UnitList(newCustomization); });
      break;
  }
  if (reuse.placeList != ListReuse::keep) content->placeList = placeListWith(newCustomization.customPlaces());
  if (reuse.customFunctionsList == ListReuse::rebuild) {
    content->customFunctionsList = Lazy<CustomFunctionsList>(
        [functions = newCustomization.customFunctions()] { return CustomFunctionsList(functions); });
  }
  return content;
}

}  // namespace

std::shared_ptr<const EngineContent> EngineContentCache::engineContentFor(const EngineCustomization& customization) {
  // Never destroyed: the memory of a process ends with it, all at once.
  static auto& cache = *new EngineContentCache;
  return cache.contentFor(customization);
}

std::shared_ptr<const EngineContent> EngineContentCache::contentFor(const EngineCustomization& customization) {
  const std::string currentLocale = Locale::current().identifier();
  return accessQueue_.sync([&]() -> std::shared_ptr<const EngineContent> {
    Key key{customization, currentLocale};
    const bool mayHit = customization.customFunctions().empty();
    if (mayHit) {
      const auto found = contentCache_.find(key);
      if (found != contentCache_.end()) return found->second;
    }
    if (contentCache_.size() >= maximumCacheCount) contentCache_.clear();

    if (!recent_ || recent_->key.currentLocale != currentLocale) {
      recent_ = CustomizationAndContent{{EngineCustomization::basic(), currentLocale}, EngineContent::basic()};
    }
    auto content = newContentFor(customization, recent_->key.customization, *recent_->content);
    recent_ = CustomizationAndContent{key, content};
    if (mayHit) contentCache_.emplace(std::move(key), content);
    return content;
  });
}

std::size_t EngineContentCache::count() const {
  return accessQueue_.sync([&] { return contentCache_.size(); });
}

std::size_t EngineContentCache::KeyHash::operator()(const Key& key) const {
  return hashCombine(key.customization.hash(), std::hash<std::string>{}(key.currentLocale));
}

}  // namespace tavrine
