#pragma once

namespace tavrine::foundation {

/// Asserts, in debug builds, that this thread doesn't enter a queue it is already inside of, which would wait for
/// itself for ever. Costs nothing in release builds.
class QueueEntryCheck {
 public:
#ifdef NDEBUG
  explicit QueueEntryCheck(const void* /*queue*/) noexcept {}
#else
  explicit QueueEntryCheck(const void* queue) noexcept;
  ~QueueEntryCheck();
#endif
  QueueEntryCheck(const QueueEntryCheck&) = delete;
  QueueEntryCheck& operator=(const QueueEntryCheck&) = delete;

 private:
#ifndef NDEBUG
  const void* queue_;
  const QueueEntryCheck* outer_;
#endif
};

}  // namespace tavrine::foundation
