#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Foundation/Calendar.h"
#include "Foundation/Clock.h"
#include "Foundation/Locale.h"
#include "Foundation/RandomSource.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// What the engine takes from the world around it: the time, the zone, the locale, the calendar and chance. Immutable
/// and cheap to copy. There is one default for the process, and a thread may work under another for a while.
class Environment {
 public:
  struct Parts {
    std::shared_ptr<const Clock> clock;
    std::string timeZoneIdentifier;
    Locale locale;
    Calendar::Identifier calendarIdentifier = Calendar::Identifier::gregorian;
    std::shared_ptr<RandomSource> random;
  };

  /// A missing clock or random source becomes that of the machine, an empty zone identifier its zone.
  explicit Environment(Parts parts);

  /// Of this machine and the user's settings.
  [[nodiscard]] static Environment fromSystem();

  /// The override of this thread, if one is in force, else the default of the process.
  [[nodiscard]] static Environment current();

  /// Replaces the default of the process. Work that has begun may still see the former one.
  static void setProcessDefault(const Environment& environment);

  [[nodiscard]] const Clock& clock() const noexcept { return *parts_->clock; }
  [[nodiscard]] const std::string& timeZoneIdentifier() const noexcept { return parts_->timeZoneIdentifier; }
  /// The zone of that identifier.
  [[nodiscard]] const TimeZone& timeZone() const noexcept { return timeZone_; }
  [[nodiscard]] const Locale& locale() const noexcept { return parts_->locale; }
  [[nodiscard]] Calendar::Identifier calendarIdentifier() const noexcept { return parts_->calendarIdentifier; }
  [[nodiscard]] RandomSource& random() const noexcept { return *parts_->random; }

  /// The parts, as the start of a changed copy: `auto parts = env.parts(); parts.locale = Locale("de_DE");`.
  [[nodiscard]] const Parts& parts() const noexcept { return *parts_; }

  /// Whether both are one and the same; equal parts made twice are not.
  friend bool operator==(const Environment& left, const Environment& right) noexcept {
    return left.parts_ == right.parts_;
  }

 private:
  std::shared_ptr<const Parts> parts_;
  TimeZone timeZone_;
};

/// Puts an environment in force for this thread until the end of the block. Blocks nest; objects are to be destroyed on
/// their own thread, in reverse order.
class ScopedEnvironment {
 public:
  explicit ScopedEnvironment(Environment environment);
  ~ScopedEnvironment();
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  friend class EnvironmentCarrier;

  Environment environment_;
  const Environment* previous_;
};

/// Takes this thread's override along to another thread: made where work is handed over, `run` where it is done.
/// Without an override there is nothing to carry, and the default of the process holds there too.
class EnvironmentCarrier {
 public:
  EnvironmentCarrier();

  /// Calls `work` under the carried override.
  template <class Work>
  auto run(Work&& work) const {
    if (!carried_) return work();
    const ScopedEnvironment scope(*carried_);
    return work();
  }

 private:
  std::optional<Environment> carried_;
};

}  // namespace tavrine::foundation
