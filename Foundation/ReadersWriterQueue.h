#pragma once

#include <mutex>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/QueueEntryCheck.h"

namespace tavrine::foundation {

/// Guards values that are read more than written: any number of readers at a time, or one writer alone. All work runs
/// on the thread of the caller; an asynchronous write is done when it returns, so that a reader sees the writes before
/// it.
///
/// Neither reads nor writes may enter the same queue again, not even a read from a read: a writer waiting in between
/// would hold up both. Debug builds assert that they don't.
class ReadersWriterQueue {
 public:
  explicit ReadersWriterQueue(std::string_view label) : label_(label) {}
  ReadersWriterQueue(const ReadersWriterQueue&) = delete;
  ReadersWriterQueue& operator=(const ReadersWriterQueue&) = delete;

  [[nodiscard]] const std::string& label() const noexcept { return label_; }

  /// Runs `read` beside other reads and gives its answer.
  template <class Read>
  auto readSync(Read&& read) const {
    const QueueEntryCheck check(this);
    const std::shared_lock lock(mutex_);
    return std::forward<Read>(read)();
  }

  /// Runs `write` alone and gives its answer.
  template <class Write>
  auto writeBarrierSync(Write&& write) {
    const QueueEntryCheck check(this);
    const std::unique_lock lock(mutex_);
    return std::forward<Write>(write)();
  }

  /// Runs `write` alone, before any read or write that is submitted after it.
  template <class Write>
  void writeBarrierAsync(Write&& write) {
    const QueueEntryCheck check(this);
    const std::unique_lock lock(mutex_);
    std::forward<Write>(write)();
  }

 private:
  std::string label_;
  mutable std::shared_mutex mutex_;
};

}  // namespace tavrine::foundation
