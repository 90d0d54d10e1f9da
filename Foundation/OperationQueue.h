#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Foundation/Environment.h"

namespace tavrine::foundation {

/// A piece of work for an `OperationQueue`. Runs at most once: ready, then executing, then finished. One that is
/// cancelled before it began is finished without `main`; later on `main` should look at `isCancelled`.
class Operation {
 public:
  enum class State : std::uint8_t { ready, executing, finished };

  virtual ~Operation() = default;
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  [[nodiscard]] State state() const noexcept { return state_.load(std::memory_order_acquire); }
  [[nodiscard]] bool isCancelled() const noexcept { return stop_.stop_requested(); }
  /// For calls that want to be told of the cancellation.
  [[nodiscard]] std::stop_token stopToken() const noexcept { return stop_.get_token(); }

  /// Asks the operation to stop; may be called at any time, on any thread. An override calls this one as well.
  virtual void cancel() { stop_.request_stop(); }

  /// Is called once when the operation has finished, cancelled or not, on the thread that ran it. To be set before the
  /// operation is started or added to a queue.
  void setCompletion(std::function<void()> completion) { completion_ = std::move(completion); }

  /// Runs the operation on this thread, unless it has been started before. What `main` or the completion throws is
  /// dropped: nobody stands above to catch it.
  void start();

 protected:
  Operation() = default;

 private:
  virtual void main() = 0;

  std::atomic<State> state_{State::ready};
  std::stop_source stop_;
  std::function<void()> completion_;
};

/// An operation that runs a function.
class BlockOperation final : public Operation {
 public:
  explicit BlockOperation(std::function<void(const Operation& self)> block) : block_(std::move(block)) {}

 private:
  void main() override { block_(*this); }

  std::function<void(const Operation&)> block_;
};

/// Runs operations in order of arrival on threads of its own, at most `width` at a time; with width 1 strictly one
/// after the other. Threads are started when work comes, and each operation runs under the environment override of the
/// thread that added it. The destructor cancels what is left and waits for what runs.
class OperationQueue {
 public:
  /// A width of 0 counts as 1.
  explicit OperationQueue(std::string_view label, std::size_t width);
  ~OperationQueue();
  OperationQueue(const OperationQueue&) = delete;
  OperationQueue& operator=(const OperationQueue&) = delete;

  [[nodiscard]] const std::string& label() const noexcept { return label_; }
  [[nodiscard]] std::size_t width() const noexcept { return width_; }

  /// An operation belongs to one queue and is added once.
  void add(std::shared_ptr<Operation> operation);
  /// Adds a function as an operation and gives the latter.
  std::shared_ptr<Operation> add(std::function<void(const Operation& self)> block);

  /// Operations waiting or running.
  [[nodiscard]] std::size_t operationCount() const;
  /// Cancels all operations, waiting and running. Those waiting are finished in their turn, with their completion.
  void cancelAllOperations();
  /// Returns when nothing waits or runs. Not to be called from an operation of this queue.
  void waitUntilAllFinished();

 private:
  struct Entry {
    std::shared_ptr<Operation> operation;
    EnvironmentCarrier environment;
  };

  /// With the lock held. Whether there is one thread more.
  bool startThread();
  void work();

  const std::string label_;
  const std::size_t width_;
  mutable std::mutex mutex_;
  std::condition_variable workArrived_;
  std::condition_variable allFinished_;
  std::deque<Entry> waiting_;
  std::vector<std::shared_ptr<Operation>> running_;
  std::vector<std::thread> threads_;
  std::size_t idleThreads_ = 0;
  bool closing_ = false;
};

}  // namespace tavrine::foundation
