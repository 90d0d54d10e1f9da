#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "Foundation/Environment.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A handle to an immutable value that is made when somebody first asks for it, once for all copies of the handle and
/// on whatever thread that is. The maker runs under the environment in which the handle was made, so that the value
/// doesn't depend on who asks first.
template <typename T>
class Lazy {
 public:
  using Maker = std::function<T()>;

  explicit Lazy(Maker make) : state_(std::make_shared<State>(std::move(make))) {}
  /// A value that is there already.
  explicit Lazy(std::shared_ptr<const T> value) : state_(std::make_shared<State>(std::move(value))) {}

  const T& operator*() const { return *get(); }
  const T* operator->() const { return get(); }
  const T* get() const {
    if (const T* ready = state_->ready.load(std::memory_order_acquire)) return ready;
    return state_->build();
  }

  bool isBuilt() const { return state_->ready.load(std::memory_order_acquire) != nullptr; }

  /// Whether both handles lead to one and the same value.
  bool sharesWith(const Lazy& other) const { return state_ == other.state_; }

 private:
  struct State {
    explicit State(Maker m) : make(std::move(m)), environment(Environment::current()) {}
    explicit State(std::shared_ptr<const T> v) : value(std::move(v)), ready(value.get()) {}

    const T* build() {
      const std::lock_guard lock(mutex);
      if (value == nullptr) {
        const ScopedEnvironment scope(*environment);
        value = std::make_shared<const T>(make());
        make = nullptr;
        ready.store(value.get(), std::memory_order_release);
      }
      return value.get();
    }

    std::mutex mutex;
    Maker make;
    std::optional<Environment> environment;
    std::shared_ptr<const T> value;
    std::atomic<const T*> ready{nullptr};
  };

  std::shared_ptr<State> state_;
};

}  // namespace tavrine
