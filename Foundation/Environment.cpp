#include "Foundation/Environment.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace tavrine::foundation {

namespace {

/// The environment that a ScopedEnvironment of this thread has put in force.
thread_local const Environment* overrideOfThread = nullptr;

/// The default of the process. Made from the system when first asked for.
struct ProcessDefault {
  std::mutex mutex;
  std::optional<Environment> environment;
  /// Counts the replacements, so that threads see without the lock whether their copy is still good.
  std::atomic<std::uint64_t> generation{1};
};

ProcessDefault& processDefault() {
  static ProcessDefault* const shared = new ProcessDefault;
  return *shared;
}

/// A thread's copy of the default.
struct DefaultOfThread {
  std::uint64_t generation = 0;
  std::optional<Environment> environment;
};

}  // namespace

Environment::Environment(Parts parts) : timeZone_(TimeZone::gmt()) {
  if (!parts.clock) parts.clock = std::make_shared<const SystemClock>();
  if (!parts.random) parts.random = systemRandomSource();
  if (parts.timeZoneIdentifier.empty()) parts.timeZoneIdentifier = systemTimeZoneIdentifier();
  timeZone_ = TimeZone(parts.timeZoneIdentifier);
  parts_ = std::make_shared<const Parts>(std::move(parts));
}

Environment Environment::fromSystem() {
  Parts parts;
  parts.locale = Locale::fromSystem();
  return Environment(std::move(parts));
}

Environment Environment::current() {
  if (overrideOfThread != nullptr) return *overrideOfThread;
  thread_local DefaultOfThread mine;
  ProcessDefault& shared = processDefault();
  if (mine.generation != shared.generation.load(std::memory_order_acquire)) {
    const std::lock_guard lock(shared.mutex);
    if (!shared.environment) shared.environment = fromSystem();
    mine = {shared.generation.load(std::memory_order_relaxed), shared.environment};
  }
  return *mine.environment;
}

void Environment::setProcessDefault(const Environment& environment) {
  ProcessDefault& shared = processDefault();
  const std::lock_guard lock(shared.mutex);
  shared.environment = environment;
  shared.generation.fetch_add(1, std::memory_order_release);
}

ScopedEnvironment::ScopedEnvironment(Environment environment)
    : environment_(std::move(environment)), previous_(std::exchange(overrideOfThread, &environment_)) {}

ScopedEnvironment::~ScopedEnvironment() { overrideOfThread = previous_; }

EnvironmentCarrier::EnvironmentCarrier() {
  if (overrideOfThread != nullptr) carried_ = *overrideOfThread;
}

}  // namespace tavrine::foundation
