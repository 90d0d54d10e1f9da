#include "Foundation/OperationQueue.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tavrine::foundation {

namespace {

/// Runs a host's function; what it throws ends here.
template <class Function>
void runGuarded(Function&& function) noexcept {
  try {
    function();
  } catch (...) {
    // An operation has nobody to tell; its completion runs all the same.
  }
}

}  // namespace

void Operation::start() {
  State expected = State::ready;
  if (!state_.compare_exchange_strong(expected, State::executing, std::memory_order_acq_rel)) return;
  if (!isCancelled()) runGuarded([this] { main(); });
  state_.store(State::finished, std::memory_order_release);
  if (completion_) runGuarded(completion_);
}

OperationQueue::OperationQueue(std::string_view label, std::size_t width)
    : label_(label), width_(std::max<std::size_t>(width, 1)) {}

OperationQueue::~OperationQueue() {
  {
    // First, so that what an operation adds on being cancelled is cancelled as well.
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  cancelAllOperations();
  workArrived_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void OperationQueue::add(std::shared_ptr<Operation> operation) {
  if (!operation) return;
  bool isLate = false;
  bool hasThread = true;
  {
    const std::lock_guard lock(mutex_);
    isLate = closing_;
    // An idle thread may already be promised to work that came before.
    const bool wantsThread = waiting_.size() >= idleThreads_ && threads_.size() < width_;
    if (wantsThread && !closing_) hasThread = startThread() || !threads_.empty();
    if (hasThread) waiting_.push_back({operation, EnvironmentCarrier()});
  }
  if (isLate) runGuarded([&operation] { operation->cancel(); });
  if (!hasThread) return operation->start();
  workArrived_.notify_one();
}

bool OperationQueue::startThread() {
  try {
    threads_.emplace_back([this] { work(); });
    return true;
  } catch (const std::system_error&) {
    return false;  // the machine has no thread to spare
  }
}

std::shared_ptr<Operation> OperationQueue::add(std::function<void(const Operation& self)> block) {
  auto operation = std::make_shared<BlockOperation>(std::move(block));
  add(std::shared_ptr<Operation>(operation));
  return operation;
}

std::size_t OperationQueue::operationCount() const {
  const std::lock_guard lock(mutex_);
  return waiting_.size() + running_.size();
}

void OperationQueue::cancelAllOperations() {
  std::vector<std::shared_ptr<Operation>> operations;
  {
    const std::lock_guard lock(mutex_);
    // Those waiting first: the end of one that runs would start the next.
    for (const Entry& entry : waiting_) operations.push_back(entry.operation);
    operations.insert(operations.end(), running_.begin(), running_.end());
  }
  // Outside the lock: `cancel` may be overridden, and stop callbacks are foreign code.
  for (const auto& operation : operations) runGuarded([&operation] { operation->cancel(); });
}

void OperationQueue::waitUntilAllFinished() {
  std::unique_lock lock(mutex_);
  allFinished_.wait(lock, [this] { return waiting_.empty() && running_.empty(); });
}

void OperationQueue::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    ++idleThreads_;
    workArrived_.wait(lock, [this] { return closing_ || !waiting_.empty(); });
    --idleThreads_;
    if (waiting_.empty()) return;  // closing, and nothing left
    Entry entry = std::move(waiting_.front());
    waiting_.pop_front();
    running_.push_back(entry.operation);
    lock.unlock();

    entry.environment.run([&entry] { entry.operation->start(); });

    lock.lock();
    running_.erase(std::ranges::find(running_, entry.operation));
    if (waiting_.empty() && running_.empty()) allFinished_.notify_all();
    // Its destructor is foreign code too.
    lock.unlock();
    entry.operation.reset();
    lock.lock();
  }
}

}  // namespace tavrine::foundation
