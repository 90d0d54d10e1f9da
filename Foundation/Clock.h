#pragma once

#include "Foundation/Date.h"

namespace tavrine::foundation {

/// Tells the time. May be asked from any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual Date now() const = 0;
};

/// The clock of the machine.
class SystemClock final : public Clock {
 public:
  [[nodiscard]] Date now() const override;
};

/// A clock that stands still.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(Date moment) noexcept : moment_(moment) {}
  [[nodiscard]] Date now() const override { return moment_; }

 private:
  Date moment_;
};

}  // namespace tavrine::foundation
