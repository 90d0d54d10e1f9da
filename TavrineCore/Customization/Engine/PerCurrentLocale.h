#pragma once

#include <cstddef>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "Foundation/Locale.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// What is made once a process is made once a current locale, since tests and hosts work under several. Values are
/// handles that are cheap to copy.
template <typename Value>
class PerCurrentLocale {
 public:
  /// `make(locale)` runs outside the lock; of two that race, one value stays.
  template <typename Make>
  Value get(Make make) {
    const Locale locale = Locale::current();
    {
      const std::lock_guard lock(mutex_);
      const auto found = values_.find(locale);
      if (found != values_.end()) return found->second;
    }
    Value value = make(locale);
    const std::lock_guard lock(mutex_);
    if (values_.size() >= kMaximumCount) values_.clear();
    return values_.try_emplace(locale, std::move(value)).first->second;
  }

 private:
  // Nobody works under more locales at a time; a process that walks through all of them shall not keep them.
  static constexpr std::size_t kMaximumCount = 16;

  std::mutex mutex_;
  std::unordered_map<Locale, Value> values_;
};

}  // namespace tavrine
