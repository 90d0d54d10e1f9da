#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <latch>
#include <stdexcept>
#include <thread>
#include <vector>

#include "Foundation/OperationQueue.h"
#include "Foundation/ReadersWriterQueue.h"
#include "Foundation/SerialQueue.h"

namespace tavrine::foundation {
namespace {

void onThreads(int count, const std::function<void(int)>& work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

TEST(SerialQueue, GuardsPlainValues) {
  SerialQueue queue("Counter");
  int count = 0;  // plain on purpose: the thread sanitizer watches
  onThreads(4, [&](int) {
    for (int i = 0; i < 2000; ++i) {
      const int before = queue.sync([&] { return count; });
      queue.async([&] { ++count; });
      EXPECT_GT(queue.sync([&] { return count; }), before);
    }
  });
  EXPECT_EQ(count, 8000);
}

TEST(ReadersWriterQueue, AWriterIsAloneAndItsWriteIsSeen) {
  ReadersWriterQueue queue("Pair");
  int left = 0;
  int right = 0;
  onThreads(6, [&](int thread) {
    for (int i = 0; i < 2000; ++i) {
      if (thread < 2) {
        queue.writeBarrierAsync([&] {
          ++left;
          ++right;
        });
      } else {
        EXPECT_TRUE(queue.readSync([&] { return left == right; }));
      }
    }
  });
  EXPECT_EQ(queue.writeBarrierSync([&] { return ++left; }), 4001);
}

TEST(ReadersWriterQueue, ReadersRunBesideEachOther) {
  ReadersWriterQueue queue("Readers");
  std::promise<void> first;
  std::promise<void> second;
  // Each waits for the other inside its read: one at a time would never end.
  auto other = std::async(std::launch::async, [&] {
    queue.readSync([&] {
      first.set_value();
      second.get_future().wait();
    });
  });
  queue.readSync([&] {
    first.get_future().wait();
    second.set_value();
  });
  other.wait();
}

TEST(OperationQueue, WidthOneKeepsTheOrder) {
  OperationQueue queue("Serial", 1);
  std::vector<int> order;  // plain on purpose
  for (int i = 0; i < 500; ++i) queue.add([&order, i](const Operation&) { order.push_back(i); });
  queue.waitUntilAllFinished();
  ASSERT_EQ(order.size(), 500U);
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
  EXPECT_EQ(queue.operationCount(), 0U);
}

TEST(OperationQueue, RunsAsManyAtOnceAsItIsWideAndNoMore) {
  constexpr int width = 3;
  OperationQueue queue("Wide", width);
  std::latch allInside(width);
  std::atomic<int> running = 0;
  std::atomic<int> most = 0;
  for (int i = 0; i < 12; ++i) {
    queue.add([&, i](const Operation&) {
      const int now = ++running;
      for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) continue;
      if (i < width) allInside.arrive_and_wait();  // would hang if fewer than `width` ever ran at once
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      --running;
    });
  }
  queue.waitUntilAllFinished();
  EXPECT_EQ(most, width);
}

TEST(OperationQueue, CancelledOperationsFinishWithoutRunning) {
  OperationQueue queue("Cancelled", 1);
  std::promise<void> started;
  std::promise<void> release;
  std::atomic<int> completions = 0;
  std::atomic<bool> ranCancelled = false;
  std::atomic<bool> sawCancellation = false;
  auto running = std::make_shared<BlockOperation>([&](const Operation& self) {
    started.set_value();
    release.get_future().wait();
    sawCancellation = self.isCancelled();
  });
  auto waiting = std::make_shared<BlockOperation>([&](const Operation&) { ranCancelled = true; });
  for (const auto& operation : {running, waiting}) {
    operation->setCompletion([&] { ++completions; });
    queue.add(operation);
  }
  started.get_future().wait();
  EXPECT_EQ(running->state(), Operation::State::executing);
  EXPECT_EQ(waiting->state(), Operation::State::ready);
  queue.cancelAllOperations();
  release.set_value();
  queue.waitUntilAllFinished();
  EXPECT_TRUE(sawCancellation);
  EXPECT_FALSE(ranCancelled);
  EXPECT_EQ(completions, 2);
  EXPECT_EQ(waiting->state(), Operation::State::finished);
}

TEST(OperationQueue, SurvivesThrowingAndNestedWork) {
  std::atomic<int> done = 0;
  {
    OperationQueue queue("Nested", 2);
    queue.add([](const Operation&) { throw std::runtime_error("lost on purpose"); });
    for (int i = 0; i < 50; ++i) {
      queue.add([&](const Operation&) { queue.add([&](const Operation&) { ++done; }); });
    }
    queue.waitUntilAllFinished();
    EXPECT_EQ(done, 50);
    queue.waitUntilAllFinished();
  }
}

TEST(OperationQueue, TheDestructorFinishesWhatIsLeft) {
  std::atomic<int> ran = 0;
  std::atomic<int> completions = 0;
  std::promise<void> started;
  {
    OperationQueue queue("Short-lived", 1);
    queue.add([&](const Operation& self) {
      started.set_value();
      while (!self.isCancelled()) std::this_thread::yield();
      ++ran;
      // Too late: it is finished as cancelled.
      queue.add([&](const Operation&) { ++ran; });
    });
    for (int i = 0; i < 20; ++i) {
      auto operation = std::make_shared<BlockOperation>([&](const Operation&) { ++ran; });
      operation->setCompletion([&] { ++completions; });
      queue.add(std::shared_ptr<Operation>(operation));
    }
    started.get_future().wait();
  }
  EXPECT_EQ(ran, 1);
  EXPECT_EQ(completions, 20);
}

}  // namespace
}  // namespace tavrine::foundation
