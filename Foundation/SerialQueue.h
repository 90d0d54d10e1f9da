#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/QueueEntryCheck.h"

namespace tavrine::foundation {

/// Guards values that several threads use: one piece of work at a time, on the thread of the caller. There is no thread
/// of its own, so `async` too is done when it returns; that keeps the order of submission and lets a reader see the
/// writes before it. For work that takes long use an `OperationQueue` of width 1.
///
/// Work must not enter the same queue again; debug builds assert that it doesn't.
class SerialQueue {
 public:
  explicit SerialQueue(std::string_view label) : label_(label) {}
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;

  [[nodiscard]] const std::string& label() const noexcept { return label_; }

  /// Runs `work` alone and gives its answer, which is a copy: `sync([&] { return value_; })`.
  template <class Work>
  auto sync(Work&& work) const {
    const QueueEntryCheck check(this);
    const std::lock_guard lock(mutex_);
    return std::forward<Work>(work)();
  }

  /// Runs `work` alone, before anything that is submitted after it.
  template <class Work>
  void async(Work&& work) {
    const QueueEntryCheck check(this);
    const std::lock_guard lock(mutex_);
    std::forward<Work>(work)();
  }

 private:
  std::string label_;
  mutable std::mutex mutex_;
};

}  // namespace tavrine::foundation
