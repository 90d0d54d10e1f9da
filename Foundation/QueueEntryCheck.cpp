#include "Foundation/QueueEntryCheck.h"

#include <cassert>

namespace tavrine::foundation {

#ifndef NDEBUG

namespace {

/// The innermost queue that this thread is inside of; the others hang behind it.
thread_local const QueueEntryCheck* innermost = nullptr;

}  // namespace

QueueEntryCheck::QueueEntryCheck(const void* queue) noexcept : queue_(queue), outer_(innermost) {
  for (const QueueEntryCheck* entered = innermost; entered != nullptr; entered = entered->outer_) {
    assert(entered->queue_ != queue && "work in a queue must not enter the same queue again");
  }
  innermost = this;
}

QueueEntryCheck::~QueueEntryCheck() { innermost = outer_; }

#endif

}  // namespace tavrine::foundation
